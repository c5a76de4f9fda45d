#include "ui/filedroptarget.h"

#include "system/droppedurls.h"
#include "system/mimedropinfo.h"
#include "ui/urltexts.h"

#include <QPointer>

FileDropTarget::FileDropTarget(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemAcceptsDrops);
}

FolderRowDropDelegate FileDropTarget::handler()
{
    const auto report = [self = QPointer(this)](const QList<FileURL> &urls) {
        if (self)
            Q_EMIT self->dropped(textsOfURLs(urls));
    };
    return {.setTargeted = [this](bool isTargeted) { setTargeted(isTargeted); }, .onDrop = report};
}

void FileDropTarget::setTargeted(bool isTargeted)
{
    if (m_isTargeted == isTargeted)
        return;
    m_isTargeted = isTargeted;
    Q_EMIT isTargetedChanged();
}

void FileDropTarget::dragEnterEvent(QDragEnterEvent *event)
{
    const MimeDropInfo info(event->mimeData());
    if (!handler().validateDrop(info)) {
        event->ignore();
        return;
    }
    handler().dropEntered(info);
    event->setDropAction(Qt::CopyAction); // the files stay where they are
    event->accept();
}

void FileDropTarget::dragMoveEvent(QDragMoveEvent *event)
{
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(m_isTargeted);
}

void FileDropTarget::dragLeaveEvent(QDragLeaveEvent *event)
{
    setTargeted(false);
    event->accept();
}

void FileDropTarget::dropEvent(QDropEvent *event)
{
    handler().performDrop(MimeDropInfo(event->mimeData()));
    event->setDropAction(Qt::CopyAction);
    event->accept();
}
