import QtQuick
import Nestlet.Companion

/// Knows when the items that a view shows find their places anew because rows came, went or moved, and
/// not because the window or the folder became another.
Item {
    id: root

    required property ItemListModel items
    required property GridView view
    required property string folderID
    /// How many times it has happened, and whether it is just happening.
    property int count: 0
    property bool isGoingOn: false

    function begin() {
        ++root.count;
        root.isGoingOn = true;
        Qt.callLater(root.end);
    }
    function end() {
        root.view.forceLayout();
        root.isGoingOn = false;
    }

    onFolderIDChanged: root.isGoingOn = false

    Connections {
        target: root.items // qmllint disable incompatible-type
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
