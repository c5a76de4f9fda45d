import QtQuick
import Nestlet.Companion

/// How many items a folder has, and the items.
Column {
    id: root

    required property FolderDetailModel folder
    required property DropReceiver receiver
    /// The visible stretch of the section, in its own coordinates.
    required property real viewportTop
    required property real viewportHeight
    /// Whether files hover over something around the items from which they would end up among them.
    property bool isSurroundingTargeted: false
    readonly property alias isAwaitingDrop: grid.isAwaitingDrop
    signal addAppsRequested
    /// A stretch of the section that the keyboard has reached.
    signal revealRequested(top: real, bottom: real)

    spacing: 8

    Item {
        width: parent.width
        height: 24

        CompanionText {
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            text: root.folder.itemCount.toLocaleString(Qt.locale(), "f", 0)
            font: Theme.captionMedium
            color: Theme.tertiaryText
            Accessible.ignored: false
            Accessible.role: Accessible.StaticText
            Accessible.name: qsTr("%Ln item(s)", "", root.folder.itemCount)
        }

        PushButton {
            id: addAppsButton
            objectName: "addAppsButton"
            anchors.right: parent.right
            visible: !root.folder.isLocked
            text: qsTr("Add Apps")
            symbol: "plus"
            onClicked: root.addAppsRequested()
        }
    }

    FolderItemsGrid {
        id: grid
        width: parent.width
        folderID: root.folder.folderID
        items: root.folder.items
        itemCount: root.folder.itemCount
        isLocked: root.folder.isLocked
        receiver: root.receiver
        isSurroundingTargeted: root.isSurroundingTargeted
        viewportTop: root.viewportTop - y
        viewportHeight: root.viewportHeight
        onRemoveRequested: itemID => root.folder.removeItem(itemID)
        onMoveRequested: (itemID, index) => root.folder.moveItem(itemID, index)
        onEmptied: {
            if (addAppsButton.visible)
                addAppsButton.forceActiveFocus(Qt.OtherFocusReason);
        }
        onRevealRequested: (top, bottom) => root.revealRequested(grid.y + top, grid.y + bottom)
    }
}
