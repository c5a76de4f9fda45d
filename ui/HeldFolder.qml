import QtQuick

/// The picture of a sidebar row that the pointer holds. It stays as it was when it was taken, as the row
/// may be used for another folder once it is out of view.
Item {
    id: root

    readonly property alias name: nameText.text

    function show(row: CompanionFolderRow) {
        nameText.text = row.name;
        thumbnail.folderID = row.folderID;
        thumbnail.accentColorHex = row.accentColorHex;
        thumbnail.iconSymbol = row.iconSymbol;
        thumbnail.pictureSource = row.pictureSource;
        thumbnail.previewURLs = row.previewURLs;
        thumbnail.previewColumns = row.previewColumns;
    }

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
        size: 36
        radius: 8
        folderID: ""
        accentColorHex: ""
        iconSymbol: ""
        pictureSource: ""
        previewURLs: []
        previewColumns: 2
        isLocked: false
    }

    CompanionText {
        id: nameText
        anchors.left: thumbnail.right
        anchors.leftMargin: 8
        anchors.right: parent.right
        anchors.rightMargin: Theme.selectionInset + 4
        anchors.verticalCenter: parent.verticalCenter
        font: Theme.headline
    }
}
