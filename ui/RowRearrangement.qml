import QtQuick
import Nestlet.Companion

/// Knows when what a view shows finds its places anew because rows came, went or moved, and not because
/// the window, or what the rows are of, became another. Leads all rows that slide there.
Item {
    id: root

    required property var rows // an ItemListModel or a FolderListModel
    /// Whose rows they are.
    property string folderID
    /// Whether it is just happening.
    property bool isGoingOn: false
    /// How much of their way is before the rows that slide, as a share of it.
    property real rest: 0
    /// The rows are about to change, still at their former places.
    signal begun
    /// The view has to lay them out now.
    signal placing

    function begin() {
        if (root.isGoingOn) // many rows may go their ways at once
            return;
        root.isGoingOn = true;
        root.begun();
        sliding.stop();
        root.rest = Theme.changeDuration > 0 ? 1 : 0;
        Qt.callLater(root.end);
    }
    function end() {
        root.placing();
        root.isGoingOn = false;
        sliding.start();
    }

    onFolderIDChanged: {
        root.isGoingOn = false;
        root.rest = 0;
    }

    NumberAnimation {
        id: sliding
        target: root
        property: "rest"
        to: 0
        duration: Theme.changeDuration
        easing.type: Easing.OutQuad
    }

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
