import QtQuick
import QtQuick.Controls.Basic
import Nestlet.Companion

/// The window: the sidebar, the detail of what is selected there, and the dialogs over both.
ApplicationWindow {
    id: root

    required property CompanionViewModel model

    title: qsTr("Nestlet Companion")
    width: 1060
    height: 800
    minimumWidth: 1060
    minimumHeight: 800
    visible: true
    color: Theme.content

    Shortcut {
        sequence: "Ctrl+N" // Command-N on a Mac
        onActivated: root.model.createFolder()
    }

    // The question is about the folder that was shown when it was asked.
    Connections {
        target: root.model
        function onSelectionChanged() {
            removeDialog.close();
        }
    }

    SplitView {
        anchors.fill: parent
        handle: Item {
            implicitWidth: 1
        }

        CompanionSidebar {
            SplitView.preferredWidth: Theme.sidebarWidth
            SplitView.minimumWidth: 180
            SplitView.maximumWidth: 400
            model: root.model
            onResetRequested: resetDialog.open()
        }

        Item {
            SplitView.fillWidth: true

            CompanionFolderDetail {
                anchors.fill: parent
                visible: root.model.detailKind === CompanionViewModel.Folder
                folder: root.model.detail
                onRemoveRequested: removeDialog.open()
            }

            CompanionPlaceholder {
                anchors.fill: parent
                visible: root.model.detailKind === CompanionViewModel.Placeholder
                title: qsTr("Select a Folder")
                description: qsTr("Choose a folder from the sidebar or create one with ⌘N.")
            }

            CompanionPlaceholder {
                anchors.fill: parent
                visible: root.model.detailKind === CompanionViewModel.AppStoreFolder
                title: qsTr("Nestlet")
                description: qsTr("This folder is owned by the App Store version and cannot be edited here.")
            }
        }
    }

    AlertPanel {
        id: resetDialog
        objectName: "resetDialog"
        title: qsTr("Reset Companion?")
        message: qsTr("This removes all Companion folders, their Dock icons, and Companion data. The free Nestlet folder is unaffected. This cannot be undone.")
        actionText: qsTr("Reset Everything")
        dismissText: qsTr("Cancel")
        onActed: root.model.resetEverything()
    }

    AlertPanel {
        id: removeDialog
        objectName: "removeDialog"
        title: qsTr("Remove Folder")
        message: qsTr("The Dock icon will also be removed.")
        actionText: qsTr("Remove Folder")
        dismissText: qsTr("Cancel")
        onActed: root.model.detail.removeFolder()
    }

    AlertPanel {
        id: errorAlert
        objectName: "errorAlert"
        title: qsTr("Companion Error")
        message: root.model.errorMessage
        dismissText: qsTr("OK")
        visible: root.model.errorMessage !== ""
        onClosed: root.model.clearError()
    }
}
