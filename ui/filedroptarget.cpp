#include "ui/filedroptarget.h"

#include "system/droppedurls.h"

FolderRowDropDelegate FileDropTarget::handler()
{
    return {.setTargeted = [this](bool isTargeted) { setTargeted(isTargeted); },
            .onDrop = report()};
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
    handler().dropExited();
}

void FileDropTarget::performDrop(const DropInfo &info)
{
    handler().performDrop(info);
}
