#pragma once

#include "platform/fileurl.h"

#include <QByteArrayView>

class FileSystem;

/// Library files that could not be decoded, kept before something else is written in their place.
/// Failures are PlatformErrors.
class LibraryBackups {
public:
    LibraryBackups(const FileSystem &files, const FileURL &directory)
        : m_files(files)
        , m_directory(directory)
    {
    }

    /// Keeps the bytes, unless the same are kept already.
    void keep(QByteArrayView bytes) const;
    /// Moves a file here whose bytes cannot be read. Returns where it is.
    [[nodiscard]] FileURL moveHere(const FileURL &file) const;

private:
    [[nodiscard]] FileURL unusedURL() const;

    const FileSystem &m_files;
    FileURL m_directory;
};
