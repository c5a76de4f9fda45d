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

void DropTarget::setTargeted(bool isTargeted)
{
    if (m_isTargeted == isTargeted)
        return;
    m_isTargeted = isTargeted;
    Q_EMIT isTargetedChanged();
}

void DropTarget::dragEnterEvent(QDragEnterEvent *event)
{
    const MimeDropInfo info(event->mimeData());
    if (!validateDrop(info)) {
        event->ignore();
        return;
    }
    dropEntered(info);
    Q_EMIT dragMoved(mapToScene(event->position()));
    acceptDrop(event);
}

// Only what was accepted on entering moves on over the area.
void DropTarget::dragMoveEvent(QDragMoveEvent *event)
{
    Q_EMIT dragMoved(mapToScene(event->position()));
    acceptDrop(event);
}

void DropTarget::dragLeaveEvent(QDragLeaveEvent *event)
{
    dropExited();
    Q_EMIT dragEnded();
    event->accept();
}

void DropTarget::dropEvent(QDropEvent *event)
{
    performDrop(MimeDropInfo(event->mimeData()));
    Q_EMIT dragEnded();
    acceptDrop(event);
}
