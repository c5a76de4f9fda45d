pragma ComponentBehavior: Bound

import QtQuick
import Nestlet.Companion

/// The items of a folder as a grid of cells in a rounded container. As tall as all its rows, but only
/// the cells in the part that `viewportTop` and `viewportHeight` give are made.
Item {
    id: root

    required property string folderID
    required property ItemListModel items
    /// By which the view is placed. Not by its own count, which it only brings up to date on the way.
    required property int itemCount
    required property bool isLocked
    required property DropReceiver receiver
    /// The visible stretch of the grid, in its own coordinates.
    required property real viewportTop
    required property real viewportHeight
    /// Whether files hover over something around the grid from which they would end up in it.
    property bool isSurroundingTargeted: false
    property alias draggedItemID: drag.itemID
    /// Over which files were last; null also when it is gone.
    property ItemDropTarget targetedCell: null
    readonly property bool isDropTargeted: dropTarget.isTargeted || (root.targetedCell?.isTargeted ?? false)
                                           || root.isSurroundingTargeted
    /// Whether something hovers over the window that may end up here.
    readonly property bool isAwaitingDrop: root.isDropTargeted || root.draggedItemID !== ""
    readonly property bool isEmpty: root.itemCount === 0
    signal removeRequested(itemID: string)
    signal moveRequested(itemID: string, index: int)
    /// The last item went while the focus was here.
    signal emptied
    /// A stretch of the grid that the keyboard has reached.
    signal revealRequested(top: real, bottom: real)

    readonly property int spacing: 10
    readonly property int inset: 10
    readonly property int leastColumnWidth: 90
    readonly property int columns: Math.max(1, Math.floor((root.width - 2 * root.inset + root.spacing)
                                                          / (root.leastColumnWidth + root.spacing)))
    readonly property int rowHeight: 92 + root.spacing

    readonly property int rowsHeight: Math.ceil(root.itemCount / root.columns) * root.rowHeight

    implicitHeight: root.isEmpty ? emptyState.height : root.rowsHeight - root.spacing + 2 * root.inset

    function goTo(target: int, isMoving: bool) {
        if (isMoving)
            root.moveTo(grid.currentIndex, target);
        grid.currentIndex = target;
        root.showCurrent();
    }
    function moveTo(index: int, target: int) {
        if (!root.isLocked && target !== index)
            root.moveRequested(root.items.itemIDAt(index), target);
    }
    function showCurrent() {
        const top = root.inset + Math.floor(grid.currentIndex / root.columns) * root.rowHeight;
        root.revealRequested(top - root.inset, top + root.rowHeight);
    }
    function removeCurrent() {
        if (!root.isLocked && grid.currentIndex >= 0)
            root.removeRequested(root.items.itemIDAt(grid.currentIndex));
    }

    RowRearrangement {
        id: rearranging
        rows: root.items
        folderID: root.folderID
        onPlacing: grid.forceLayout()
    }

    FolderItemDrag {
        id: drag
    }

    OutlinedRectangle {
        anchors.fill: parent
        radius: Theme.containerRadius
        color: root.isDropTargeted ? Theme.faded(Theme.accent, root.isEmpty ? 0.08 : 0.06)
                                   : Theme.faded(Theme.quaternary, 0.4)
        border.color: root.isDropTargeted ? Theme.faded(Theme.accent, 0.5) : "transparent"

        Behavior on color {
            ColorAnimation {
                duration: Theme.hoverDuration
                easing.type: Easing.OutQuad
            }
        }
    }

    FileDropTarget {
        id: dropTarget
        anchors.fill: parent
        enabled: !root.isLocked
        folderID: root.folderID
        receiver: root.receiver
    }

    EmptyItems {
        id: emptyState
        objectName: "emptyState"
        width: parent.width
        visible: root.isEmpty
        isDropTargeted: root.isDropTargeted
    }

    GridView {
        id: grid
        objectName: "itemGrid"
        anchors.left: parent.left
        anchors.leftMargin: root.inset
        y: root.inset + Math.max(0, Math.min(root.viewportTop - root.inset, root.rowsHeight - height))
        width: root.columns * cellWidth
        height: Math.min(root.viewportHeight, root.rowsHeight)
        contentY: y - root.inset
        cellWidth: Math.floor((root.width - 2 * root.inset + root.spacing) / root.columns)
        cellHeight: root.rowHeight
        cacheBuffer: 0
        interactive: false
        highlightFollowsCurrentItem: false
        keyNavigationEnabled: false
        activeFocusOnTab: !root.isEmpty || grid.activeFocus // the focused one has to stay one
        model: root.items
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Items")

        readonly property int linesPerPage: Math.max(1, Math.floor(root.viewportHeight / cellHeight))

        onCountChanged: {
            if (grid.count === 0 && grid.activeFocus)
                root.emptied();
        }
        onActiveFocusChanged: {
            if (activeFocus && grid.currentIndex < 0)
                grid.currentIndex = 0;
        }
        Keys.onPressed: event => {
            const target = GridKeys.cellAfterKey(event.key, grid.currentIndex, grid.count, root.columns, grid.linesPerPage, grid.LayoutMirroring.enabled);
            if (target >= 0)
                root.goTo(target, (event.modifiers & Qt.AltModifier) !== 0);
            else if (event.key !== Qt.Key_Delete && event.key !== Qt.Key_Backspace)
                return;
            else if (!event.isAutoRepeat) // one item, however long the key is held
                root.removeCurrent();
            event.accepted = true;
        }

        VisualOrder {
            parent: grid
            container: grid.contentItem
        }

        // Cells that went out of view are not kept for others: they would stay in the accessible tree.
        delegate: FolderItemSlot {
            id: slot

            width: grid.cellWidth
            height: grid.cellHeight
            spacing: root.spacing
            isLocked: root.isLocked
            draggedItemID: root.draggedItemID
            showsFocus: InputModality.isKeyboard
            rearrangement: rearranging
            onFocused: grid.currentIndex = slot.index
            onPressed: {
                grid.currentIndex = slot.index;
                grid.forceActiveFocus(Qt.MouseFocusReason);
            }
            onRemoveRequested: root.removeRequested(slot.itemID)
            onMoveRequested: step => root.moveTo(slot.index, Math.max(0, Math.min(grid.count - 1, slot.index + step)))
            onDragStarted: cell => drag.begin(slot.itemID, cell)

            ItemDropTarget {
                id: cellTarget
                anchors.fill: parent
                anchors.rightMargin: root.spacing
                anchors.bottomMargin: root.spacing
                enabled: !root.isLocked
                folderID: root.folderID
                receiver: root.receiver
                targetIndex: slot.index
                itemID: slot.itemID
                draggedItemID: root.draggedItemID
                onIsTargetedChanged: {
                    if (cellTarget.isTargeted)
                        root.targetedCell = cellTarget;
                }
                onMoveRequested: (itemID, index) => root.moveRequested(itemID, index)
                onItemDropped: root.draggedItemID = ""
            }
        }
    }
}
