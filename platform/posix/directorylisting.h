#pragma once

#include "platform/posix/filedescriptor.h"

#include <QByteArray>
#include <QList>

#include <functional>

/// A name in a directory, in the file system's own bytes.
struct ListedEntry {
    enum class Type { File, Directory, Link, Other };

    QByteArray name{};
    Type type{};
};

[[nodiscard]] ListedEntry::Type typeOfMode(mode_t mode);

/// Calls `visit` with the name and type of every entry but "." and "..", in the system's order.
/// `path` is for the text of the PlatformError that this throws.
void visitDirectory(FileDescriptor directory, const QByteArray &path,
                    const std::function<void(const char *, ListedEntry::Type)> &visit);

/// The same as a list.
[[nodiscard]] QList<ListedEntry> listDirectory(FileDescriptor directory, const QByteArray &path);
