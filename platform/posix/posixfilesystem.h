#pragma once

#include "platform/filesystem.h"

/// Files by POSIX calls. Names are handled as the bytes they are; one that is not UTF-8 comes and
/// goes as percent escapes of its bytes, and is left out of visibleEntries. A URL that names no
/// file, or holds a NUL, is an error, and nothing exists there.
class PosixFileSystem : public FileSystem {
public:
    using FileSystem::writeAtomically;

    [[nodiscard]] bool exists(const FileURL &url) const override;
    [[nodiscard]] bool isOccupied(const FileURL &url) const override;
    [[nodiscard]] bool isDirectory(const FileURL &url) const override;
    [[nodiscard]] bool isDirectoryItself(const FileURL &url) const override;
    [[nodiscard]] FileURL resolved(const FileURL &url) const override;
    [[nodiscard]] QList<FileURL> contents(const FileURL &directory) const override;
    [[nodiscard]] QList<DirectoryEntry> visibleEntries(const FileURL &directory) const override;
    [[nodiscard]] std::optional<FileIdentity> identity(const FileURL &url) const override;
    [[nodiscard]] QByteArray read(const FileURL &url) const override;
    void writeAtomically(const FileURL &url, std::span<const QByteArrayView> pieces) const override;
    void createDirectories(const FileURL &directory) const override;
    void copy(const FileURL &from, const FileURL &to) const override;
    void move(const FileURL &from, const FileURL &to) const override;
    void remove(const FileURL &url) const override;
};
