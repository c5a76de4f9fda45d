pragma ComponentBehavior: Bound

import QtQuick
import Nestlet.Companion

/// Chooses a folder's colour: one of the palette, one of its own, or none. It only shows what it is
/// given.
PickerGroup {
    id: root

    /// Empty: none.
    required property string selectedHex
    property real size: 28
    property real cornerRadius: Theme.swatchRadius
    property alias swatchColumns: root.columns
    /// Where the colour panel belongs.
    readonly property Item customSwatch: root.cellAt(root.count - 2)
    signal changed(hex: string)
    signal customColorRequested

    name: qsTr("Color")
    count: AppearanceOptions.colorCellCount
    columns: 5
    selectedCell: AppearanceOptions.colorCell(root.selectedHex)
    ringRadius: root.cornerRadius
    delegate: ColorSwatch {
        group: root
        selectedHex: root.selectedHex
        width: root.size
        height: root.size
        cornerRadius: root.cornerRadius
        onClicked: {
            if (kind === AppearanceOptions.Custom)
                root.customColorRequested();
            else
                root.changed(AppearanceOptions.colorValue(index));
        }
    }
}
