import QtQuick
import Nestlet.Companion

/// Knows when what a view shows finds its places anew because rows came, went or moved, and not because
/// the window, or what the rows are of, became another.
Item {
    id: root

    required property var rows // an ItemListModel or a FolderListModel
    /// Whose rows they are.
    property string folderID
    /// How many times it has happened, and whether it is just happening.
    property int count: 0
    property bool isGoingOn: false
    /// The rows are about to change, still at their former places.
    signal begun
    /// The view has to lay them out now.
    signal placing

    function begin() {
        ++root.count;
        if (root.isGoingOn) // many rows may go their ways at once
            return;
        root.isGoingOn = true;
        root.begun();
        Qt.callLater(root.end);
    }
    function end() {
        root.placing();
        root.isGoingOn = false;
    }

    onFolderIDChanged: root.isGoingOn = false

    Connections {
        target: root.rows // qmllint disable incompatible-type
        function onRowsAboutToBeInserted() {
            root.begin();
        }
        function onRowsAboutToBeRemoved() {
            root.begin();
        }
        function onRowsAboutToBeMoved() {
            root.begin();
        }
    }
}
