#include "system/itemdropdelegate.h"

#include "system/droppedurls.h"

bool CompanionItemDropDelegate::validateDrop(const DropInfo &info) const
{
    // An item of the folder is dragged as plain text.
    return info.hasItems(DropContent::FileURL) || info.hasItems(DropContent::PlainText);
}

bool CompanionItemDropDelegate::performDrop(const DropInfo &info) const
{
    if (draggedItemID.get())
        draggedItemID.set(std::nullopt); // dropEntered has already moved it
    else
        collectDroppedFileURLs(info, onAdd);
    return true;
}

void CompanionItemDropDelegate::dropEntered(const DropInfo &) const
{
    const auto itemID = draggedItemID.get();
    if (itemID && *itemID != targetItem.id)
        onMove(*itemID, targetIndex);
}
