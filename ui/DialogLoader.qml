import QtQuick
import QtQuick.Templates as T

/// Makes a dialog when it is wanted, which it is until it is closed.
FileLoader {
    id: root

    /// The dialog's.
    required property string dialogFile
    property bool isWanted: false

    file: root.isWanted ? root.dialogFile : ""

    Connections {
        target: root.item as T.Popup
        function onClosed() {
            root.isWanted = false;
        }
    }
}
