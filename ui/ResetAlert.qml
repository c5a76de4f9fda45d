import Nestlet.Companion

/// Asks before everything is removed.
AlertPanel {
    id: root

    required property CompanionViewModel model

    objectName: "resetDialog"
    title: qsTr("Reset Companion?")
    message: qsTr("This removes all Companion folders, their Dock icons, and Companion data. The free Nestlet folder is unaffected. This cannot be undone.")
    actionText: qsTr("Reset Everything")
    dismissText: qsTr("Cancel")
    visible: true
    onActed: root.model.resetEverything()
}
