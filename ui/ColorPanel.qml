import QtQuick
import QtQuick.Templates as T
import Nestlet.Companion

/// A colour panel, for where the system has none: beside the item it belongs to, in the window, which
/// stays usable. Every change is told at once.
T.Dialog {
    id: root

    /// Empty: none.
    property string hex
    readonly property real pointerSize: 8
    readonly property real distance: root.pointerSize + 3
    property bool isBelow: true
    signal changed(hex: string)

    function hasRoomBelow(): bool {
        const bottom = root.parent.mapToItem(null, 0, root.parent.height).y;
        return bottom + root.distance + root.height + root.margins <= root.parent.Window.height;
    }

    title: qsTr("Colors") // said, not shown
    width: 232
    height: content.implicitHeight + 2 * root.padding
    x: root.parent ? (root.parent.width - root.width) / 2 : 0
    y: root.isBelow && root.parent ? root.parent.height + root.distance : -root.height - root.distance
    padding: 12
    margins: Theme.rowInset
    modal: false
    focus: true
    // Escape is a key of the content: a popup that closes by it holds back the window's shortcuts.
    closePolicy: T.Popup.CloseOnPressOutsideParent
    onAboutToShow: root.isBelow = root.hasRoomBelow()
    onHexChanged: components.show(root.hex)

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.hoverDuration
            easing.type: Easing.OutQuad
        }
    }
    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.hoverDuration
            easing.type: Easing.OutQuad
        }
    }

    background: PopoverBackground {
        pointerSize: root.pointerSize
        pointerX: (root.parent ? root.parent.width / 2 : 0) - root.x
        isPointerOnTop: root.isBelow
    }

    contentItem: Item { // qmllint disable deferred-property-id
        Keys.onPressed: event => {
            event.accepted = event.matches(StandardKey.Cancel);
            if (event.accepted)
                root.close();
        }

        ColorComponents {
            id: components
            onEdited: hex => root.changed(hex)
            Component.onCompleted: components.show(root.hex)
        }

        Column {
            id: content
            anchors.fill: parent
            spacing: 12

            SaturationSquare {
                width: parent.width
                height: 140
                components: components
            }

            HueStrip {
                width: parent.width
                components: components
            }

            Item {
                width: parent.width
                height: 24

                Rectangle {
                    id: preview
                    anchors.left: parent.left
                    width: 24
                    height: 24
                    radius: Theme.buttonRadius
                    color: components.hex

                    Rectangle {
                        anchors.fill: parent
                        radius: parent.radius
                        color: "transparent"
                        border.width: 1
                        border.color: Theme.separator
                    }
                }

                HexField {
                    anchors.left: preview.right
                    anchors.leftMargin: Theme.rowInset
                    anchors.right: parent.right
                    components: components
                }
            }
        }
    }
}
