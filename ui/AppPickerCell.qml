import QtQuick
import Nestlet.Companion

/// One application in the picker: its icon over its name. The grid around it tells where the pointer
/// and the keyboard are. An application that is in the folder already takes part in nothing.
Item {
    id: root

    required property string url
    required property string name
    required property bool isSelected
    required property bool alreadyAdded
    property bool isHovered: false
    property bool hasFocusRing: false
    /// The look follows a choice slowly, and at once when another application comes into the cell.
    property bool isBeingToggled: false
    readonly property color badgeColor: root.alreadyAdded ? Theme.secondary : Theme.blue
    signal toggled

    function toggle() {
        if (root.alreadyAdded) // it stays enabled, so that the keyboard reaches it
            return;
        root.isBeingToggled = true;
        root.toggled();
        root.isBeingToggled = false;
    }
    function covers(position: point): bool {
        return tile.contains(root.mapToItem(tile, position));
    }

    Accessible.role: Accessible.CheckBox
    Accessible.name: root.name
    Accessible.description: root.alreadyAdded ? qsTr("Already added") : ""
    Accessible.checkable: !root.alreadyAdded
    Accessible.readOnly: root.alreadyAdded
    Accessible.checked: root.isSelected
    Accessible.onPressAction: root.toggle()
    Accessible.onToggleAction: root.toggle()

    HelpTag.text: root.name
    HelpTag.isShown: root.isHovered && nameText.truncated

    OutlinedRectangle {
        id: tile
        anchors.horizontalCenter: parent.horizontalCenter
        width: 72
        height: parent.height - 12
        y: 6
        radius: Theme.cellRadius
        color: Theme.faded(Theme.blue, root.isSelected ? 0.12 : 0)
        border.color: Theme.faded(Theme.blue, root.isSelected ? 1 : 0)

        Behavior on color {
            enabled: root.isBeingToggled
            ColorAnimation {
                duration: Theme.changeDuration
                easing.type: Easing.OutQuad
            }
        }
        Behavior on border.color {
            enabled: root.isBeingToggled
            ColorAnimation {
                duration: Theme.changeDuration
                easing.type: Easing.OutQuad
            }
        }
    }

    Rectangle {
        anchors.fill: tile
        radius: Theme.cellRadius
        color: Theme.faded(Theme.primary, 0.06)
        visible: root.isHovered && !root.isSelected && !root.alreadyAdded
    }

    FileIcon {
        id: icon
        anchors.horizontalCenter: tile.horizontalCenter
        anchors.top: tile.top
        anchors.topMargin: 8
        url: root.url
        size: 48
        opacity: root.alreadyAdded ? 0.4 : 1
    }

    CompanionText {
        id: nameText
        anchors.left: tile.left
        anchors.right: tile.right
        anchors.top: icon.bottom
        anchors.leftMargin: 4
        anchors.rightMargin: 4
        anchors.topMargin: 4
        text: root.name
        font: Theme.caption
        color: root.alreadyAdded ? Theme.secondary : Theme.primary
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        maximumLineCount: 2
    }

    Symbol {
        anchors.right: tile.right
        anchors.top: tile.top
        anchors.margins: 4
        name: "checkmark.circle.fill"
        size: 14
        color: root.badgeColor
        opacity: root.isSelected || root.alreadyAdded ? 1 : 0

        Behavior on opacity {
            enabled: root.isBeingToggled
            NumberAnimation {
                duration: Theme.changeDuration
                easing.type: Easing.OutQuad
            }
        }
    }

    FocusRing {
        anchors.fill: tile
        controlRadius: Theme.cellRadius
        visible: root.hasFocusRing
    }
}
