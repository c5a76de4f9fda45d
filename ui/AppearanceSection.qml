import QtQuick
import Nestlet.Companion

/// How a folder looks: its symbol or picture, its colour and its grid, side by side as far as there is
/// room.
Item {
    id: root

    required property FolderDetailModel folder
    /// Null: the system has none.
    property SystemPanels panels: null
    /// A picture is to be chosen. Who chooses it outlives this section: the user may go elsewhere
    /// meanwhile.
    signal pickImageRequested

    function openColorPanel() {
        if (systemColors.isAvailable)
            systemColors.open(root.folder.accentColorHex);
        else
            ownColors.show();
    }

    /// The section has been scrolled in a viewport.
    function follow(viewport: Item) {
        ownColors.closeUnlessIn(viewport);
    }

    implicitHeight: content.implicitHeight

    // A panel belongs to the folder it was opened for.
    Connections {
        target: root.folder
        function onFolderIDChanged() {
            systemColors.stop();
            ownColors.close();
        }
    }

    ColorPanelObserver {
        id: systemColors
        panels: root.panels
        onChanged: hex => root.folder.setAccentColor(hex)
    }

    ColorPanelLoader {
        id: ownColors
        hex: root.folder.accentColorHex
        swatch: colors.customSwatch
        onChanged: hex => root.folder.setAccentColor(hex)
    }

    Flow {
        id: content
        width: root.width
        spacing: Theme.contentInset

        AppearanceGroup {
            title: qsTr("Symbol")

            SymbolPicker {
                objectName: "symbolPicker"
                anchors.left: parent.left
                selectedSymbol: root.folder.iconSymbol
                hasCustomIcon: root.folder.hasCustomIcon
                onChanged: symbol => root.folder.setIconSymbol(symbol)
                onPickImageRequested: root.pickImageRequested()
            }
        }

        AppearanceGroup {
            title: qsTr("Color")

            AccentColorPicker {
                id: colors
                objectName: "colorPicker"
                anchors.left: parent.left
                selectedHex: root.folder.accentColorHex
                onChanged: hex => root.folder.setAccentColor(hex)
                onCustomColorRequested: root.openColorPanel()
            }
        }

        AppearanceGroup {
            title: qsTr("Grid Size")

            CompanionGridPicker {
                objectName: "gridPicker"
                anchors.left: parent.left
                selected: root.folder.gridColumns
                onChanged: columns => root.folder.setGridColumns(columns)
            }
        }
    }
}
