import QtQuick
import Qt.labs.platform as Native

/// The menus at the top of a Mac's screen, as far as the system does not supply them.
Native.MenuBar {
    id: root

    /// A dialog is shown, which comes first.
    property bool isBlocked: false
    /// What the keyboard is in.
    property Item focusItem: null
    readonly property TextInput field: root.focusItem as TextInput
    readonly property bool hasSelection: root.field !== null && root.field.selectedText !== ""
    signal newFolderRequested
    signal closeRequested

    Native.Menu {
        title: qsTr("File")

        Native.MenuItem {
            text: qsTr("New Dock Folder")
            shortcut: StandardKey.New
            enabled: !root.isBlocked
            onTriggered: root.newFolderRequested()
        }

        Native.MenuSeparator {}

        Native.MenuItem {
            text: qsTr("Close Window")
            shortcut: StandardKey.Close
            onTriggered: root.closeRequested()
        }
    }

    Native.Menu {
        title: qsTr("Edit")

        Native.MenuItem {
            text: qsTr("Undo")
            shortcut: StandardKey.Undo
            enabled: root.field !== null && root.field.canUndo
            onTriggered: root.field.undo()
        }

        Native.MenuItem {
            text: qsTr("Redo")
            shortcut: StandardKey.Redo
            enabled: root.field !== null && root.field.canRedo
            onTriggered: root.field.redo()
        }

        Native.MenuSeparator {}

        Native.MenuItem {
            text: qsTr("Cut")
            shortcut: StandardKey.Cut
            enabled: root.hasSelection
            onTriggered: root.field.cut()
        }

        Native.MenuItem {
            text: qsTr("Copy")
            shortcut: StandardKey.Copy
            enabled: root.hasSelection
            onTriggered: root.field.copy()
        }

        Native.MenuItem {
            text: qsTr("Paste")
            shortcut: StandardKey.Paste
            enabled: root.field !== null && root.field.canPaste
            onTriggered: root.field.paste()
        }

        Native.MenuItem {
            text: qsTr("Select All")
            shortcut: StandardKey.SelectAll
            enabled: root.field !== null && root.field.length > 0
            onTriggered: root.field.selectAll()
        }
    }

    Native.Menu {
        title: qsTr("Window")

        Native.MenuItem {
            text: qsTr("Minimize")
            shortcut: "Ctrl+M" // which is Command-M
            onTriggered: root.window.showMinimized()
        }

        Native.MenuItem {
            text: qsTr("Zoom")
            onTriggered: root.window.visibility === Window.Maximized ? root.window.showNormal() : root.window.showMaximized()
        }
    }
}
