pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Nestlet.Companion

/// The found applications in as many columns as have room. To the keyboard it is one stop.
FocusScope {
    id: root

    required property AppPickerModel picker
    readonly property int spacing: 12
    readonly property int leastColumnWidth: 80
    readonly property int hoveredRow: {
        // What is under a pointer that rests changes when the grid scrolls.
        const isPlaced = grid.contentY >= grid.originY - grid.topMargin;
        return hover.hovered && isPlaced ? root.rowAt(hover.point.position) : -1;
    }
    /// A key that belongs into the search field.
    signal typed(text: string)
    /// The keyboard leaves the grid upwards.
    signal exited

    function toggle(row: int) {
        const cell = grid.itemAtIndex(row) as AppPickerCell;
        if (cell)
            cell.toggle();
    }
    // Brings into view what the wheel may have taken out of it.
    function toggleCurrent() {
        if (grid.currentIndex < 0)
            return;
        grid.positionViewAtIndex(grid.currentIndex, GridView.Contain);
        root.toggle(grid.currentIndex);
    }
    /// The row under a point of the grid, or -1 beside the cells.
    function rowAt(position: point): int {
        const place = root.mapToItem(grid.contentItem, position);
        const cell = grid.itemAt(place.x, place.y) as AppPickerCell;
        return cell && cell.covers(root.mapToItem(cell, position)) ? grid.indexAt(place.x, place.y) : -1;
    }

    activeFocusOnTab: grid.count > 0
    clip: true

    HoverHandler {
        id: hover
    }

    TapHandler {
        onTapped: eventPoint => {
            const row = root.rowAt(eventPoint.position);
            if (row < 0)
                return;
            grid.currentIndex = row;
            root.toggle(row);
        }
    }

    Connections {
        target: root.picker
        function onContentChanged() {
            grid.currentIndex = grid.count > 0 ? 0 : -1;
            grid.contentY = grid.originY - grid.topMargin;
        }
    }

    GridView {
        id: grid

        readonly property bool showsFocus: InputModality.isKeyboard && activeFocus
        readonly property int columns: Math.max(1, Math.floor(width / (root.leastColumnWidth + root.spacing)))
        readonly property int linesPerPage: Math.max(1, Math.floor(height / cellHeight))

        objectName: "appGrid"
        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        topMargin: 6
        bottomMargin: 6
        focus: true
        model: root.picker
        cellWidth: Math.floor(width / grid.columns)
        cellHeight: 106
        cacheBuffer: 0
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: false
        highlightMoveDuration: Theme.hoverDuration
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Apps")
        T.ScrollBar.vertical: CompanionScrollBar {
            parent: root
            anchors.top: parent.top
            anchors.right: parent.right
            anchors.bottom: parent.bottom
        }

        Keys.onPressed: event => {
            const target = GridKeys.cellAfterKey(event.key, grid.currentIndex, grid.count, grid.columns, grid.linesPerPage, grid.LayoutMirroring.enabled);
            if (event.key === Qt.Key_Space) {
                if (!event.isAutoRepeat)
                    root.toggleCurrent();
            } else if (event.key === Qt.Key_Up && grid.currentIndex < grid.columns)
                root.exited();
            else if (target >= 0)
                grid.currentIndex = target;
            else if (TypedText.isTyped(event.text, event.modifiers))
                root.typed(event.text);
            else
                return;
            event.accepted = true;
        }

        WheelScrolling {
            target: grid
        }

        // Cells that went out of view are not kept for others: they would stay in the accessible tree.
        delegate: AppPickerCell {
            required property int index

            width: grid.cellWidth
            height: grid.cellHeight
            isHovered: root.hoveredRow === index
            hasFocusRing: grid.showsFocus && GridView.isCurrentItem
            onToggled: root.picker.toggle(index)
        }
    }
}
