import QtQuick
import Nestlet.Companion

/// One item of a folder: its icon over its name, with a button that takes it out while the pointer is
/// there.
Item {
    id: root

    required property string itemID
    required property string name
    required property string url
    required property string path
    required property bool isLocked
    required property bool isDragging
    required property bool showsFocusRing
    /// How far from its place the cell is seen, while it slides there.
    property point shift: Qt.point(0, 0)
    readonly property bool isHovered: hover.hovered
    /// Whether the pointer still holds the cell that it began to drag.
    readonly property bool isHeld: drag.active
    /// Where in the cell that is.
    readonly property point holdPlace: drag.centroid.pressPosition
    /// What goes with the pointer when the cell is dragged.
    readonly property alias picture: content
    signal removeRequested
    signal pressed
    /// By how many places, as assistive programs ask for it.
    signal moveRequested(step: int)
    signal dragStarted

    width: 96
    height: 92
    opacity: root.isDragging ? 0.35 : 1
    scale: root.isDragging ? 0.95 : 1
    Accessible.role: Accessible.ListItem
    Accessible.name: root.name
    Accessible.description: root.path
    Accessible.focusable: true
    Accessible.focused: root.activeFocus
    Accessible.onPressAction: root.pressed()
    Accessible.onIncreaseAction: root.moveRequested(1)
    Accessible.onDecreaseAction: root.moveRequested(-1)

    HelpTag.text: root.name
    HelpTag.isShown: root.isHovered && nameText.truncated && !removeButton.isHovered && !root.isDragging

    Behavior on opacity {
        NumberAnimation {
            duration: Theme.hoverDuration
            easing.type: Easing.OutQuad
        }
    }
    Behavior on scale {
        NumberAnimation {
            duration: Theme.hoverDuration
            easing.type: Easing.OutQuad
        }
    }

    // Only what is seen slides: pointers and assistive programs find the cell at its place.
    Item {
        x: root.shift.x
        y: root.shift.y
        width: root.width
        height: root.height

        Rectangle {
            anchors.fill: parent
            radius: Theme.cellRadius
            color: Theme.faded(Theme.primary, 0.06)
            opacity: root.isHovered ? 1 : 0

            Behavior on opacity {
                NumberAnimation {
                    duration: Theme.hoverDuration
                    easing.type: Easing.OutQuad
                }
            }
        }

        FocusRing {
            visible: root.showsFocusRing
            controlRadius: Theme.cellRadius
        }

        Item {
            id: content
            anchors.fill: parent

            FileIcon {
                id: icon
                anchors.horizontalCenter: parent.horizontalCenter
                y: 6
                url: root.url
                size: 56
                isShadowed: true
            }

            CompanionText {
                id: nameText
                anchors.horizontalCenter: parent.horizontalCenter
                anchors.top: icon.bottom
                anchors.topMargin: 6
                width: Math.min(implicitWidth, 88)
                text: root.name
                font: Theme.subheadline
                elide: Text.ElideMiddle
                horizontalAlignment: Text.AlignHCenter
            }
        }

        RemoveButton {
            id: removeButton
            anchors.top: parent.top
            anchors.right: parent.right
            visible: !root.isLocked
            isShown: (root.isHovered || root.showsFocusRing) && !root.isDragging
            text: qsTr("Remove %1").arg(root.name)
            onClicked: root.removeRequested()
        }
    }

    HoverHandler {
        id: hover
    }

    TapHandler {
        onTapped: root.pressed()
    }

    DragHandler {
        id: drag
        enabled: !root.isLocked
        target: null
        dragThreshold: 5
        acceptedButtons: Qt.LeftButton
        onActiveChanged: {
            if (!active)
                return;
            root.pressed();
            root.dragStarted();
        }
    }
}
