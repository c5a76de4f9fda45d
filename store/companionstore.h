#pragma once

#include "model/dockfolder.h"
#include "platform/platform.h"
#include "system/updateinfo.h"

#include <QCoroTask>
#include <QHash>
#include <QObject>
#include <QSet>

#include <chrono>
#include <functional>
#include <map>
#include <set>

class DirectoryWatch;
class LibraryFile;
class ProxyDirectory;
class ProxyLifecycle;
class TemplateApp;
class Timer;

/// The one mutable object of the program: the folders, what is known about their Dock apps, the
/// error and the update to show. It is its only writer; everybody else reads, listens and calls
/// operations. Operations take ids; an unknown or locked folder makes them do nothing. Every change
/// is one `foldersChanged` and one save. Main thread only, and fatal elsewhere.
class CompanionStore final : public QObject {
    Q_OBJECT

public:
    /// Borrowed; they outlive the store.
    struct Collaborators {
        Platform &platform;
        LibraryFile &folderLibrary;
        const TemplateApp &templateApp;
        const ProxyDirectory &proxyDirectory;
        ProxyLifecycle &proxies;
    };
    /// How far an installation of all Dock apps is.
    struct InstallProgress {
        qsizetype done{}; ///< failed ones count too
        qsizetype total{};
        bool operator==(const InstallProgress &) const = default;
    };
    explicit CompanionStore(const Collaborators &collaborators);
    ~CompanionStore() override;

    /// Loads the library, sweeps away orphaned proxies, begins to watch the library, rebuilds the
    /// installed proxies and checks for an update. Once, right after construction.
    void start();

    // Published state

    /// In the user's order; at least one after `start`.
    [[nodiscard]] const QList<DockFolder> &folders() const;
    /// Nothing for an id that is not in the library.
    [[nodiscard]] std::optional<DockFolder> folder(const QUuid &id) const;
    /// Empty: there is no error.
    [[nodiscard]] const QString &errorMessage() const;
    /// Read-only folders: no operation edits them and they are not saved.
    [[nodiscard]] const QSet<QUuid> &lockedFolderIDs() const;
    [[nodiscard]] bool isLocked(const QUuid &id) const;
    /// A newer build that was not dismissed.
    [[nodiscard]] const std::optional<UpdateInfo> &availableUpdate() const;
    /// Whether the folder had a Dock app when last looked.
    [[nodiscard]] bool isInstalled(const QUuid &id) const;
    /// Whether a Dock app of the folder is being installed.
    [[nodiscard]] bool isInstalling(const QUuid &id) const;
    /// Nothing when none is running.
    [[nodiscard]] const std::optional<InstallProgress> &installAllProgress() const;
    /// Whether there was a Nestlet app when last looked; it need not be a valid one.
    [[nodiscard]] bool isNestletInstalled() const;
    /// Where it was then.
    [[nodiscard]] const std::optional<FileURL> &nestletURL() const;

    // Editing

    DockFolder addFolder();
    void moveFolders(const std::set<qsizetype> &sources, qsizetype destination);
    void deleteFolder(const QUuid &id);
    void renameFolder(const QUuid &id, const QString &name);
    void setAccentColor(const QUuid &id, const std::optional<QString> &hex);
    void setIconSymbol(const QUuid &id, const std::optional<QString> &symbol);
    void setCustomIcon(const QUuid &id, const QByteArray &image);
    void setGridColumns(const QUuid &id, std::optional<qint64> columns);
    void addItems(const QUuid &id, const QList<FileURL> &urls);
    void removeItem(const QUuid &id, const QUuid &itemID);
    void moveItem(const QUuid &id, const QUuid &itemID, qsizetype destination);
    void updateFolder(const QUuid &id, const std::function<void(DockFolder &)> &change);
    void resetEverything();

    // Dock apps

    // One thing at a time happens to a folder's Dock apps. An install waits for a rebuild that has
    // begun; a rebuild that is asked for during an install is done after it, if it failed. Both
    // build from the folder as it is after all waits, and leave one that has gone alone.

