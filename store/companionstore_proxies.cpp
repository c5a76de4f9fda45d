// When Dock apps are built: on request, after a rename or a change of the grid, and at each launch.

#include "store/companionstore.h"

#include "builder/proxydirectory.h"
#include "platform/error.h"
#include "platform/mainthread.h"
#include "platform/workspace.h"
#include "store/proxylifecycle.h"

#include <QPointer>

bool CompanionStore::canInstall(const QUuid &id) const
{
    return folder(id) && !isLocked(id) && !isInstalling(id) && id != appStoreFolderID();
}

QCoro::Task<> CompanionStore::installProxy(QUuid id)
{
    requireMainThread();
    if (!canInstall(id))
        co_return;
    if (m_hasUnsavedFolders)
        save(); // or the next launch would not know the folder, and sweep its Dock app away
    co_await install(id);
}

QCoro::Task<> CompanionStore::install(QUuid id)
{
    const QPointer<CompanionStore> self(this);
    m_installingFolderIDs.insert(id);
    Q_EMIT presenceChanged();
    QString failure;
    try {
        // A rebuild that went on would take what is launched here for an old copy, and quit it.
        if (const auto rebuild = m_activeProxyUpdates.find(id);
            rebuild != m_activeProxyUpdates.end())
            co_await rebuild->second;
        if (!self)
            co_return;
        co_await m_.proxies.install(id);
    } catch (const Error &error) {
        failure = error.description();
    }
    if (!self)
        co_return;
    m_installingFolderIDs.remove(id);
    if (!failure.isEmpty())
        setErrorMessage(failure);
    if (m_postponedProxyUpdateIDs.remove(id) && !failure.isEmpty())
        scheduleProxyUpdate(id);
    refreshPresence();
    if (failure.isEmpty() && folder(id)) // one that has gone was left alone
        Q_EMIT proxyInstalled(id);
}

void CompanionStore::installAllProxies()
{
    requireMainThread();
    if (m_installAllProgress)
        return;
    save();
    QList<QUuid> ids = unlockedFolderIDs();
    ids.removeIf([this](const QUuid &id) { return !canInstall(id); });
    if (ids.isEmpty())
        return;
    setInstallAllProgress(InstallProgress{.done = 0, .total = ids.size()});
    for (const QUuid &id : std::as_const(ids))
        installOneOfAll(id);
}

QCoro::Task<> CompanionStore::installOneOfAll(QUuid id)
{
    const QPointer<CompanionStore> self(this);
    co_await install(id);
    if (!self || !m_installAllProgress)
        co_return;
    InstallProgress progress = *m_installAllProgress;
    ++progress.done;
    setInstallAllProgress(progress.done < progress.total ? std::optional(progress) : std::nullopt);
}

void CompanionStore::setInstallAllProgress(const std::optional<InstallProgress> &progress)
{
    m_installAllProgress = progress;
    Q_EMIT installAllProgressChanged();
}

void CompanionStore::scheduleProxyUpdate(const QUuid &id)
{
    requireMainThread();
    if (isInstalling(id))
        m_postponedProxyUpdateIDs.insert(id);
    else if (folder(id) && !m_activeProxyUpdates.contains(id))
        startRebuild(id, m_.proxyDirectory.installedProxyURLs(id));
}

void CompanionStore::startRebuild(const QUuid &id, const QList<FileURL> &proxies)
{
    if (proxies.isEmpty() || m_activeProxyUpdates.contains(id) || id == appStoreFolderID())
        return;
    // It waits for its turn first, and so has not ended when it gets its place here.
    m_activeProxyUpdates.emplace(id, rebuildProxies(id, proxies));
}

QCoro::Task<> CompanionStore::rebuildProxies(QUuid id, QList<FileURL> proxies)
{
    const QPointer<CompanionStore> self(this);
    for (const FileURL &proxy : proxies) {
        co_await m_.proxies.rebuild(id, proxy);
        if (!self)
            co_return;
    }
    m_activeProxyUpdates.erase(id);
    refreshPresence();
}

void CompanionStore::refreshInstalledProxies()
{
    if (!m_nestletURL)
        return;
    for (const DockFolder &folder : std::as_const(m_folders))
        startRebuild(folder.id, m_installedProxies.value(folder.id)); // as the load found them
}

void CompanionStore::openNestlet()
{
    requireMainThread();
    if (m_nestletURL)
        m_.platform.workspace->openApplication(*m_nestletURL, Activation::Foreground,
                                               [](const std::optional<PlatformError> &) {});
}

void CompanionStore::revealProxy(const QUuid &id)
{
    requireMainThread();
    const QList<FileURL> proxies = m_.proxyDirectory.installedProxyURLs(id);
    if (!proxies.isEmpty())
        m_.platform.workspace->reveal(proxies);
}
