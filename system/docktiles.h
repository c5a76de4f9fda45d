#pragma once

#include "platform/fileurl.h"

#include <QVariantMap>

class Directories;
class ProcessRunner;
class UserDefaults;

/// Takes tiles out of the Dock's preferences. Silent: what fails leaves the preferences as they
/// were.
class DockTiles {
public:
    DockTiles(UserDefaults &dockDefaults, ProcessRunner &processes, const Directories &directories);

    /// Removes every tile of an app bundle and restarts the Dock if there was one. To be called
    /// before the bundle is deleted.
    void unregisterDockTiles(const FileURL &appBundle) const;
    /// Neither waits nor reports.
    void restartDock() const;

private:
    UserDefaults &m_dockDefaults;
    ProcessRunner &m_processes;
    const Directories &m_directories;
};

/// Whether a tile of "persistent-apps" refers to the app at `targetPath` (standardised). The label
/// counts only for a tile that holds no URL.
[[nodiscard]] bool dockTileMatches(const QVariantMap &entry, const QString &targetPath,
                                   const QString &targetLabel);

/// The standardised path of a file URL's text, or of a plain path.
[[nodiscard]] QString standardizedPathFromURLString(const QString &text);
