import QtQuick
import Nestlet.Companion

/// One cell of the colour picker.
PickerCell {
    id: root

    required property string selectedHex
    property real cornerRadius: Theme.swatchRadius
    readonly property int kind: AppearanceOptions.colorKind(root.index)
    /// Empty: a neutral ground.
    readonly property string hex: {
        if (root.kind === AppearanceOptions.Palette)
            return AppearanceOptions.colorValue(root.index);
        return root.kind === AppearanceOptions.Custom && root.isSelected ? AppearanceOptions.plainHex(root.selectedHex) : "";
    }
    readonly property string symbol: {
        if (root.kind === AppearanceOptions.Custom)
            return root.isSelected ? "eyedropper" : "paintbrush";
        if (root.kind === AppearanceOptions.Automatic)
            return "a.circle";
        return root.isSelected ? "checkmark" : "";
    }
    readonly property bool isOnColor: root.hex !== ""
    // A selected swatch draws back from its outline.
    property real inset: root.isSelected ? 4 : 0

    text: AppearanceOptions.colorName(root.index)
    showsToolTip: true
    Accessible.description: root.kind === AppearanceOptions.Custom ? root.hex : "" // which one it is

    Behavior on inset {
        NumberAnimation {
            duration: Theme.changeDuration
            easing.type: Easing.OutQuad
        }
    }

    Item {
        anchors.fill: parent

        Rectangle {
            anchors.fill: parent
            radius: root.cornerRadius
            color: "transparent"
            border.width: 2
            border.color: Theme.accent
            visible: root.inset > 0
            opacity: root.inset / 4
        }

        Rectangle {
            anchors.fill: parent
            anchors.margins: root.inset
            radius: root.cornerRadius - root.inset
            color: root.isOnColor ? root.hex : Theme.faded(Theme.secondary, root.hovered ? 0.16 : 0.1)

            // Over the colour: a border of the same rectangle would lie on what is behind it.
            Rectangle {
                anchors.fill: parent
                radius: parent.radius
                color: Theme.faded(Theme.primary, root.down ? 0.2 : root.hovered && root.isOnColor ? 0.08 : 0)
                border.width: root.isOnColor ? 1 : 0
                border.color: Theme.separator
            }
        }
    }

    Rectangle {
        anchors.centerIn: parent
        width: 18
        height: 18
        radius: 9
        visible: root.isOnColor && root.symbol !== ""
        color: Theme.faded("#000000", root.isOnColor ? AppearanceOptions.groundOpacity(root.hex) : 0)
    }

    Symbol {
        anchors.centerIn: parent
        name: root.symbol
        size: root.kind === AppearanceOptions.Palette ? 12 : 14
        weight: root.kind === AppearanceOptions.Palette ? Font.Black : Font.Normal // as bold as one on a Mac
        color: root.isOnColor ? Theme.accentText : Theme.secondary
    }
}
