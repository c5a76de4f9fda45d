import QtQuick
import Nestlet.Companion

/// The place of one item in the grid, with its cell.
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
    required property RowRearrangement rearrangement
    signal focused
    signal pressed
    signal removeRequested
    signal moveRequested(step: int)
    signal dragStarted(cell: FolderItemGridCell)

    opacity: slide.presence
    onActiveFocusChanged: {
        if (root.activeFocus)
            root.focused();
    }

    RowSlide {
        id: slide
        rearrangement: root.rearrangement
        row: root
        rowID: root.itemID
    }

    FolderItemGridCell {
        readonly property real leading: Math.round((root.width - root.spacing - width) / 2)

        x: root.LayoutMirroring.enabled ? root.width - width - leading : leading
        focus: true
        shift: slide.shift
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
