import Nestlet.Companion

/// What can be done with a folder.
CompanionMenu {
    id: root

    required property FolderDetailModel folder
    signal removeRequested

    CompanionMenuItem {
        text: qsTr("Reveal in Finder")
        symbol: "finder"
        enabled: root.folder.isInstalled
        onTriggered: root.folder.revealInFinder()
    }
    CompanionMenuSeparator {}
    CompanionMenuItem {
        text: qsTr("Remove Folder")
        symbol: "trash"
        isDestructive: true
        enabled: !root.folder.isLocked
        onTriggered: root.removeRequested()
    }
}
