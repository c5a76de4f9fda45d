#pragma once

#include "platform/posix/filedescriptor.h"

#include <QByteArray>
#include <QList>

/// A name in a directory, in the file system's own bytes.
struct ListedEntry {
    enum class Type { File, Directory, Link, Other };

    QByteArray name{};
    Type type{};
};

[[nodiscard]] ListedEntry::Type typeOfMode(mode_t mode);

/// All entries but "." and "..", in the system's order. `path` is for the text of the PlatformError
/// that this throws.
[[nodiscard]] QList<ListedEntry> listDirectory(FileDescriptor directory, const QByteArray &path);
