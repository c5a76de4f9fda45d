#include "platform/posix/atomicwrite.h"

#include "platform/posix/filecalls.h"
#include "platform/posix/filedescriptor.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>

namespace {

using Action = PlatformError::Action;

constexpr mode_t permissionBits = 07777;
constexpr size_t piecesPerWrite = 256;

[[noreturn]] void failWriting(const QByteArray &path)
{
    throw lastError(Action::Write, path);
}

QByteArray directoryPart(const QByteArray &path)
{
    return path.first(path.lastIndexOf('/') + 1);
}

std::optional<QByteArray> linkTarget(const QByteArray &path)
{
    std::array<char, 4096> text{};
    const ssize_t length = ::readlink(path.constData(), text.data(), text.size());
    if (length < 0)
        return std::nullopt;
    const QByteArray target(text.data(), length);
    return target.startsWith('/') ? target : directoryPart(path) + target;
}

// Where the bytes belong: what a chain of links leads to, be it there or not.
QByteArray withLinksFollowed(QByteArray path)
{
    constexpr int atMost = 40;
    for (int links = 0; links < atMost; ++links) {
        const std::optional<QByteArray> target = linkTarget(path);
        if (!target)
            return path;
        path = *target;
    }
    throw systemError(Action::Write, path, ELOOP);
}

// The new file beside the old one, under a name of its own until it is whole. The name is always
// the same and the file is locked while it is written: one that is there and not locked was left
// behind by a program that was killed, and goes. So such files cannot pile up.
class TemporaryFile {
public:
    explicit TemporaryFile(const QByteArray &target)
        : m_target(target)
    {
        for (int number = 0, tries = 0; tries < 1000 && !isOpen(); ++tries) {
            m_path = pathNumber(number);
            if (!create() && !clearLeftover())
                ++number; // somebody writes there at this moment
        }
        if (!isOpen())
            throw systemError(Action::Write, target, EBUSY);
    }
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;
    ~TemporaryFile()
    {
        if (isOpen())
            ::unlink(m_path.constData());
    }

    [[nodiscard]] int descriptor() const { return m_file.get(); }

    void renameToTarget()
    {
        if (::rename(m_path.constData(), m_target.constData()) < 0)
            failWriting(m_target);
        m_file.close();
    }

private:
    [[nodiscard]] bool isOpen() const { return m_file.isOpen(); }

    [[nodiscard]] QByteArray pathNumber(int number) const
    {
        constexpr qsizetype longestName = 240; // a name must stay one with what is added to it
        const QByteArray directory = directoryPart(m_target);
        const QByteArray name = m_target.sliced(directory.size()).left(longestName);
        return directory + '.' + name + '.' + (number ? QByteArray::number(number) : QByteArray())
            + "new";
    }

    // Whether the path still names this file.
    [[nodiscard]] bool names(const FileDescriptor &file) const
    {
        struct stat opened { };
        struct stat named { };
        return ::fstat(file.get(), &opened) == 0 && ::lstat(m_path.constData(), &named) == 0
            && opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
    }

    bool create()
    {
        constexpr mode_t newFileMode = 0666;
        FileDescriptor file = openAt(AT_FDCWD, m_path, O_WRONLY | O_CREAT | O_EXCL, newFileMode);
        if (!file.isOpen() && errno != EEXIST)
            failWriting(m_target);
        // Before the lock was taken another writer may have held this one for a leftover.
        if (!file.isOpen() || (::flock(file.get(), LOCK_EX | LOCK_NB) < 0 && errno == EWOULDBLOCK)
            || !names(file))
            return false;
        m_file = std::move(file);
        return true;
    }

    [[nodiscard]] bool clearLeftover() const
    {
        const FileDescriptor file = openAt(AT_FDCWD, m_path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
        if (!file.isOpen())
            return errno == ENOENT;
        if (::flock(file.get(), LOCK_EX | LOCK_NB) < 0)
            return false;
        return !names(file) || ::unlink(m_path.constData()) == 0;
    }

    QByteArray m_target;
    QByteArray m_path;
    FileDescriptor m_file;
};

std::array<iovec, piecesPerWrite> vectorsOf(std::span<const QByteArrayView> pieces)
{
    std::array<iovec, piecesPerWrite> vectors{};
    std::ranges::transform(pieces, vectors.begin(), [](QByteArrayView piece) {
        return iovec{.iov_base = const_cast<char *>(piece.data()), // writev only reads it
                     .iov_len = static_cast<size_t>(piece.size())};
    });
    return vectors;
}

// Steps over the bytes that one call has written.
std::span<iovec> without(std::span<iovec> vectors, size_t written)
{
    while (!vectors.empty() && written >= vectors.front().iov_len) {
        written -= vectors.front().iov_len;
        vectors = vectors.subspan(1);
    }
    if (!vectors.empty()) {
        vectors.front().iov_base = static_cast<char *>(vectors.front().iov_base) + written;
        vectors.front().iov_len -= written;
    }
    return vectors;
}

void writePieces(int descriptor, std::span<const QByteArrayView> pieces, const QByteArray &path)
{
    while (!pieces.empty()) {
        const auto group = pieces.first(std::min(pieces.size(), piecesPerWrite));
        std::array<iovec, piecesPerWrite> vectors = vectorsOf(group);
        std::span<iovec> left = without(std::span(vectors).first(group.size()), 0);
        while (!left.empty()) {
            const ssize_t count = ::writev(descriptor, left.data(), static_cast<int>(left.size()));
            if (count < 0 && errno != EINTR)
                failWriting(path);
            if (count > 0)
                left = without(left, static_cast<size_t>(count));
        }
        pieces = pieces.subspan(group.size());
    }
}

void keepMode(int descriptor, const QByteArray &path)
{
    struct stat status { };
    if (::stat(path.constData(), &status) == 0
        && ::fchmod(descriptor, status.st_mode & permissionBits) < 0)
        failWriting(path);
}

} // namespace

void writeFileAtomically(const QByteArray &path, std::span<const QByteArrayView> pieces)
{
    const QByteArray target = withLinksFollowed(path);
    TemporaryFile file(target);
    writePieces(file.descriptor(), pieces, target);
    keepMode(file.descriptor(), target);
    if (syncData(file.descriptor()) < 0)
        failWriting(target);
    file.renameToTarget();
}
