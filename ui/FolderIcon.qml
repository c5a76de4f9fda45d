import QtQuick
import Nestlet.Companion

/// A folder's icon as its Dock app has it: on a tinted ground the custom picture, else the symbol, else
/// a grid of its items' icons, else a folder.
Rectangle {
    id: root

    required property string folderID
    required property string accentColorHex
    required property string iconSymbol
    required property string pictureSource
    required property var previewURLs
    required property int previewColumns
    required property real size
    required property color neutralTop
    required property color neutralBottom
    property real emptySymbolOpacity: 1

    readonly property bool isTinted: root.accentColorHex !== ""
    readonly property color tint: root.isTinted ? root.accentColorHex : root.neutralTop
    property bool isPictureBroken: false
    readonly property bool showsPicture: root.pictureSource !== "" && !root.isPictureBroken
    /// Something was chosen for the icon, so that it shows nothing of the items.
    readonly property bool hidesItems: root.showsPicture || root.iconSymbol !== ""
    /// Null while there is none.
    readonly property ItemIconGrid grid: gridLoader.item as ItemIconGrid
    onPictureSourceChanged: root.isPictureBroken = false

    width: root.size
    height: root.size
    antialiasing: true
    Accessible.ignored: true
    gradient: Gradient {
        GradientStop {
            position: 0
            color: root.tint
        }
        GradientStop {
            position: 1
            // 35 % of the way to black
            color: root.isTinted ? Qt.rgba(root.tint.r * 0.65, root.tint.g * 0.65, root.tint.b * 0.65, 1)
                                 : root.neutralBottom
        }
    }

    Symbol {
        anchors.centerIn: parent
        visible: !root.showsPicture && !gridLoader.active
        name: root.iconSymbol !== "" ? root.iconSymbol : "folder.fill"
        size: root.size * 0.5
        color: Theme.onIcon
        opacity: root.iconSymbol !== "" ? 1 : root.emptySymbolOpacity
    }

    Loader {
        id: gridLoader
        anchors.fill: parent
        anchors.margins: root.size * FolderIconMetrics.gridMarginShare
        active: !root.hidesItems && root.previewURLs.length > 0

        sourceComponent: ItemIconGrid {
            folderID: root.folderID
            urls: root.previewURLs
            rows: root.previewColumns
            columns: root.previewColumns
            spacing: root.size * FolderIconMetrics.gridSpacingShare
        }
    }

    Loader {
        anchors.fill: parent
        active: root.showsPicture

        sourceComponent: FolderPicture {
            source: root.pictureSource
            radius: root.radius // as the ground
            onIsBrokenChanged: root.isPictureBroken = isBroken || root.isPictureBroken
        }
    }
}
