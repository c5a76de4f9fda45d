#pragma once

#include "model/dockfolder.h"

#include <memory>
#include <optional>

class Directories;
class FileSystem;

/// The library file that Nestlet and its Dock apps read too. It remembers, folder by folder, the
/// bytes last read or written: a folder whose bytes did not change is shared, not decoded again,
/// and one that did not change since it was last written is not encoded again. Main thread.
class LibraryFile {
public:
    LibraryFile(const FileSystem &files, const Directories &directories);
    ~LibraryFile();
    LibraryFile(LibraryFile &&) noexcept;
    LibraryFile &operator=(LibraryFile &&) noexcept;

    /// "Nestlet.json" in `directory()`.
    [[nodiscard]] FileURL url() const;
    /// "Nestlet" in Application Support: the directory to watch.
    [[nodiscard]] FileURL directory() const;

    /// What a load finds.
    struct Contents {
        /// Nothing when the file cannot be read or decoded or holds no folder.
        std::optional<QList<DockFolder>> folders{};
        /// The same as when the file was last loaded, saved or removed from here.
        bool isUnchanged{};
    };
    [[nodiscard]] Contents load();

    /// Begins the first load on a thread of its own. Nothing else may be asked for until load() has
    /// waited for it; a file that was changed meanwhile is read again there.
    void beginLoading();

    /// Replaces the file, atomically. A file that was there and could not be decoded is kept first,
    /// once per content, in "Nestlet Companion/Backups" in Application Support. Throws
    /// PlatformError; the old file is then untouched.
    void save(const DockFolderLibrary &library);

    /// Removes the file and the backups. Errors are ignored.
    void removeAll();

private:
    struct State;
    std::unique_ptr<State> m_state;
};
