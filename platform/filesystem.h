#pragma once

#include "platform/fileurl.h"

#include <QByteArrayView>
#include <QList>

#include <optional>
#include <span>

/// What tells one state of a file from another without reading it.
struct FileIdentity {
    quint64 device{};
    quint64 inode{};
    qint64 size{};
    qint64 modificationNanoseconds{}; ///< since 1970
    qint64 changeNanoseconds{}; ///< of the inode, since 1970: also moves when times are set back
    bool operator==(const FileIdentity &) const = default;
};

/// One entry of a directory as a listing knows it, without a look at the file itself.
struct DirectoryEntry {
    QString name{};
    bool isDirectory{}; ///< a link to one is none
    bool operator==(const DirectoryEntry &) const = default;
};

/// The file manager. Failures are PlatformErrors that name the path and the system's reason. It has
/// no state and may be used from any thread.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// Whether something is at the path; the target counts when it is a link.
    [[nodiscard]] virtual bool exists(const FileURL &url) const = 0;
    /// Whether something is at the path, be it a link that leads nowhere.
    [[nodiscard]] virtual bool isOccupied(const FileURL &url) const = 0;
    /// Whether a directory is at the path; the target counts when it is a link.
    [[nodiscard]] virtual bool isDirectory(const FileURL &url) const = 0;
    /// Whether a directory is at the path itself: a link to one is none.
    [[nodiscard]] virtual bool isDirectoryItself(const FileURL &url) const = 0;
    /// What is there once every link on the way is followed; the URL as it is when nothing is.
    [[nodiscard]] virtual FileURL resolved(const FileURL &url) const = 0;
    /// The entries of one directory, hidden ones included, in the order in which the system lists
    /// them; directories (not links to them) as directory URLs.
    [[nodiscard]] virtual QList<FileURL> contents(const FileURL &directory) const = 0;
    /// The entries of one directory less the hidden ones (a leading dot; what else the system
    /// hides), in the order of the listing: the quick form for large folders.
    [[nodiscard]] virtual QList<DirectoryEntry> visibleEntries(const FileURL &directory) const = 0;
    /// Nothing when there is no such file; the target of a link.
    [[nodiscard]] virtual std::optional<FileIdentity> identity(const FileURL &url) const = 0;

    [[nodiscard]] virtual QByteArray read(const FileURL &url) const = 0;
    /// Writes the pieces, one after the other, to a temporary file beside `url` and renames it over
    /// it: readers see the old bytes or the new ones.
    virtual void writeAtomically(const FileURL &url,
                                 std::span<const QByteArrayView> pieces) const = 0;
    void writeAtomically(const FileURL &url, QByteArrayView bytes) const
    {
        writeAtomically(url, std::span(&bytes, 1));
    }
    /// The directory and those above it that are missing. No error when it is there.
    virtual void createDirectories(const FileURL &directory) const = 0;
    /// Copies a file, link or whole tree with its links, modes and attributes; blocks are shared
    /// where the volume can. An occupied target is an error.
    virtual void copy(const FileURL &from, const FileURL &to) const = 0;
    /// Renames within one volume, over whatever file is there.
    virtual void move(const FileURL &from, const FileURL &to) const = 0;
    /// Removes a file, link or whole tree. A missing one is an error.
    virtual void remove(const FileURL &url) const = 0;
};
