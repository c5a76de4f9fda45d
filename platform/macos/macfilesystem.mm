#include "platform/macos/macfilesystem.h"

#include "platform/macos/foundationtypes.h"
#include "platform/posix/filedescriptor.h"

#include <cerrno>

#include <copyfile.h>

namespace {

using Action = PlatformError::Action;

constexpr Action action = Action::Copy;

QByteArray pathOf(const FileURL &url)
{
    const QByteArray path = url.nativePath();
    if (!url.isFileURL() || path.isEmpty() || path.contains('\0'))
        throw systemError(action, url.text().toUtf8(), EINVAL);
    return path;
}

} // namespace

// By the file manager, because a file can be hidden by a flag as well as by its name.
QList<DirectoryEntry> MacFileSystem::visibleEntries(const FileURL &directory) const
{
    @autoreleasepool {
        NSError *error = nil;
        NSArray *urls = [[NSFileManager defaultManager]
              contentsOfDirectoryAtURL:nsURL(directory)
            includingPropertiesForKeys:[NSArray array]
                               options:NSDirectoryEnumerationSkipsHiddenFiles
                                 error:&error];
        if (!urls)
            throw platformErrorFrom(error);
        QList<DirectoryEntry> entries;
        for (NSURL *url in urls) {
            entries.append({.name = textFrom([url lastPathComponent]),
                            .isDirectory = static_cast<bool>([url hasDirectoryPath])});
        }
        return entries;
    }
}

void MacFileSystem::copy(const FileURL &from, const FileURL &to) const
{
    // COPYFILE_CLONE shares the blocks of each file where the volume can, copies them where it
    // cannot, and includes COPYFILE_ALL, so that one call serves both.
    constexpr copyfile_flags_t flags
        = COPYFILE_ALL | COPYFILE_RECURSIVE | COPYFILE_CLONE | COPYFILE_NOFOLLOW;
    const QByteArray source = pathOf(from);
    const QByteArray target = pathOf(to);
    if (isOccupied(to)) // copyfile puts a copy into a directory that is there
        throw systemError(action, target, EEXIST);
    if (copyfile(source.constData(), target.constData(), nullptr, flags) != 0)
        throw lastError(action, source);
}
