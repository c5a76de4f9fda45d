import QtQuick

/// One application of the Dock: its icon, with a dot under it while it runs.
Item {
    id: root

    required property string name
    required property string path
    required property string icon
    required property bool isPinned
    required property bool isRunning
    required property bool isFirstRunning
    required property color ink

    readonly property int divider: root.isFirstRunning ? 17 : 0

    signal activated(string path, int anchor)
    signal menuRequested(var tile, int anchor)
    signal hoveredChanged(var tile, int anchor)

    function anchor() {
        return Math.round(picture.mapToGlobal(picture.width / 2, 0).x);
    }

    width: 64 + root.divider
    Accessible.role: Accessible.Button
    Accessible.name: root.name
    Accessible.description: root.isRunning ? "running" : ""
    Accessible.onPressAction: root.activated(root.path, root.anchor())

    Rectangle {
        visible: root.isFirstRunning
        x: 8
        y: 14
        width: 1
        height: root.height - 28
        color: root.ink
        opacity: 0.25
    }

    Image {
        id: picture

        x: root.divider + 3
        y: 7
        width: 58
        height: 58
        source: root.icon
        sourceSize.width: picture.width
        sourceSize.height: picture.height
        asynchronous: true
        opacity: mouse.pressed ? 0.7 : 1
        Accessible.ignored: true
    }

    Rectangle {
        visible: root.isRunning
        anchors.horizontalCenter: picture.horizontalCenter
        y: root.height - 10
        width: 4
        height: 4
        radius: 2
        color: root.ink
    }

    MouseArea {
        id: mouse

        anchors.fill: picture
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        hoverEnabled: true
        onEntered: root.hoveredChanged(root, root.anchor())
        onExited: root.hoveredChanged(null, 0)
        onClicked: event => {
            root.hoveredChanged(null, 0);
            if (event.button === Qt.RightButton)
                root.menuRequested(root, root.anchor());
            else
                root.activated(root.path, root.anchor());
        }
    }
}
