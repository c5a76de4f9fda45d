#include "platform/posix/filecalls.h"

#include <QByteArray>
#include <QByteArrayView>

#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace {

constexpr qsizetype bufferSize = 262'144;

int writeAll(int to, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t written = ::write(to, bytes.data(), static_cast<size_t>(bytes.size()));
        if (written < 0 && errno != EINTR)
            return -1;
        if (written > 0)
            bytes = bytes.sliced(written);
    }
    return 0;
}

// From where both files stand to the end.
int readAndWrite(int from, int to)
{
    QByteArray buffer(bufferSize, Qt::Uninitialized);
    for (;;) {
        const ssize_t count = ::read(from, buffer.data(), static_cast<size_t>(buffer.size()));
        if (count == 0)
            return 0;
        if (count < 0 && errno != EINTR)
            return -1;
        if (count > 0 && writeAll(to, QByteArrayView(buffer).first(count)) < 0)
            return -1;
    }
}

// Whether a refusal speaks of the volume or the kernel, not of this file.
bool isUnsupported(int error)
{
    return error == EOPNOTSUPP || error == ENOTTY || error == ENOSYS || error == EXDEV
        || error == EINVAL || error == EPERM || error == ETXTBSY;
}

// Access lists and what users put there. Other name spaces belong to the system.
bool isCopiedAttribute(QByteArrayView name)
{
    return name.startsWith("user.") || name.startsWith("system.posix_acl");
}

int copyAttribute(int from, int to, const char *name)
{
    QByteArray value;
    ssize_t size = -1;
    do { // again when it grew in between
        size = ::fgetxattr(from, name, nullptr, 0);
        if (size < 0)
            return errno == ENODATA ? 0 : -1;
        value.resize(size);
        size = ::fgetxattr(from, name, value.data(), static_cast<size_t>(value.size()));
    } while (size < 0 && errno == ERANGE);
    if (size < 0)
        return errno == ENODATA ? 0 : -1;
    if (::fsetxattr(to, name, value.constData(), static_cast<size_t>(size), 0) < 0)
        return errno == EOPNOTSUPP ? 0 : -1;
    return 0;
}

} // namespace

timespec modificationTime(const struct stat &status)
{
    return status.st_mtim;
}

timespec changeTime(const struct stat &status)
{
    return status.st_ctim;
}

int syncData(int descriptor)
{
    const int result = ::fdatasync(descriptor);
    return result < 0 && errno == EINVAL ? 0 : result; // a volume that has nothing to wait for
}

// Not large pages: where the memory is in pieces, they have to be put together first.
void populatePages(char *memory, qsizetype size)
{
    constexpr qsizetype leastSize = 1'000'000;
    if (size < leastSize)
        return;
    const auto page = static_cast<quintptr>(::sysconf(_SC_PAGESIZE));
    const quintptr offset = (page - reinterpret_cast<quintptr>(memory) % page) % page;
    const size_t length = (static_cast<size_t>(size) - offset) / page * page;
    ::madvise(memory + offset, length, MADV_POPULATE_WRITE); // or it stays as it is
}

int copyContents(int from, int to, qint64 size, CopySupport &support)
{
    if (support.sharesBlocks && size > 0) {
        if (::ioctl(to, FICLONE, from) == 0)
            return 0;
        if (!isUnsupported(errno))
            return -1;
        support.sharesBlocks = false;
    }
    for (qint64 copied = 0; support.copiesRanges && copied < size;) {
        constexpr size_t atMost = size_t{1} << 30U;
        const ssize_t count = ::copy_file_range(from, nullptr, to, nullptr, atMost, 0);
        if (count == 0) // shorter than it said: let reading find its end
            break;
        if (count > 0)
            copied += count;
        else if (isUnsupported(errno))
            support.copiesRanges = false;
        else if (errno != EINTR)
            return -1;
        if (copied >= size)
            return 0;
    }
    return readAndWrite(from, to);
}

int copyAttributes(int from, int to)
{
    const ssize_t size = ::flistxattr(from, nullptr, 0);
    if (size <= 0)
        return size == 0 || errno == EOPNOTSUPP ? 0 : -1;
    QByteArray names(size, Qt::Uninitialized);
    const ssize_t length = ::flistxattr(from, names.data(), static_cast<size_t>(names.size()));
    if (length < 0)
        return -1;
    names.truncate(length);
    for (qsizetype at = 0; at < names.size(); at = names.indexOf('\0', at) + 1) {
        const char *name = names.constData() + at;
        if (isCopiedAttribute(name) && copyAttribute(from, to, name) < 0)
            return -1;
    }
    return 0;
}
