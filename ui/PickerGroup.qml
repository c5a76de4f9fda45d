import QtQuick
import Nestlet.Companion

/// Cells of which at most one is selected, in rows: one stop of the Tab key, inside which the arrows
/// move. The ring follows the current cell.
FocusScope {
    id: root

    required property string name
    required property int count
    property int columns: root.count
    /// -1: none.
    property int selectedCell: -1
    property real spacing: 6
    /// Around the cells.
    property real inset: 0
    property real ringRadius: Theme.swatchRadius
    property alias delegate: cells.delegate
    /// Where the Tab key arrives.
    property int currentCell: root.firstCell
    readonly property int firstCell: Math.max(0, root.selectedCell)
    readonly property Item currentItem: root.cellAt(root.currentCell)

    function cellAt(index: int): Item {
        return index < cells.count ? cells.itemAt(index) : null;
    }
    function moveTo(cell: int) {
        cells.itemAt(cell).forceActiveFocus(Qt.TabFocusReason); // first: the current cell is the one in the Tab order
        root.currentCell = cell;
    }

    implicitWidth: grid.implicitWidth + 2 * root.inset
    implicitHeight: grid.implicitHeight + 2 * root.inset
    Accessible.role: Accessible.Grouping
    Accessible.name: root.name
    onActiveFocusChanged: {
        if (!root.activeFocus)
            root.currentCell = root.firstCell;
    }
    onFirstCellChanged: {
        if (!root.activeFocus)
            root.currentCell = root.firstCell;
    }
    Keys.onPressed: event => {
        const cell = GridKeys.cellAfterKey(event.key, root.currentCell, root.count, root.columns, 0, root.LayoutMirroring.enabled);
        event.accepted = cell >= 0 && cell !== root.currentCell;
        if (event.accepted)
            root.moveTo(cell);
    }

    Grid {
        id: grid
        anchors.fill: parent
        anchors.margins: root.inset
        columns: root.columns
        spacing: root.spacing

        Repeater {
            id: cells
            model: root.count
        }
    }

    Item {
        x: root.currentItem ? grid.x + root.currentItem.x : 0
        y: root.currentItem ? grid.y + root.currentItem.y : 0
        width: root.currentItem ? root.currentItem.width : 0
        height: root.currentItem ? root.currentItem.height : 0

        FocusRing {
            visible: root.currentItem !== null && (root.currentItem as PickerCell).visualFocus
            controlRadius: root.ringRadius
        }
    }
}
