#include "platform/posix/posixfilesystem.h"

#include "platform/posix/atomicwrite.h"
#include "platform/posix/directorylisting.h"
#include "platform/posix/filecalls.h"
#include "platform/posix/filedescriptor.h"
#include "platform/posix/resolvedpath.h"
#include "platform/posix/treecopy.h"
#include "platform/posix/treeremoval.h"

#include <QStringView>
#include <QUtf8StringView>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace {

using Action = PlatformError::Action;

// The path in the file system's bytes; empty when the URL names no file.
QByteArray pathOf(const FileURL &url)
{
    if (!url.isFileURL())
        return {};
    QByteArray path = url.nativePath();
    return path.startsWith('/') && !path.contains('\0') ? path : QByteArray();
}

QByteArray requiredPath(Action action, const FileURL &url)
{
    QByteArray path = pathOf(url);
    if (path.isEmpty())
        throw systemError(action, url.text().toUtf8(), EINVAL);
    return path;
}

std::optional<struct stat> statusOf(const FileURL &url)
{
    const QByteArray path = pathOf(url);
    struct stat status { };
    if (path.isEmpty() || ::stat(path.constData(), &status) < 0)
        return std::nullopt;
    return status;
}

qint64 nanoseconds(const timespec &time)
{
    return qint64{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

void visitEntries(const FileURL &directory,
                  const std::function<void(const char *, ListedEntry::Type)> &visit)
{
    const QByteArray path = requiredPath(Action::List, directory);
    FileDescriptor opened = openAt(AT_FDCWD, path, O_RDONLY | O_DIRECTORY);
    if (!opened.isOpen())
        throw lastError(Action::List, path);
    visitDirectory(std::move(opened), path, visit);
}

FileDescriptor openForReading(const QByteArray &path, qint64 &size)
{
    // Opening a pipe without a writer would wait for one.
    FileDescriptor file = openAt(AT_FDCWD, path, O_RDONLY | O_NONBLOCK);
    struct stat status { };
    if (!file.isOpen() || ::fstat(file.get(), &status) < 0)
        throw lastError(Action::Read, path);
    if (!S_ISREG(status.st_mode))
        throw systemError(Action::Read, path, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    size = status.st_size;
    return file;
}

// One file's directory, created unless somebody did so before.
void createDirectory(const QByteArray &path)
{
    constexpr mode_t newDirectoryMode = 0777;
    if (::mkdir(path.constData(), newDirectoryMode) == 0)
        return;
    const int error = errno;
    struct stat status { };
    if (::stat(path.constData(), &status) < 0 || !S_ISDIR(status.st_mode))
        throw systemError(Action::Create, path, error);
}

} // namespace

bool PosixFileSystem::exists(const FileURL &url) const
{
    return statusOf(url).has_value();
}

bool PosixFileSystem::isOccupied(const FileURL &url) const
{
    const QByteArray path = pathOf(url);
    struct stat status { };
    return !path.isEmpty() && ::lstat(path.constData(), &status) == 0;
}

bool PosixFileSystem::isDirectoryItself(const FileURL &url) const
{
    const QByteArray path = pathOf(url);
    struct stat status { };
    return !path.isEmpty() && ::lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

FileURL PosixFileSystem::resolved(const FileURL &url) const
{
    const QByteArray path = resolvedPath(pathOf(url));
    if (path.isEmpty())
        return url;
    // From the root down, because the bytes need not be text.
    const FileURL root = FileURL::directory(QStringLiteral("/"));
    const QByteArrayView below = QByteArrayView(path).sliced(1);
    return below.isEmpty() ? root : root.appendingNative(below, isDirectory(url));
}

bool PosixFileSystem::isDirectory(const FileURL &url) const
{
    const std::optional<struct stat> status = statusOf(url);
    return status && S_ISDIR(status->st_mode);
}

QList<FileURL> PosixFileSystem::contents(const FileURL &directory) const
{
    QList<FileURL> urls;
    const EntryURLs entryURLs(directory);
    visitEntries(directory, [&](const char *name, ListedEntry::Type type) {
        urls.append(entryURLs.entry(QByteArrayView(name), type == ListedEntry::Type::Directory));
    });
    return urls;
}

QList<DirectoryEntry> PosixFileSystem::visibleEntries(const FileURL &directory) const
{
    QList<DirectoryEntry> visible;
    visitEntries(directory, [&](const char *name, ListedEntry::Type type) {
        if (*name != '.' && QUtf8StringView(name).isValidUtf8()) {
            visible.append({.name = QString::fromUtf8(name),
                            .isDirectory = type == ListedEntry::Type::Directory});
        }
    });
    return visible;
}

std::optional<FileIdentity> PosixFileSystem::identity(const FileURL &url) const
{
    const std::optional<struct stat> status = statusOf(url);
    if (!status)
        return std::nullopt;
    return FileIdentity{.device = static_cast<quint64>(status->st_dev),
                        .inode = status->st_ino,
                        .size = status->st_size,
                        .modificationNanoseconds = nanoseconds(modificationTime(*status)),
                        .changeNanoseconds = nanoseconds(changeTime(*status))};
}

QByteArray PosixFileSystem::read(const FileURL &url) const
{
    const QByteArray path = requiredPath(Action::Read, url);
    qint64 size = 0;
    const FileDescriptor file = openForReading(path, size);
    QByteArray bytes(size + 1, Qt::Uninitialized); // one more, to meet the end without another look
    populatePages(bytes.data(), bytes.size());
    qsizetype length = 0;
    for (;;) {
        if (length == bytes.size())
            bytes.resize(2 * length + 4096);
        const ssize_t count
            = ::read(file.get(), bytes.data() + length, static_cast<size_t>(bytes.size() - length));
        if (count < 0 && errno != EINTR)
            throw lastError(Action::Read, path);
        if (count == 0)
            break;
        length += std::max<ssize_t>(count, 0);
    }
    bytes.truncate(length);
    return bytes;
}

void PosixFileSystem::writeAtomically(const FileURL &url,
                                      std::span<const QByteArrayView> pieces) const
{
    writeFileAtomically(requiredPath(Action::Write, url), pieces);
}

void PosixFileSystem::createDirectories(const FileURL &directory) const
{
    const QByteArray path = requiredPath(Action::Create, directory);
    if (isDirectory(directory))
        return;
    for (qsizetype slash = path.indexOf('/', 1); slash >= 0; slash = path.indexOf('/', slash + 1))
        createDirectory(path.first(slash));
    createDirectory(path);
}

void PosixFileSystem::copy(const FileURL &from, const FileURL &to) const
{
    copyTree(requiredPath(Action::Copy, from), requiredPath(Action::Create, to));
}

void PosixFileSystem::move(const FileURL &from, const FileURL &to) const
{
    const QByteArray source = requiredPath(Action::Move, from);
    if (std::rename(source.constData(), requiredPath(Action::Move, to).constData()) < 0)
        throw lastError(Action::Move, source);
}

void PosixFileSystem::remove(const FileURL &url) const
{
    removeTree(requiredPath(Action::Remove, url));
}
