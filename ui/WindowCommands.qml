import QtQuick

/// The commands of the window that have keys: in the menus at the top of a Mac's screen, and as a
/// shortcut elsewhere.
Item {
    id: root

    /// A dialog is shown, which comes first. Dialogs keep the keys of a shortcut from it, but not those
    /// of a menu.
    required property bool isBlocked
    signal newFolderRequested
    signal closeRequested

    Shortcut {
        sequence: "Ctrl+N"
        enabled: !menuBar.active // which has it, as Command-N
        onActivated: root.newFolderRequested()
    }

    Loader {
        id: menuBar
        active: Qt.platform.os === "osx"
        source: "MacMenuBar.qml"
    }

    Binding {
        target: menuBar.item
        property: "isBlocked"
        value: root.isBlocked
        when: menuBar.item !== null
    }

    Connections {
        target: menuBar.item
        ignoreUnknownSignals: true
        function onNewFolderRequested() {
            root.newFolderRequested();
        }
        function onCloseRequested() {
            root.closeRequested();
        }
    }
}
