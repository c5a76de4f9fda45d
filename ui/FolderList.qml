pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Nestlet.Companion

/// The rows of all folders. The selection is the window's: the list shows it and asks for another.
ListView {
    id: root

    required property CompanionViewModel companion
    readonly property string selection: root.companion.selection
    // What the first and last rows' rings need beyond them.
    readonly property int ringRoom: 4

    // Asked for when it is needed: rows come, go and move.
    function selectedRow(): int {
        return root.companion.folders.rowOf(root.selection);
    }
    function selectRow(row: int) {
        if (row >= 0 && row < root.count)
            root.companion.selection = root.companion.folders.folderIDAt(row);
        root.reveal(root.selectedRow());
    }
    /// The keyboard is on the first row until there is a selection. False: there is one, or no such key.
    function selectsFirst(key: int): bool {
        const acts = key === Qt.Key_Space || key === Qt.Key_Return || key === Qt.Key_Enter;
        if (!acts || root.selection !== "")
            return false;
        root.selectRow(0);
        return true;
    }
    function moveSelection(row: int) {
        root.companion.folders.moveFolder(root.selection, row);
        root.reveal(root.selectedRow());
    }
    /// Scrolls as little as it takes to show a row and its ring.
    function reveal(row: int) {
        if (row < 0)
            return;
        root.forceLayout(); // or the rows may not have their places yet
        const top = root.originY + row * Theme.rowHeight - root.ringRoom;
        const bottom = top + Theme.rowHeight + 2 * root.ringRoom;
        if (bottom > root.contentY + root.height)
            root.contentY = bottom - root.height;
        if (top < root.contentY)
            root.contentY = top;
    }

    clip: true
    focus: true
    activeFocusOnTab: true
    keyNavigationEnabled: false
    boundsBehavior: Flickable.StopAtBounds
    topMargin: root.ringRoom
    bottomMargin: Theme.selectionInset
    reuseItems: true
    cacheBuffer: 0 // the first frame waits for no row that is not seen; later ones are used again
    model: root.companion.folders
    highlightFollowsCurrentItem: false
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Dock Folders")
    T.ScrollBar.vertical: CompanionScrollBar {}
    onSelectionChanged: {
        root.currentIndex = root.selectedRow();
        root.reveal(root.currentIndex);
    }

    Connections {
        target: root.companion
        function onFolderCreated(folderID: string) {
            root.reveal(root.companion.folders.rowOf(folderID));
        }
    }

    Connections {
        target: root.companion.folders // qmllint disable incompatible-type
        function onOrderChanged() {
            root.currentIndex = root.selectedRow();
        }
    }

    Keys.onEscapePressed: event => event.accepted = reordering.cancel()
    Keys.onPressed: event => {
        const moves = event.modifiers & Qt.AltModifier;
        const choose = row => moves ? root.moveSelection(row) : root.selectRow(row);
        event.accepted = true;
        switch (event.key) {
        case Qt.Key_Up:
            choose(root.selectedRow() - 1);
            break;
        case Qt.Key_Down:
            choose(root.selectedRow() + 1);
            break;
        case Qt.Key_Home:
            choose(0);
            break;
        case Qt.Key_End:
            choose(root.count - 1);
            break;
        case Qt.Key_PageUp:
            choose(Math.max(0, root.selectedRow() - Math.floor(root.height / Theme.rowHeight)));
            break;
        case Qt.Key_PageDown:
            choose(Math.min(root.count - 1, root.selectedRow() + Math.floor(root.height / Theme.rowHeight)));
            break;
        default:
            event.accepted = typeAhead.take(event, root.selectedRow()) || root.selectsFirst(event.key);
        }
    }

    TypeAhead {
        id: typeAhead
        objectName: "typeAhead"
        onSearched: (text, row) => root.selectRow(root.companion.folders.rowStartingWith(text, row))
    }

    WheelScrolling {
        target: root
    }

    VisualOrder {
        parent: root
        container: root.contentItem
    }

    // The view's own transitions lose rows where many go past each other.
    RowRearrangement {
        id: rearranging
        parent: root
        rows: root.companion.folders
        onPlacing: root.forceLayout()
    }

    delegate: CompanionFolderRow {
        id: rowItem

        readonly property bool isHeld: rowItem.folderID === reordering.heldFolderID

        width: ListView.view.width
        isSelected: rowItem.folderID === root.companion.selection
        isCurrent: root.activeFocus && (rowItem.isSelected || root.selection === "" && rowItem.index === 0)
        listHasFocus: root.activeFocus
        receiver: root.companion
        opacity: (rowItem.isHeld ? 0.35 : 1) * slide.presence
        shift: slide.shift.y
        isLanding: slide.isLanding
        z: slide.isLanding ? 1 : 0
        ListView.onPooled: rowItem.isPooled = true
        ListView.onReused: rowItem.isPooled = false
        onPressed: root.forceActiveFocus(Qt.MouseFocusReason)
        onClicked: {
            root.forceActiveFocus(Qt.MouseFocusReason);
            root.companion.selection = rowItem.folderID;
        }
        onMoveRequested: step => root.companion.folders.moveFolder(rowItem.folderID, rowItem.index + step)

        RowSlide {
            id: slide
            rearrangement: rearranging
            row: rowItem
            rowID: rowItem.isPooled ? "" : rowItem.folderID
            lead: Qt.point(0, rowItem.isHeld && reordering.isDropping ? reordering.heldTop + root.contentY - rowItem.y : 0)
        }
    }

    FolderReordering {
        id: reordering
        list: root
        folders: root.companion.folders
        rearrangement: rearranging
    }
}
