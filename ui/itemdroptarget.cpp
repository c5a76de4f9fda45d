#include "ui/itemdroptarget.h"

#include "model/uuidtext.h"
#include "system/droppedurls.h"
#include "system/itemdropdelegate.h"

CompanionItemDropDelegate ItemDropTarget::handler()
{
    return {.targetIndex = m_targetIndex,
            .targetItem = {.id = uuidFromText(m_itemID).value_or(QUuid())},
            .draggedItemID
            = {.get = [this] { return uuidFromText(m_draggedItemID); },
               .set = [this](const std::optional<QUuid> &) { Q_EMIT itemDropped(); }},
            .onMove =
                [this](const QUuid &itemID, qsizetype index) {
                    Q_EMIT moveRequested(uuidText(itemID), static_cast<int>(index));
                },
            .onAdd = report()};
}

bool ItemDropTarget::validateDrop(const DropInfo &info)
{
    return handler().validateDrop(info);
}

void ItemDropTarget::dropEntered(const DropInfo &info)
{
    setTargeted(info.hasItems(DropContent::FileURL));
    handler().dropEntered(info);
}

void ItemDropTarget::dropExited()
{
    setTargeted(false);
}

void ItemDropTarget::performDrop(const DropInfo &info)
{
    setTargeted(false);
    handler().performDrop(info);
}
