import Nestlet.Companion

/// Asks before a folder is removed.
AlertPanel {
    id: root

    required property FolderDetailModel folder

    objectName: "removeDialog"
    title: qsTr("Remove Folder")
    message: qsTr("The Dock icon will also be removed.")
    actionText: qsTr("Remove Folder")
    dismissText: qsTr("Cancel")
    visible: true
    onActed: root.folder.removeFolder()
}
