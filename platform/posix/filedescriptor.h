#pragma once

#include "platform/error.h"

#include <QByteArray>

#include <sys/stat.h>

#include <utility>

/// Owns a file descriptor.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor)
        : m_descriptor(descriptor)
    {
    }
    FileDescriptor(FileDescriptor &&other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1))
    {
    }
    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    FileDescriptor(const FileDescriptor &) = delete;
    FileDescriptor &operator=(const FileDescriptor &) = delete;
    ~FileDescriptor();

    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }
    [[nodiscard]] int get() const { return m_descriptor; }
    /// Gives the descriptor away to somebody who closes it.
    [[nodiscard]] int release() { return std::exchange(m_descriptor, -1); }
    void close();

private:
    int m_descriptor = -1;
};

/// open(2) relative to `directory`, close-on-exec, again when a signal came in between.
[[nodiscard]] FileDescriptor openAt(int directory, const QByteArray &path, int flags,
                                    mode_t mode = 0);

/// The error of the call that just failed, about a path in the file system's own bytes.
[[nodiscard]] PlatformError lastError(PlatformError::Action action, const QByteArray &path);
[[nodiscard]] PlatformError systemError(PlatformError::Action action, const QByteArray &path,
                                        int errorNumber);
