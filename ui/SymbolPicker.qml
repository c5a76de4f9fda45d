pragma ComponentBehavior: Bound

import QtQuick
import Nestlet.Companion

/// Chooses a folder's symbol or its custom image. It only shows what it is given.
PickerGroup {
    id: root

    /// Empty: none.
    required property string selectedSymbol
    required property bool hasCustomIcon
    property real size: 32
    signal changed(symbol: string)
    signal pickImageRequested

    name: qsTr("Symbol")
    count: AppearanceOptions.symbolCellCount
    columns: 6
    selectedCell: AppearanceOptions.symbolCell(root.selectedSymbol, root.hasCustomIcon)
    delegate: PickerCell {
        id: cell

        readonly property int kind: AppearanceOptions.symbolKind(cell.index)
        readonly property color selectedColor: cell.kind === AppearanceOptions.NoSymbol ? Theme.primary : Theme.accent

        group: root
        width: root.size
        height: root.size
        text: AppearanceOptions.symbolName(cell.index)
        showsToolTip: true
        onClicked: {
            if (cell.kind === AppearanceOptions.CustomImage)
                root.pickImageRequested();
            else
                root.changed(AppearanceOptions.symbolValue(cell.index));
        }

        OutlinedRectangle {
            anchors.fill: parent
            radius: Theme.swatchRadius
            color: cell.isSelected ? Theme.faded(Theme.accent, 0.15) : Theme.faded(Theme.secondary, cell.down ? 0.22 : cell.hovered ? 0.16 : 0.1)
            border.color: Theme.faded(Theme.accent, cell.isSelected ? 1 : 0)

            Behavior on color {
                ColorAnimation {
                    duration: Theme.changeDuration
                    easing.type: Easing.OutQuad
                }
            }
            Behavior on border.color {
                ColorAnimation {
                    duration: Theme.changeDuration
                    easing.type: Easing.OutQuad
                }
            }
        }

        Symbol {
            anchors.centerIn: parent
            name: AppearanceOptions.symbolShown(cell.index)
            size: root.size / 2
            color: cell.isSelected ? cell.selectedColor : Theme.secondary

            Behavior on color {
                ColorAnimation {
                    duration: Theme.changeDuration
                    easing.type: Easing.OutQuad
                }
            }
        }
    }
}
