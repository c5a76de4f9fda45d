import QtQuick
import Qt.labs.platform as Native

/// The menus at the top of a Mac's screen, as far as the system does not supply them.
Native.MenuBar {
    id: root

    /// A dialog is shown, which comes first.
    property bool isBlocked: false
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
}
