#include "platform/posix/directorylisting.h"

#include <dirent.h>
#include <fcntl.h>

#include <cerrno>
#include <memory>

namespace {

using Action = PlatformError::Action;

using Type = ListedEntry::Type;

struct DirectoryCloser {
    void operator()(DIR *directory) const { ::closedir(directory); }
};

// The listing knows the type on nearly every volume; the others are asked.
Type typeOf(const dirent &entry, int directory)
{
    switch (entry.d_type) {
    case DT_DIR:
        return Type::Directory;
    case DT_LNK:
        return Type::Link;
    case DT_REG:
        return Type::File;
    case DT_UNKNOWN:
        break;
    default:
        return Type::Other;
    }
    struct stat status { };
    if (::fstatat(directory, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) < 0)
        return Type::Other;
    return typeOfMode(status.st_mode);
}

bool isSelfOrParent(const char *name)
{
    return qstrcmp(name, ".") == 0 || qstrcmp(name, "..") == 0;
}

} // namespace

ListedEntry::Type typeOfMode(mode_t mode)
{
    if (S_ISDIR(mode))
        return Type::Directory;
    if (S_ISLNK(mode))
        return Type::Link;
    return S_ISREG(mode) ? Type::File : Type::Other;
}

void visitDirectory(FileDescriptor directory, const QByteArray &path,
                    const std::function<void(const char *, ListedEntry::Type)> &visit)
{
    const std::unique_ptr<DIR, DirectoryCloser> stream(::fdopendir(directory.get()));
    if (!stream)
        throw lastError(Action::List, path);
    const int descriptor = directory.release(); // the stream owns it now
    for (;;) {
        errno = 0;
        const dirent *entry = ::readdir(stream.get()); // NOLINT(concurrency-mt-unsafe): own stream
        if (!entry && errno != 0)
            throw lastError(Action::List, path);
        if (!entry)
            return;
        if (!isSelfOrParent(entry->d_name))
            visit(entry->d_name, typeOf(*entry, descriptor));
    }
}

QList<ListedEntry> listDirectory(FileDescriptor directory, const QByteArray &path)
{
    QList<ListedEntry> entries;
    visitDirectory(std::move(directory), path, [&](const char *name, Type type) {
        entries.append({.name = name, .type = type});
    });
    return entries;
}