    /// Builds the folder's Dock app and launches it in front; a failure becomes the error message.
    /// Nothing while one of the folder is being installed.
    QCoro::Task<> installProxy(QUuid id);
    /// Installs the Dock apps of all folders, each by itself: one that fails does not stop the
    /// others. Nothing while they are being installed.
    void installAllProxies();
    /// Rebuilds the folder's installed Dock apps in the background; nothing when there are none or
    /// a rebuild of the folder has not ended.
    void scheduleProxyUpdate(const QUuid &id);
    /// Brings the Nestlet app that was found to the front. Fire and forget.
    void openNestlet();
    /// Shows the folder's Dock app in the file manager; nothing when it has none.
    void revealProxy(const QUuid &id);
    /// Looks again which folders are installed and whether there is a Nestlet app.
    void refreshPresence();
    /// The same when a Nestlet app has come, gone or moved, which is quick to see.
    void noticeNestlet();

    // Errors and updates

    void clearError();
    /// Starts a check unless one was started within the last hour.
    void checkForUpdatesIfNeeded();
    /// Hides the update for good: this build is not offered again.
    void dismissUpdate();
    void openUpdateDownload(const UpdateInfo &update);
    /// To be called whenever the application becomes the active one.
    void applicationBecameActive();

Q_SIGNALS:
    void foldersChanged();
    void lockedFolderIDsChanged();
    void errorMessageChanged();
    void availableUpdateChanged();
    /// The folder's Dock app was built and its launch begun, as `installProxy` or
    /// `installAllProxies` asked.
    void proxyInstalled(const QUuid &id);
    void installAllProgressChanged();
    /// What `isInstalled`, `isInstalling` or `isNestletInstalled` say may have changed.
    void presenceChanged();

private:
    friend struct CompanionStoreTestAccess; // locks folders, which no operation does

    void load();
    void save();
    void startWatching();
    void scheduleReload();
    void setFolders(const QList<DockFolder> &folders);
    void setErrorMessage(const QString &message);

    /// The folder guard: applies the change to the folder and saves, or returns false and does
    /// neither.
    bool editFolder(const QUuid &id, const std::function<void(DockFolder &)> &change);
    [[nodiscard]] std::optional<qsizetype> editableIndex(const QUuid &id) const;
    [[nodiscard]] QList<QUuid> unlockedFolderIDs() const;

    [[nodiscard]] bool canInstall(const QUuid &id) const;
    QCoro::Task<> install(QUuid id);
    QCoro::Task<> installOneOfAll(QUuid id);
    void setInstallAllProgress(const std::optional<InstallProgress> &progress);
    void refreshInstalledProxies();
    void startRebuild(const QUuid &id, const QList<FileURL> &proxies);
    QCoro::Task<> rebuildProxies(QUuid id, QList<FileURL> proxies);
    QCoro::Task<> fetchUpdateInfo();

    Collaborators m_;
    QList<DockFolder> m_folders;
    QString m_errorMessage;
    QSet<QUuid> m_lockedFolderIDs;
    std::optional<UpdateInfo> m_availableUpdate;
    std::unique_ptr<DirectoryWatch> m_jsonWatcher;
    std::unique_ptr<Timer> m_pendingReload;
    bool m_isReloading = false;
    bool m_hasUnsavedFolders = false; ///< made up for want of a library, or a save failed
    std::chrono::system_clock::time_point m_lastUpdateCheckDate{}; ///< 1970: distant enough
    std::map<QUuid, QCoro::Task<>> m_activeProxyUpdates; ///< the rebuilds, by folder
    QSet<QUuid> m_postponedProxyUpdateIDs; ///< asked for during an install
    QSet<QUuid> m_installingFolderIDs;
    std::optional<InstallProgress> m_installAllProgress;
    QHash<QUuid, QList<FileURL>> m_installedProxies; ///< by folder, when last looked
    std::optional<FileURL> m_nestletURL;
};

/// "Dock Folder <number>".
[[nodiscard]] DockFolder newDockFolder(qsizetype number);
