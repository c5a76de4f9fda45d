#pragma once

#include <QByteArray>

#include <cstdlib>
#include <memory>

/// realpath(3): the path without links and dots, in the file system's own bytes. Empty when nothing
/// is there.
[[nodiscard]] inline QByteArray resolvedPath(const QByteArray &path)
{
    const std::unique_ptr<char, decltype(&std::free)> found(::realpath(path.constData(), nullptr),
                                                            &std::free);
    return found ? QByteArray(found.get()) : QByteArray();
}
