import QtQuick
import Nestlet.Companion

/// Whether a folder is in the Dock, and the button that puts it there.
CompanionCardBackground {
    id: root

    required property FolderDetailModel folder

    height: 72

    CompanionStatusPanel {
        anchors.left: parent.left
        anchors.leftMargin: Theme.cardInset
        anchors.right: dockButton.visible ? dockButton.left : parent.right
        anchors.rightMargin: Theme.cardInset
        anchors.verticalCenter: parent.verticalCenter
        isInstalled: root.folder.isInstalled
        isLocked: root.folder.isLocked
    }

    DockButton {
        id: dockButton
        objectName: "dockButton"
        anchors.right: parent.right
        anchors.rightMargin: Theme.cardInset
        anchors.verticalCenter: parent.verticalCenter
        visible: !root.folder.isLocked
        isInstalled: root.folder.isInstalled
        isBusy: root.folder.isInstalling
        onClicked: root.folder.showInDock()
    }
}
