import QtQuick
import Nestlet.Companion

/// Drags an item of a folder by its cell's picture. It outlives the cells, which come and go while an
/// item is dragged about.
ItemDragSource {
    id: root

    /// Empty: none is dragged.
    property string itemID

    function begin(itemID: string, cell: FolderItemGridCell) {
        const place = cell.holdPlace;
        cell.picture.grabToImage(result => {
            if (!cell || !cell.isHeld) // let go meanwhile
                return;
            root.itemID = itemID;
            root.start(itemID, result.image, root.Screen.devicePixelRatio, place);
        });
    }

    onEnded: root.itemID = ""
}
