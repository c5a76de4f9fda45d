pragma ComponentBehavior: Bound

import QtQuick
import Nestlet.Companion

/// The items of a folder as a grid of cells in a rounded container. As tall as all its rows, but only
/// the cells in the part that `viewportTop` and `viewportHeight` give are made.
Item {
    id: root

    required property string folderID
    required property ItemListModel items
    required property bool isLocked
    /// The visible stretch of the grid, in its own coordinates.
    required property real viewportTop
    required property real viewportHeight
    /// Whether files hover over something around the grid from which they would end up in it.
    property bool isSurroundingTargeted: false
    property string draggedItemID
    property int targetedCells: 0
    // Cells slide when their order changes, but not when the window does.
    property bool isRearranging: false
    readonly property bool isDropTargeted: dropTarget.isTargeted || root.targetedCells > 0
                                           || root.isSurroundingTargeted
    readonly property bool isEmpty: grid.count === 0
    signal removeRequested(itemID: string)
    signal moveRequested(itemID: string, index: int)
    signal addRequested(urls: var)
    /// Something dragged is at a place of the window; and no more.
    signal dragMoved(place: point)
    signal dragEnded
    /// A stretch of the grid that the keyboard has reached.
    signal revealRequested(top: real, bottom: real)

    readonly property int spacing: 10
    readonly property int inset: 10
    readonly property int leastColumnWidth: 90
    readonly property int columns: Math.max(1, Math.floor((root.width - 2 * root.inset + root.spacing)
                                                          / (root.leastColumnWidth + root.spacing)))
    readonly property int rowHeight: 92 + root.spacing

    readonly property int rowsHeight: Math.ceil(grid.count / root.columns) * root.rowHeight

    implicitHeight: root.isEmpty ? emptyState.height : root.rowsHeight - root.spacing + 2 * root.inset

    function moveCurrent(event: var, step: int) {
        const target = Math.max(0, Math.min(grid.count - 1, grid.currentIndex + step));
        if (event.modifiers & Qt.AltModifier)
            root.moveBy(grid.currentIndex, step);
        grid.currentIndex = target;
        root.showCurrent();
        event.accepted = true;
    }
    function moveBy(index: int, step: int) {
        const target = Math.max(0, Math.min(grid.count - 1, index + step));
        if (!root.isLocked && target !== index)
            root.moveRequested(root.items.itemIDAt(index), target);
    }
    function isInLastRow(index: int): bool {
        return Math.floor(index / root.columns) === Math.floor((grid.count - 1) / root.columns);
    }
    function showCurrent() {
        const top = root.inset + Math.floor(grid.currentIndex / root.columns) * root.rowHeight;
        root.revealRequested(top - root.inset, top + root.rowHeight);
    }
    function removeCurrent() {
        if (!root.isLocked && grid.currentIndex >= 0)
            root.removeRequested(root.items.itemIDAt(grid.currentIndex));
    }

    OutlinedRectangle {
        anchors.fill: parent
        radius: Theme.containerRadius
        color: root.isDropTargeted ? Theme.faded(Theme.accent, root.isEmpty ? 0.08 : 0.06)
                                   : Theme.faded(Theme.quaternary, Theme.quaternary.a * 0.4)
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
        objectName: "gridDropTarget"
        anchors.fill: parent
        enabled: !root.isLocked
        onDropped: urls => root.addRequested(urls)
        onDragMoved: place => root.dragMoved(place)
        onDragEnded: root.dragEnded()
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
        x: root.inset
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

        readonly property bool showsFocus: activeFocus && InputModality.isKeyboard
        readonly property bool isMirrored: LayoutMirroring.enabled

        onActiveFocusChanged: {
            if (activeFocus && grid.currentIndex < 0)
                grid.currentIndex = 0;
        }
        Keys.onPressed: event => {
            switch (event.key) {
            case Qt.Key_Left:
                root.moveCurrent(event, grid.isMirrored ? 1 : -1);
                break;
            case Qt.Key_Right:
                root.moveCurrent(event, grid.isMirrored ? -1 : 1);
                break;
            case Qt.Key_Up:
                root.moveCurrent(event, grid.currentIndex >= root.columns ? -root.columns : 0);
                break;
            case Qt.Key_Down:
                root.moveCurrent(event, root.isInLastRow(grid.currentIndex) ? 0 : root.columns);
                break;
            case Qt.Key_Home:
                root.moveCurrent(event, -grid.count);
                break;
            case Qt.Key_End:
                root.moveCurrent(event, grid.count);
                break;
            case Qt.Key_Delete:
            case Qt.Key_Backspace:
                root.removeCurrent();
                event.accepted = true;
                break;
            }
        }

        delegate: Item {
            id: slot

            required property int index
            required property string itemID
            required property string name
            required property string url
            required property string path
            property real shownX: x
            property real shownY: y
            readonly property int slideDuration: root.isRearranging ? Theme.changeDuration : 0

            width: grid.cellWidth
            height: grid.cellHeight

            // The slot is where its item belongs at once, so that a drag meets no cell on its way; what
            // is seen follows.
            onXChanged: slide.start()
            onYChanged: slide.start()

            ParallelAnimation {
                id: slide

                NumberAnimation {
                    target: slot
                    property: "shownX"
                    to: slot.x
                    duration: slot.slideDuration
                    easing.type: Easing.OutQuad
                }
                NumberAnimation {
                    target: slot
                    property: "shownY"
                    to: slot.y
                    duration: slot.slideDuration
                    easing.type: Easing.OutQuad
                }
            }

            FolderItemGridCell {
                x: Math.round((slot.width - root.spacing - width) / 2 + slot.shownX - slot.x)
                y: Math.round(slot.shownY - slot.y)
                index: slot.index
                itemID: slot.itemID
                name: slot.name
                url: slot.url
                path: slot.path
                isLocked: root.isLocked
                isDragging: slot.itemID === root.draggedItemID
                showsFocusRing: grid.showsFocus && slot.GridView.isCurrentItem
                onPressed: {
                    grid.currentIndex = slot.index;
                    grid.forceActiveFocus(Qt.MouseFocusReason);
                }
                onRemoveRequested: root.removeRequested(slot.itemID)
                onMoveRequested: step => root.moveBy(slot.index, step)
                onDragStarted: dragSource.begin(slot.itemID, this)
            }

            ItemDropTarget {
                anchors.fill: parent
                anchors.rightMargin: root.spacing
                anchors.bottomMargin: root.spacing
                enabled: !root.isLocked
                targetIndex: slot.index
                itemID: slot.itemID
                draggedItemID: root.draggedItemID
                onIsTargetedChanged: root.targetedCells += isTargeted ? 1 : -1
                Component.onDestruction: root.targetedCells -= isTargeted ? 1 : 0
                onMoveRequested: (itemID, index) => root.moveRequested(itemID, index)
                onItemDropped: root.draggedItemID = ""
                onDropped: urls => root.addRequested(urls)
                onDragMoved: place => root.dragMoved(place)
                onDragEnded: root.dragEnded()
            }
        }
    }

    // Outlives the cells, which come and go while an item is dragged about.
    ItemDragSource {
        id: dragSource

        function begin(itemID: string, cell: FolderItemGridCell) {
            cell.picture.grabToImage(result => {
                root.draggedItemID = itemID;
                dragSource.start(itemID, result.image, Screen.devicePixelRatio, Qt.point(cell.width / 2, 34));
            });
        }

        onEnded: root.draggedItemID = ""
    }
}
