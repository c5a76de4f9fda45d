#include "model/newitem.h"

#include "platform/bookmarks.h"
#include "platform/filesystem.h"

namespace {

// An application is known by its name alone: no file-system access.
DockFolderItem::Kind kindOf(const FileURL &url, const FileSystem &files)
{
    if (url.pathExtension().toLower() == u"app")
        return DockFolderItem::Kind::application;
    return files.isDirectoryItself(url) ? DockFolderItem::Kind::folder : DockFolderItem::Kind::file;
}

} // namespace

DockFolderItem itemFromURL(const FileURL &url, const FileSystem &files, const Bookmarks &bookmarks)
{
    return {.id = QUuid::createUuid(),
            .name = url.displayName(),
            .url = url,
            .bookmarkData = bookmarks.securityScoped(url),
            .kind = kindOf(url, files)};
}
