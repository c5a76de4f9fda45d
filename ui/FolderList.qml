pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Nestlet.Companion

/// The rows of all folders. The selection is the window's: the list shows it and asks for another.
ListView {
    id: root

    required property CompanionViewModel companion
    readonly property string selection: root.companion.selection
    readonly property int firstMovableRow: root.companion.folders.firstMovableRow

    // Type-ahead
    property string typedText

    // Reordering by the pointer: the row in hand, where in the row it is held, and where the pointer is
    // in the visible part of the list.
    property int heldRow: -1
    property CompanionFolderRow heldItem: null
    property real holdOffset: 0
    property real holdPosition: 0
    readonly property int dropRow: root.heldRow < 0
                                   ? -1 : Math.max(root.firstMovableRow,
                                                   Math.min(root.count - 1,
                                                            Math.floor((root.holdPosition - root.holdOffset + root.contentY)
                                                                       / Theme.rowHeight + 0.5)))

    // Asked for when it is needed: rows come, go and move.
    function selectedRow(): int {
        return root.companion.folders.rowOf(root.selection);
    }
    function selectRow(row: int) {
        if (row < 0 || row >= root.count)
            return;
        root.companion.selection = root.companion.folders.folderIDAt(row);
        root.positionViewAtIndex(row, ListView.Contain);
    }
    function moveSelection(row: int) {
        root.companion.folders.moveFolder(root.selection, row);
        root.positionViewAtIndex(root.selectedRow(), ListView.Contain);
    }
    function showSelection() {
        root.currentIndex = root.selectedRow();
    }
    function holdRow(place: point) {
        const y = root.mapFromItem(null, place).y;
        const row = root.indexAt(1, y + root.contentY);
        if (row < root.firstMovableRow)
            return;
        root.holdOffset = y + root.contentY - row * Theme.rowHeight;
        root.holdPosition = y;
        root.heldRow = row;
        root.heldItem = root.itemAtIndex(row) as CompanionFolderRow;
    }
    function dropHeldRow() {
        const row = root.heldRow;
        const target = root.dropRow;
        root.heldRow = -1;
        root.heldItem = null;
        if (row >= 0 && target !== row)
            root.companion.folders.moveFolder(root.companion.folders.folderIDAt(row), target);
    }

    clip: true
    focus: true
    activeFocusOnTab: true
    keyNavigationEnabled: false
    boundsBehavior: Flickable.StopAtBounds
    bottomMargin: Theme.selectionInset
    reuseItems: true
    model: root.companion.folders
    highlightFollowsCurrentItem: false
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Dock Folders")
    ScrollBar.vertical: CompanionScrollBar {}
    onSelectionChanged: root.showSelection()
    onCountChanged: root.showSelection()

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
            event.accepted = root.typeAhead(event);
        }
    }

    // Letters typed within a second belong together; the same one again goes on to the next match.
    function typeAhead(event: var): bool {
        if (event.text.trim() === "" && !(event.text === " " && root.typedText !== "")
                || event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier))
            return false;
        const goesOn = event.text === root.typedText;
        root.typedText = goesOn ? event.text : root.typedText + event.text;
        typing.restart();
        const from = root.selectedRow() - (goesOn || root.typedText.length === 1 ? 0 : 1);
        root.selectRow(root.companion.folders.rowStartingWith(root.typedText, from));
        return true;
    }

    Timer {
        id: typing
        interval: 1000
        onTriggered: root.typedText = ""
    }

    WheelScrolling {
        target: root
    }

    EdgeScroller {
        flickable: root
        position: root.heldRow >= 0 ? root.holdPosition : NaN
    }

    displaced: Transition {
        NumberAnimation {
            properties: "y"
            duration: Theme.changeDuration
            easing.type: Easing.OutQuad
        }
    }
    move: root.displaced

    delegate: CompanionFolderRow {
        id: row

        width: ListView.view.width
        isSelected: row.folderID === root.companion.selection
        listHasFocus: root.activeFocus
        receiver: root.companion
        opacity: row.index === root.heldRow ? 0.35 : 1
        ListView.onPooled: row.isPooled = true
        ListView.onReused: row.isPooled = false
        onPressed: root.forceActiveFocus(Qt.MouseFocusReason)
        onClicked: {
            root.forceActiveFocus(Qt.MouseFocusReason);
            root.companion.selection = row.folderID;
        }
        onMoveRequested: step => root.companion.folders.moveFolder(row.folderID, row.index + step)
    }

    DragHandler {
        target: null
        acceptedButtons: Qt.LeftButton
        xAxis.enabled: false
        dragThreshold: 5
        onActiveChanged: {
            if (active)
                root.holdRow(centroid.scenePressPosition);
            else
                root.dropHeldRow();
        }
        onCentroidChanged: {
            if (active)
                root.holdPosition = root.mapFromItem(null, centroid.scenePosition).y;
        }
    }

    HeldFolder {
        parent: root
        visible: root.heldRow >= 0
        y: root.holdPosition - root.holdOffset
        z: 4
        width: root.width
        row: root.heldItem
    }

    Rectangle {
        parent: root.contentItem
        visible: root.heldRow >= 0 && root.dropRow !== root.heldRow
        x: Theme.selectionInset
        y: (root.dropRow + (root.dropRow > root.heldRow ? 1 : 0)) * Theme.rowHeight - 1
        z: 3
        width: root.width - 2 * Theme.selectionInset
        height: 2
        radius: 1
        color: Theme.accent
    }
}
