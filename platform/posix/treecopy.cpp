#include "platform/posix/treecopy.h"

#include "platform/posix/directorylisting.h"
#include "platform/posix/filecalls.h"
#include "platform/posix/filedescriptor.h"
#include "platform/posix/resolvedpath.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace {

using Action = PlatformError::Action;

constexpr mode_t permissionBits = 07777;

// A name below an open directory, and its whole path for the text of an error.
struct Place {
    int directory = AT_FDCWD;
    QByteArray name{};
    QByteArray path{};

    [[nodiscard]] Place child(int descriptor, const QByteArray &childName) const
    {
        return {.directory = descriptor, .name = childName, .path = path + '/' + childName};
    }
};

[[noreturn]] void failCopying(const Place &place)
{
    throw lastError(Action::Copy, place.path);
}

[[noreturn]] void failCreating(const Place &place)
{
    throw lastError(Action::Create, place.path);
}

struct stat statusOf(int descriptor, const Place &place)
{
    struct stat status { };
    if (::fstat(descriptor, &status) < 0)
        failCopying(place);
    return status;
}

std::array<timespec, 2> copiedTimes(const struct stat &status)
{
    return {timespec{.tv_sec = 0, .tv_nsec = UTIME_OMIT}, modificationTime(status)};
}

// Last of all: writing below would move the time, and a read-only mode would stop the writing.
void finish(int from, int to, const struct stat &status, const Place &place)
{
    if (copyAttributes(from, to) < 0 || ::fchmod(to, status.st_mode & permissionBits) < 0
        || ::futimens(to, copiedTimes(status).data()) < 0)
        failCreating(place);
}

QByteArray linkText(const Place &from)
{
    QByteArray text(256, Qt::Uninitialized);
    for (;;) {
        const ssize_t length = ::readlinkat(from.directory, from.name.constData(), text.data(),
                                            static_cast<size_t>(text.size()));
        if (length < 0)
            failCopying(from);
        if (length < text.size()) {
            text.truncate(length);
            return text;
        }
        text.resize(text.size() * 2);
    }
}

void copyLink(const Place &from, const Place &to)
{
    struct stat status { };
    if (::fstatat(from.directory, from.name.constData(), &status, AT_SYMLINK_NOFOLLOW) < 0)
        failCopying(from);
    if (::symlinkat(linkText(from).constData(), to.directory, to.name.constData()) < 0
        || ::utimensat(to.directory, to.name.constData(), copiedTimes(status).data(),
                       AT_SYMLINK_NOFOLLOW)
            < 0)
        failCreating(to);
}

void copyFile(const Place &from, const Place &to, CopySupport &support)
{
    const FileDescriptor source = openAt(from.directory, from.name, O_RDONLY | O_NOFOLLOW);
    if (!source.isOpen())
        failCopying(from);
    const struct stat status = statusOf(source.get(), from);
    const FileDescriptor target = openAt(
        to.directory, to.name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (!target.isOpen())
        failCreating(to);
    if (copyContents(source.get(), target.get(), status.st_size, support) < 0)
        failCreating(to);
    finish(source.get(), target.get(), status, to);
}

void copyEntry(ListedEntry::Type type, const Place &from, const Place &to, CopySupport &support);

void copyDirectory(const Place &from, const Place &to, CopySupport &support)
{
    const FileDescriptor source
        = openAt(from.directory, from.name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    if (!source.isOpen())
        failCopying(from);
    const struct stat status = statusOf(source.get(), from);
    const QList<ListedEntry> entries
        = listDirectory(openAt(source.get(), ".", O_RDONLY | O_DIRECTORY), from.path);
    if (::mkdirat(to.directory, to.name.constData(), S_IRWXU) < 0)
        failCreating(to);
    const FileDescriptor target
        = openAt(to.directory, to.name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    if (!target.isOpen())
        failCreating(to);
    for (const ListedEntry &entry : entries) {
        copyEntry(entry.type, from.child(source.get(), entry.name),
                  to.child(target.get(), entry.name), support);
    }
    finish(source.get(), target.get(), status, to);
}

void copyEntry(ListedEntry::Type type, const Place &from, const Place &to, CopySupport &support)
{
    switch (type) {
    case ListedEntry::Type::Directory:
        copyDirectory(from, to, support);
        return;
    case ListedEntry::Type::Link:
        copyLink(from, to);
        return;
    case ListedEntry::Type::File:
        copyFile(from, to, support);
        return;
    case ListedEntry::Type::Other: // opening a pipe or device could wait for ever
        break;
    }
    throw systemError(Action::Copy, from.path, EOPNOTSUPP);
}

QByteArray parentOf(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return slash <= 0 ? QByteArrayLiteral("/") : path.first(slash);
}

// A directory copied into itself would never end.
void requireOutside(const QByteArray &from, const QByteArray &to)
{
    const QByteArray source = resolvedPath(from);
    const QByteArray parent = resolvedPath(parentOf(to)) + '/';
    if (!source.isEmpty() && parent.startsWith(source == "/" ? source : source + '/'))
        throw systemError(Action::CopyIntoItself, from, EINVAL);
}

} // namespace

void copyTree(const QByteArray &from, const QByteArray &to)
{
    struct stat status { };
    if (::lstat(from.constData(), &status) < 0)
        throw lastError(Action::Copy, from);
    if (S_ISDIR(status.st_mode))
        requireOutside(from, to);
    CopySupport support;
    copyEntry(typeOfMode(status.st_mode), {.name = from, .path = from}, {.name = to, .path = to},
              support);
}
