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
        autoRepeat: false
        enabled: menuBar.file === "" // which has it, as Command-N
        onActivated: root.newFolderRequested()
    }

    FileLoader {
        id: menuBar
        file: Qt.platform.os === "osx" ? "MacMenuBar.qml" : ""
        properties: ({
                "isBlocked": root.isBlocked,
                "focusItem": root.Window.activeFocusItem,
                "window": root.Window.window
            })
        onMade: menus => {
            menus.newFolderRequested.connect(root.newFolderRequested);
            menus.closeRequested.connect(root.closeRequested);
        }
    }
}
