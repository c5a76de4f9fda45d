#pragma once

#include "model/dockfolder.h"
#include "platform/filesystem.h"

#include <QHash>

class Directories;

/// The directory of all Dock proxy apps. One look at it costs one listing, one stat per bundle, and
/// a read of each Info.plist that changed since the last look. Main thread.
class ProxyDirectory {
public:
    /// A bundle in the directory, its extension exactly "app".
    struct Entry {
        FileURL url{};
        std::optional<QUuid> folderID{}; ///< absent: not a Dock app of any folder
    };

    ProxyDirectory(const FileSystem &files, const Directories &directories);

    /// "Nestlet" in the user's Applications directory.
    [[nodiscard]] FileURL url() const;
    /// All bundles in listing order; none when the directory cannot be listed.
    [[nodiscard]] QList<Entry> entries() const;
    /// The bundles of one folder, in listing order.
    [[nodiscard]] QList<FileURL> installedProxyURLs(const QUuid &folderID) const;
    /// The bundles of every folder that has one.
    [[nodiscard]] QHash<QUuid, QList<FileURL>> installedProxies() const;
    /// Where the folder's Dock app is to be made: under its name, or under its name and the
    /// beginning of its id when a Dock app of another folder has that name.
    [[nodiscard]] FileURL proxyAppURL(const DockFolder &folder) const;

private:
    struct KnownBundle {
        Entry entry{};
        FileURL infoPlist{};
        std::optional<FileIdentity> identity{}; ///< of the Info.plist when it was read
    };
    const QList<KnownBundle> &look() const;
    [[nodiscard]] QList<FileURL> listing() const;
    /// Whether the bundle was changed, or had not been read.
    bool refresh(KnownBundle &bundle) const;

    const FileSystem &m_files;
    const Directories &m_directories;
    mutable QList<KnownBundle> m_known; ///< what the last look found, in listing order
    mutable std::optional<QHash<QUuid, QList<FileURL>>> m_installed; ///< of m_known, when asked for
};
