#include "store/proxylifecycle.h"

#include "builder/infoplist.h"
#include "builder/proxybuilder.h"
#include "builder/proxydirectory.h"
#include "builder/templateapp.h"
#include "platform/clock.h"
#include "platform/filesystem.h"
#include "platform/runningapplications.h"
#include "system/docktiles.h"

#include <QPointer>

#include <algorithm>

using namespace std::chrono_literals;

namespace {

constexpr auto pollInterval = 50ms;
constexpr int maxPolls = 100;
constexpr auto settlePause = 200ms;

void logRebuildFailure(const QString &folderName, const Error &error)
{
    qWarning().noquote().nospace()
        << "Nestlet Companion: rebuild of '" << folderName << "' failed: " << error.description();
}

// The Dock app of the folder that Nestlet manages by itself: nobody else's to rebuild or remove.
bool isNestletsOwn(const ProxyDirectory::Entry &entry)
{
    return entry.folderID == appStoreFolderID();
}

} // namespace

ProxyLifecycle::ProxyLifecycle(const Collaborators &collaborators, FolderLookup folderNow,
                               EventTurns::Start start)
    : m_(collaborators)
    , m_folderNow(std::move(folderNow))
    , m_turns(start)
{
}

QCoro::Task<std::optional<ProxyLifecycle::Build>> ProxyLifecycle::prepare(QUuid folderID)
{
    const QPointer<ProxyLifecycle> self(this);
    co_await m_turns.next();
    if (!self || !m_folderNow(folderID))
        co_return std::nullopt;
    const FileURL templateApp = m_.templateApp.locateNestletApp();
    co_await terminateRunningProxies(folderID);
    if (!self)
        co_return std::nullopt;
    co_await m_turns.next();
    if (!self)
        co_return std::nullopt;
    // As it is now: during the waits it may have been renamed or have gone.
    const std::optional<DockFolder> folder = m_folderNow(folderID);
    if (!folder)
        co_return std::nullopt;
    co_return Build{.templateApp = templateApp, .folder = *folder};
}

QCoro::Task<> ProxyLifecycle::install(QUuid folderID)
{
    const std::optional<Build> build = co_await prepare(folderID);
    if (!build)
        co_return;

    // No wait from here on: another folder of the same name would be given the same place.
    const FileURL target = m_.directory.proxyAppURL(build->folder);
    for (const FileURL &proxy : m_.directory.installedProxyURLs(folderID)) {
        if (proxy.path() != target.path())
            unregisterAndRemove(proxy);
    }
    removeIfOccupied(target);
    m_.files.createDirectories(target.deletingLastPathComponent());
    m_.builder.buildProxy(build->templateApp, target, build->folder);
    launchProxy(target, Activation::Foreground);
}

QCoro::Task<> ProxyLifecycle::rebuild(QUuid folderID, FileURL proxy)
{
    try {
        const std::optional<Build> build = co_await prepare(folderID);
        if (!build)
            co_return;
        m_.files.remove(proxy);
        m_.builder.buildProxy(build->templateApp, proxy, build->folder);
        launchProxy(proxy, Activation::Background);
    } catch (const Error &error) { // right after a look at the folder: this and it are still here
        logRebuildFailure(m_folderNow(folderID).value_or(DockFolder{}).name, error);
    }
}

QCoro::Task<> ProxyLifecycle::terminateRunningProxies(QUuid folderID)
{
    const QPointer<ProxyLifecycle> self(this);
    const QString identifier = proxyBundleIdentifier(folderID);
    QList<RunningApplication> running = m_.applications.withBundleIdentifier(identifier);
    if (running.isEmpty())
        co_return;
    for (const RunningApplication &application : running)
        m_.applications.terminate(application);

    running = m_.applications.withBundleIdentifier(identifier);
    for (int polls = 0; !running.isEmpty();) {
        co_await m_.clock.sleep(pollInterval);
        if (!self)
            co_return;
        if (++polls == maxPolls)
            break;
        running = m_.applications.withBundleIdentifier(identifier);
    }
    for (const RunningApplication &application : m_.applications.withBundleIdentifier(identifier))
        m_.applications.forceTerminate(application);
    if (!m_.applications.withBundleIdentifier(identifier).isEmpty())
        co_await m_.clock.sleep(settlePause);
}

void ProxyLifecycle::launchProxy(const FileURL &proxy, Activation activation)
{
    const auto report = [self = QPointer(this)](const std::optional<PlatformError> &error) {
        if (self && error)
            Q_EMIT self->launchFailed(error->description());
    };
    m_.workspace.openApplication(proxy, activation, report);
}

void ProxyLifecycle::unregisterAndRemove(const FileURL &proxy)
{
    m_.dockTiles.unregisterDockTiles(proxy);
    ignoringErrors([&] { m_.files.remove(proxy); });
}

void ProxyLifecycle::removeIfOccupied(const FileURL &url)
{
    if (m_.files.isOccupied(url))
        m_.files.remove(url);
}

void ProxyLifecycle::removeProxies(const QUuid &folderID)
{
    if (folderID == appStoreFolderID())
        return;
    for (const RunningApplication &application :
         m_.applications.withBundleIdentifier(proxyBundleIdentifier(folderID)))
        m_.applications.terminate(application);
    for (const FileURL &proxy : m_.directory.installedProxyURLs(folderID))
        unregisterAndRemove(proxy);
}

void ProxyLifecycle::removeOrphanProxies(const QSet<QUuid> &folderIDs)
{
    for (const ProxyDirectory::Entry &entry : m_.directory.entries()) {
        if (entry.folderID && !folderIDs.contains(*entry.folderID) && !isNestletsOwn(entry))
            unregisterAndRemove(entry.url);
    }
}

void ProxyLifecycle::removeEverything(const QList<QUuid> &folderIDs)
{
    for (const QUuid &folderID : folderIDs)
        removeProxies(folderID);
    const QList<ProxyDirectory::Entry> entries = m_.directory.entries();
    for (const ProxyDirectory::Entry &entry : entries) {
        if (!isNestletsOwn(entry))
            unregisterAndRemove(entry.url);
    }
    if (std::ranges::none_of(entries, isNestletsOwn))
        ignoringErrors([this] { m_.files.remove(m_.directory.url()); });
}
