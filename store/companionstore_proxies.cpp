// When Dock apps are built: on request, after a rename or a change of the grid, and at each launch.

#include "store/companionstore.h"

#include "builder/proxydirectory.h"
#include "builder/templateapp.h"
#include "platform/error.h"
#include "platform/mainthread.h"
#include "platform/workspace.h"
#include "store/proxylifecycle.h"

#include <QHash>
#include <QPointer>

QCoro::Task<> CompanionStore::installProxy(QUuid id)
{
    requireMainThread();
    if (!folder(id) || isLocked(id) || id == appStoreFolderID())
        co_return;
    if (m_hasUnsavedFolders)
        save(); // or the next launch would not know the folder, and sweep its Dock app away
    const QPointer<CompanionStore> self(this);
    m_installingFolderIDs.insert(id);
    Q_EMIT presenceChanged();
    QString failure;
    try {
        co_await m_.proxies.install(id);
    } catch (const Error &error) {
        failure = error.description();
    }
    if (!self)
        co_return;
    m_installingFolderIDs.remove(id);
    if (!failure.isEmpty())
        setErrorMessage(failure);
    refreshPresence();
}

void CompanionStore::installAllProxies()
{
    requireMainThread();
    save();
    for (const QUuid &id : unlockedFolderIDs())
        installProxy(id);
}

void CompanionStore::scheduleProxyUpdate(const QUuid &id)
{
    requireMainThread();
    if (folder(id) && !m_activeProxyUpdateIDs.contains(id))
        startRebuild(id, m_.proxyDirectory.installedProxyURLs(id));
}

void CompanionStore::startRebuild(const QUuid &id, const QList<FileURL> &proxies)
{
    if (proxies.isEmpty() || m_activeProxyUpdateIDs.contains(id) || id == appStoreFolderID())
        return;
    m_activeProxyUpdateIDs.insert(id);
    rebuildProxies(id, proxies);
}

QCoro::Task<> CompanionStore::rebuildProxies(QUuid id, QList<FileURL> proxies)
{
    const QPointer<CompanionStore> self(this);
    for (const FileURL &proxy : proxies) {
        co_await m_.proxies.rebuild(id, proxy);
        if (!self)
            co_return;
    }
    m_activeProxyUpdateIDs.remove(id);
    refreshPresence();
}

void CompanionStore::refreshInstalledProxies()
{
    if (!m_.templateApp.isNestletInstalled())
        return;
    QHash<QUuid, QList<FileURL>> installed; // by one look at the directory for all folders
    for (const ProxyDirectory::Entry &entry : m_.proxyDirectory.entries()) {
        if (entry.folderID)
            installed[*entry.folderID].append(entry.url);
    }
    for (const DockFolder &folder : std::as_const(m_folders))
        startRebuild(folder.id, installed.value(folder.id));
}

void CompanionStore::revealProxy(const QUuid &id)
{
    requireMainThread();
    const QList<FileURL> proxies = m_.proxyDirectory.installedProxyURLs(id);
    if (!proxies.isEmpty())
        m_.platform.workspace->reveal(proxies);
}
