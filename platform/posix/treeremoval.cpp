#include "platform/posix/treeremoval.h"

#include "platform/posix/directorylisting.h"
#include "platform/posix/filedescriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace {

using Action = PlatformError::Action;

constexpr int openFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW;

[[noreturn]] void failRemoving(const QByteArray &path)
{
    throw lastError(Action::Remove, path);
}

// Opens a directory, and its permissions first where they are closed to its owner.
FileDescriptor openForEmptying(int parent, const QByteArray &name, const QByteArray &path)
{
    FileDescriptor directory = openAt(parent, name, openFlags);
    if (!directory.isOpen() && errno == EACCES
        && ::fchmodat(parent, name.constData(), S_IRWXU, 0) == 0)
        directory = openAt(parent, name, openFlags);
    if (!directory.isOpen())
        failRemoving(path);
    if (::faccessat(directory.get(), ".", W_OK | X_OK, AT_EACCESS) < 0)
        static_cast<void>(::fchmod(directory.get(), S_IRWXU)); // else the removal tells why not
    return directory;
}

void removeEntry(ListedEntry::Type type, int parent, const QByteArray &name,
                 const QByteArray &path);

void emptyDirectory(int parent, const QByteArray &name, const QByteArray &path)
{
    const FileDescriptor directory = openForEmptying(parent, name, path);
    FileDescriptor listed = openAt(directory.get(), ".", O_RDONLY | O_DIRECTORY);
    if (!listed.isOpen())
        failRemoving(path);
    for (const ListedEntry &entry : listDirectory(std::move(listed), path))
        removeEntry(entry.type, directory.get(), entry.name, path + '/' + entry.name);
}

void removeEntry(ListedEntry::Type type, int parent, const QByteArray &name, const QByteArray &path)
{
    const bool isDirectory = type == ListedEntry::Type::Directory;
    if (isDirectory)
        emptyDirectory(parent, name, path);
    if (::unlinkat(parent, name.constData(), isDirectory ? AT_REMOVEDIR : 0) < 0)
        failRemoving(path);
}

} // namespace

void removeTree(const QByteArray &path)
{
    struct stat status { };
    if (::lstat(path.constData(), &status) < 0)
        failRemoving(path);
    removeEntry(typeOfMode(status.st_mode), AT_FDCWD, path, path);
}
