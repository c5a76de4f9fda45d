#include "platform/posix/filedescriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

FileDescriptor::~FileDescriptor()
{
    close();
}

void FileDescriptor::close()
{
    if (isOpen())
        ::close(std::exchange(m_descriptor, -1));
}

FileDescriptor openAt(int directory, const QByteArray &path, int flags, mode_t mode)
{
    int descriptor = -1;
    do {
        descriptor = ::openat(directory, path.constData(), flags | O_CLOEXEC, mode);
    } while (descriptor < 0 && errno == EINTR);
    return FileDescriptor(descriptor);
}

PlatformError systemError(PlatformError::Action action, const QByteArray &path, int errorNumber)
{
    return PlatformError::fromErrno(action, QString::fromUtf8(path), errorNumber);
}

PlatformError lastError(PlatformError::Action action, const QByteArray &path)
{
    return systemError(action, path, errno);
}
