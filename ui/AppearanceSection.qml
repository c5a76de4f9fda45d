import QtQuick
import Nestlet.Companion

/// How a folder looks: its symbol or picture, its colour and its grid, side by side.
Item {
    id: root

    required property FolderDetailModel folder
    /// Null: the system has none.
    property SystemPanels panels: null

    function openColorPanel() {
        if (systemColors.isAvailable)
            systemColors.open(root.folder.accentColorHex);
        else
            ownColors.show();
    }

    implicitWidth: content.implicitWidth
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

    IconImagePanel {
        id: imagePanel
        panels: root.panels
        onChosen: (url, folderID) => root.folder.loadCustomImage(url, folderID)
    }

    Row {
        id: content
        spacing: Theme.contentInset

        AppearanceGroup {
            title: qsTr("Symbol")

            SymbolPicker {
                objectName: "symbolPicker"
                anchors.left: parent.left
                selectedSymbol: root.folder.iconSymbol
                hasCustomIcon: root.folder.hasCustomIcon
                onChanged: symbol => root.folder.setIconSymbol(symbol)
                onPickImageRequested: imagePanel.open(root.folder.folderID)
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
