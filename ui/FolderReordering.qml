import QtQuick
import Nestlet.Companion

/// Moves folders about in their list by the pointer: which one is held, where it is, and where it would
/// go. It is held by its id: the list may change meanwhile.
Item {
    id: root

    required property ListView list
    required property FolderListModel folders
    required property RowRearrangement rearrangement
    property string heldFolderID
    property int heldRow: -1
    property bool isDropping: false
    /// Where in the row it is held, and where the pointer is in the visible part of the list.
    property real holdOffset: 0
    property point holdPlace
    readonly property real heldTop: root.holdPlace.y - root.holdOffset
    /// At its ends a hand may go too far.
    readonly property bool isOverList: root.holdPlace.x >= 0 && root.holdPlace.x <= root.width
                                       && root.holdPlace.y >= -Theme.rowHeight
                                       && root.holdPlace.y <= root.height + Theme.rowHeight
    /// Where it would go; its own row while it is held elsewhere.
    readonly property int dropRow: {
        if (root.heldRow < 0 || !root.isOverList)
            return root.heldRow;
        const row = Math.round((root.heldTop + root.list.contentY - root.list.originY) / Theme.rowHeight);
        return Math.max(root.folders.firstMovableRow, Math.min(root.list.count - 1, row));
    }

    function hold(place: point) {
        const point = root.list.mapFromItem(null, place);
        const row = root.list.itemAt(1, point.y + root.list.contentY) as CompanionFolderRow;
        if (!row || row.index < root.folders.firstMovableRow)
            return;
        root.holdOffset = point.y + root.list.contentY - row.y;
        root.holdPlace = point;
        root.heldRow = row.index;
        root.heldFolderID = row.folderID;
        picture.setSource("HeldFolder.qml", {
            "name": row.name,
            "folderID": row.folderID,
            "accentColorHex": row.accentColorHex,
            "iconSymbol": row.iconSymbol,
            "pictureSource": row.pictureSource,
            "previewURLs": row.previewURLs,
            "previewColumns": row.previewColumns,
            "isLocked": row.isLocked
        });
    }
    function letGo() {
        root.heldFolderID = "";
        root.heldRow = -1;
        picture.source = "";
    }
    /// False: nothing was held.
    function cancel(): bool {
        const isHolding = root.heldFolderID !== "";
        root.letGo();
        return isHolding;
    }
    function drop() {
        if (root.heldFolderID !== "" && root.isOverList) {
            root.isDropping = true;
            root.rearrangement.begin(); // from where it is held, even to its former place
            root.isDropping = false;
            root.folders.moveFolder(root.heldFolderID, root.dropRow);
        }
        root.letGo();
    }

    parent: root.list
    anchors.fill: parent
    z: 4

    Connections {
        target: root.folders // qmllint disable incompatible-type
        enabled: root.heldFolderID !== ""
        function onOrderChanged() {
            root.heldRow = root.folders.rowOf(root.heldFolderID);
            if (root.heldRow < 0)
                root.letGo();
        }
    }

    DragHandler {
        parent: root.list
        target: null
        acceptedButtons: Qt.LeftButton
        xAxis.enabled: false
        dragThreshold: 5
        onActiveChanged: {
            if (active)
                root.hold(centroid.scenePressPosition);
            else
                root.drop();
        }
        onCentroidChanged: {
            if (active)
                root.holdPlace = root.list.mapFromItem(null, centroid.scenePosition);
        }
    }

    EdgeScroller {
        flickable: root.list
        position: root.heldRow >= 0 && root.isOverList ? root.holdPlace.y : NaN
    }

    Loader { // whose file is read when a folder is first held
        id: picture
        y: root.heldTop
        width: root.width
        opacity: root.isOverList ? 1 : 0.5
    }

    Rectangle {
        objectName: "dropMarker"
        parent: root.list.contentItem
        visible: root.heldRow >= 0 && root.dropRow !== root.heldRow
        x: Theme.selectionInset
        y: root.list.originY + (root.dropRow + (root.dropRow > root.heldRow ? 1 : 0)) * Theme.rowHeight - 1
        z: 3
        width: root.width - 2 * Theme.selectionInset
        height: 2
        radius: 1
        color: Theme.accent
    }
}
