import QtQuick
import Nestlet.Companion

/// A row of the sidebar in its list. It is where it belongs at once; what is seen of it slides there.
CompanionFolderRow {
    id: root

    /// Whether rows find other places just now, and how much of their way is before those that slide.
    required property bool isRearranging
    required property real slideRest
    /// How far from its place it began to slide.
    property real slideOffset: 0
    // Where it was when that began, and as which folder's row: none when it was not there.
    property real formerY: 0
    property string formerID

    function rememberPlace() {
        if (root.isPooled)
            return;
        root.slideOffset *= root.slideRest;
        root.formerY = root.y;
        root.formerID = root.folderID;
    }
    function follow() {
        root.slideOffset = root.isRearranging && root.formerID === root.folderID
                ? root.slideOffset + root.formerY - root.y : 0;
        root.formerY = root.y;
    }

    shift: Math.round(root.slideOffset * root.slideRest)
    onYChanged: root.follow()
    onIsPooledChanged: root.formerID = ""

    Connections {
        target: root.ListView.view
        function onSlideBegun() {
            root.rememberPlace();
        }
    }
}
