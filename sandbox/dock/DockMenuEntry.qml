import QtQuick

/// One line of a tile's menu.
Rectangle {
    id: root

    required property int index
    required property string modelData
    required property bool dark
    required property string fontFamily

    signal chosen(int index)

    height: 26
    radius: 5
    color: mouse.containsMouse ? (root.dark ? "#0a84ff" : "#007aff") : "transparent"
    Accessible.role: Accessible.MenuItem
    Accessible.name: root.modelData
    Accessible.onPressAction: root.chosen(root.index)

    Text {
        anchors.verticalCenter: parent.verticalCenter
        x: 10
        text: root.modelData
        color: mouse.containsMouse || root.dark ? "#f2ffffff" : "#d9000000"
        font.family: root.fontFamily
        font.pixelSize: 13
        Accessible.ignored: true
    }

    MouseArea {
        id: mouse

        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.chosen(root.index)
    }
}
