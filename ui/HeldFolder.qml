import QtQuick
import Nestlet.Companion

/// The picture of a sidebar row that the pointer holds. It stays as it was when it was taken, as the row
/// may be used for another folder once it is out of view.
Item {
    id: root

    required property string name
    required property string folderID
    required property string accentColorHex
    required property string iconSymbol
    required property string pictureSource
    required property var previewURLs
    required property int previewColumns
    required property bool isLocked

    objectName: "heldFolder"
    height: Theme.rowHeight
    Accessible.ignored: true

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: Theme.selectionInset
        anchors.rightMargin: Theme.selectionInset
        radius: Theme.buttonRadius
        color: Theme.menu
        border.width: 1
        border.color: Theme.menuBorder
        opacity: 0.9
    }

    SidebarFolderThumbnail {
        id: thumbnail
        anchors.left: parent.left
        anchors.leftMargin: Theme.selectionInset + Theme.rowInset
        anchors.verticalCenter: parent.verticalCenter
        size: FolderIconMetrics.sidebarSize
        radius: FolderIconMetrics.sidebarRadius
        folderID: root.folderID
        accentColorHex: root.accentColorHex
        iconSymbol: root.iconSymbol
        pictureSource: root.pictureSource
        previewURLs: root.previewURLs
        previewColumns: root.previewColumns
        isLocked: root.isLocked
    }

    CompanionText {
        anchors.left: thumbnail.right
        anchors.leftMargin: 8
        anchors.right: parent.right
        anchors.rightMargin: Theme.selectionInset + 4
        anchors.verticalCenter: parent.verticalCenter
        text: root.name
        font: Theme.headline
    }
}
