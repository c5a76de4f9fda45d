pragma ComponentBehavior: Bound

import QtQuick
import Nestlet.Companion

/// Chooses how many columns a folder's panel has. It only shows what it is given.
PickerGroup {
    id: root

    /// 0: automatic.
    required property int selected
    signal changed(columns: int)

    name: qsTr("Grid Size")
    count: AppearanceOptions.gridCellCount
    selectedCell: AppearanceOptions.gridCell(root.selected)
    spacing: 2
    inset: 2
    ringRadius: Theme.buttonRadius - 1
    delegate: PickerCell {
        id: cell

        group: root
        implicitWidth: Math.max(52, label.implicitWidth + 2 * Theme.rowInset)
        implicitHeight: 24
        text: AppearanceOptions.gridName(cell.index)
        onClicked: root.changed(AppearanceOptions.gridValue(cell.index))

        Rectangle {
            anchors.fill: parent
            radius: Theme.buttonRadius - 1
            color: {
                if (cell.isSelected)
                    return Theme.accentFill;
                return Theme.faded(Theme.primary, cell.down ? 0.14 : cell.hovered ? 0.06 : 0);
            }

            Behavior on color {
                ColorAnimation {
                    duration: Theme.changeDuration
                    easing.type: Easing.OutQuad
                }
            }
        }

        CompanionText {
            id: label
            anchors.centerIn: parent
            text: cell.text
            font: cell.isSelected ? Theme.bodyMedium : Theme.body
            color: cell.isSelected ? Theme.accentText : Theme.primary

            Behavior on color {
                ColorAnimation {
                    duration: Theme.changeDuration
                    easing.type: Easing.OutQuad
                }
            }
        }
    }

    Rectangle {
        anchors.fill: parent
        z: -1
        radius: Theme.buttonRadius + 1
        color: Theme.faded(Theme.secondary, 0.1)
    }
}
