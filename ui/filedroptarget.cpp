#include "ui/filedroptarget.h"

#include "system/droppedurls.h"
#include "ui/urltexts.h"

#include <QPointer>

FolderRowDropDelegate FileDropTarget::handler()
{
    const auto report = [self = QPointer(this)](const QList<FileURL> &urls) {
        if (self)
            Q_EMIT self->dropped(textsOfURLs(urls));
    };
    return {.setTargeted = [this](bool isTargeted) { setTargeted(isTargeted); }, .onDrop = report};
}

bool FileDropTarget::validateDrop(const DropInfo &info)
{
    return handler().validateDrop(info);
}

void FileDropTarget::dropEntered(const DropInfo &info)
{
    handler().dropEntered(info);
}

void FileDropTarget::dropExited()
{
    setTargeted(false);
}

void FileDropTarget::performDrop(const DropInfo &info)
{
    handler().performDrop(info);
}
