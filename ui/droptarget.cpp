#include "ui/droptarget.h"

#include "system/mimedropinfo.h"

namespace {

// Files stay where they are, whatever the other program proposes; an item that is dragged about
// here stays in its folder.
void acceptDrop(QDropEvent *event)
{
    if (event->possibleActions().testFlag(Qt::CopyAction))
        event->setDropAction(Qt::CopyAction);
    event->accept();
}

} // namespace

DropTarget::DropTarget(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemAcceptsDrops);
}

void DropTarget::setReceiver(DropReceiver *receiver)
{
    if (m_receiver == receiver)
        return;
    m_receiver = receiver;
    Q_EMIT receiverChanged();
}

std::function<void(const QList<FileURL> &)> DropTarget::report() const
{
    return [folderID = m_folderID, receiver = m_receiver](const QList<FileURL> &urls) {
        if (receiver)
            receiver->receiveDrop(folderID, urls);
    };
}

void DropTarget::setTargeted(bool isTargeted)
{
    if (m_isTargeted == isTargeted)
        return;
    m_isTargeted = isTargeted;
    Q_EMIT isTargetedChanged();
}

// A drag that stands still says nothing when the area is taken away under it.
void DropTarget::itemChange(ItemChange change, const ItemChangeData &value)
{
    const bool isInUse = change == ItemVisibleHasChanged || change == ItemEnabledHasChanged;
    if (isInUse && !value.boolValue)
        setTargeted(false);
    QQuickItem::itemChange(change, value);
}

void DropTarget::dragEnterEvent(QDragEnterEvent *event)
{
    const MimeDropInfo info(event->mimeData());
    if (!validateDrop(info)) {
        event->ignore();
        return;
    }
    m_carriesFiles = info.hasItems(DropContent::FileURL);
    dropEntered(info);
    acceptDrop(event);
}

// Only what was accepted on entering moves on over the area, which may have been away meanwhile.
void DropTarget::dragMoveEvent(QDragMoveEvent *event)
{
    setTargeted(m_carriesFiles);
    acceptDrop(event);
}

void DropTarget::dragLeaveEvent(QDragLeaveEvent *event)
{
    dropExited();
    event->accept();
}

void DropTarget::dropEvent(QDropEvent *event)
{
    performDrop(MimeDropInfo(event->mimeData()));
    acceptDrop(event);
}
