#pragma once

#include "platform/posix/posixfilesystem.h"

/// The POSIX file manager, with the two things in which macOS goes beyond POSIX: what makes a file
/// hidden, and what belongs to a copy.
class MacFileSystem final : public PosixFileSystem {
public:
    [[nodiscard]] QList<DirectoryEntry> visibleEntries(const FileURL &directory) const override;
    void copy(const FileURL &from, const FileURL &to) const override;
};
