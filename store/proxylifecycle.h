#pragma once

#include "model/dockfolder.h"
#include "platform/workspace.h"
#include "store/eventturns.h"

#include <QCoroTask>
#include <QObject>
#include <QSet>

class Clock;
class DockTiles;
class FileSystem;
class ProxyBuilder;
class ProxyDirectory;
class RunningApplications;
class TemplateApp;

/// The life of Dock proxy apps: how they are built, launched, quit, replaced and removed. It
/// strings the builder's and the Dock's tools together and knows nothing of the library beyond the
/// folders it is given. Long operations are coroutines on the main thread; they let the user's
/// events in before each step that blocks.
class ProxyLifecycle final : public QObject {
    Q_OBJECT

public:
    struct Collaborators {
        const FileSystem &files;
        const TemplateApp &templateApp;
        const ProxyDirectory &directory;
        const ProxyBuilder &builder;
        const DockTiles &dockTiles;
        RunningApplications &applications;
        Workspace &workspace;
        Clock &clock;
    };
    /// The folder with an id as it is now; nothing when it is gone.
    using FolderLookup = std::function<std::optional<DockFolder>(const QUuid &)>;

    ProxyLifecycle(const Collaborators &collaborators, FolderLookup folderNow,
                   EventTurns::Start start);

    /// Builds the folder's proxy under its present name, removes those under old names and launches
    /// it in front. Throws CompanionError or PlatformError; a folder that goes meanwhile is left
    /// alone.
    QCoro::Task<> install(QUuid folderID);
    /// Builds an installed proxy anew where it is and launches it in the background. Failures go to
    /// the system log only.
    QCoro::Task<> rebuild(QUuid folderID, FileURL proxy);
    // The Dock app of the folder that Nestlet manages by itself is removed by none of these.

    /// Tells the folder's running copies to quit, without waiting, and removes its bundles and
    /// their Dock tiles. Errors are ignored.
    void removeProxies(const QUuid &folderID);
    /// Removes the bundles of all folders but those given. Errors are ignored.
    void removeOrphanProxies(const QSet<QUuid> &folderIDs);
    /// Removes the proxies of these folders, then whatever else is in the proxy directory, then the
    /// directory, unless something had to stay in it. Errors are ignored.
    void removeEverything(const QList<QUuid> &folderIDs);

    /// Lets long operations begin, if they were to wait for it.
    void release() { m_turns.release(); }

Q_SIGNALS:
    /// An application could not be launched; the reason.
    void launchFailed(const QString &description);

private:
    struct Build {
        FileURL templateApp{};
        DockFolder folder{};
    };
    /// How every build begins: finds the template and quits the running copies. Nothing when the
    /// folder goes meanwhile, or this object. Throws CompanionError.
    QCoro::Task<std::optional<Build>> prepare(QUuid folderID);
    /// Quits the running copies of a folder's proxy, by force those that have not gone after 5 s.
    QCoro::Task<> terminateRunningProxies(QUuid folderID);
    void launchProxy(const FileURL &proxy, Activation activation);
    void unregisterAndRemove(const FileURL &proxy);
    void removeIfOccupied(const FileURL &url);

    Collaborators m_;
    FolderLookup m_folderNow;
    EventTurns m_turns;
};
