import Nestlet.Companion

/// What can be done with all folders.
CompanionMenu {
    id: root

    required property CompanionViewModel model
    signal resetRequested

    CompanionMenuItem {
        text: qsTr("Add All to Dock")
        enabled: root.model.addAllTotal === 0
        symbol: "square.stack.3d.up"
        onTriggered: root.model.addAllToDock()
    }
    CompanionMenuSeparator {}
    CompanionMenuItem {
        text: qsTr("Reset Companion…")
        symbol: "arrow.counterclockwise"
        isDestructive: true
        onTriggered: root.resetRequested()
    }
}
