import QtQuick
import Nestlet.Companion

/// The place of one item in the grid. It is where the item belongs at once, so that a drag meets no
/// item on its way; what is seen of it slides there.
FocusScope {
    id: root

    required property int index
    required property string itemID
    required property string name
    required property string url
    required property string path
    required property bool isLocked
    required property string draggedItemID
    required property bool showsFocus
    /// Between this slot's cell and the next.
    required property real spacing
    /// How many times rows have come, gone or moved, and whether the slots are finding their places
    /// after that just now.
    required property int rearrangement
    required property bool isRearranging
    property int firstRearrangement: 0
    property real shownX: 0
    property real shownY: 0
    signal focused
    signal pressed
    signal removeRequested
    signal moveRequested(step: int)
    signal dragStarted(cell: FolderItemGridCell)

    // The view may take a slot elsewhere and back before anything is seen of it.
    function follow() {
        slide.stop();
        if (root.shownX === root.x && root.shownY === root.y)
            return;
        if (root.isRearranging && root.rearrangement !== root.firstRearrangement && Theme.changeDuration > 0) {
            slide.start();
        } else {
            root.shownX = root.x;
            root.shownY = root.y;
        }
    }

    onXChanged: root.follow()
    onYChanged: root.follow()
    onActiveFocusChanged: {
        if (root.activeFocus)
            root.focused();
    }
    Component.onCompleted: root.firstRearrangement = root.rearrangement

    ParallelAnimation {
        id: slide

        NumberAnimation {
            target: root
            property: "shownX"
            to: root.x
            duration: Theme.changeDuration
            easing.type: Easing.OutQuad
        }
        NumberAnimation {
            target: root
            property: "shownY"
            to: root.y
            duration: Theme.changeDuration
            easing.type: Easing.OutQuad
        }
    }

    FolderItemGridCell {
        readonly property real leading: Math.round((root.width - root.spacing - width) / 2)

        x: root.LayoutMirroring.enabled ? root.width - width - leading : leading
        focus: true
        shift: Qt.point(Math.round(root.shownX - root.x), Math.round(root.shownY - root.y))
        itemID: root.itemID
        name: root.name
        url: root.url
        path: root.path
        isLocked: root.isLocked
        isDragging: root.itemID === root.draggedItemID
        showsFocusRing: root.showsFocus && activeFocus
        onPressed: root.pressed()
        onRemoveRequested: root.removeRequested()
        onMoveRequested: step => root.moveRequested(step)
        onDragStarted: root.dragStarted(this)
    }
}
