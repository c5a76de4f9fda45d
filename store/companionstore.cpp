#include "store/companionstore.h"

#include "builder/proxydirectory.h"
#include "builder/templateapp.h"
#include "model/libraryfile.h"
#include "platform/clock.h"
#include "platform/directorywatcher.h"
#include "platform/error.h"
#include "platform/filesystem.h"
#include "platform/mainthread.h"
#include "platform/text.h"
#include "store/proxylifecycle.h"

#include <algorithm>

using namespace std::chrono_literals;

namespace {

// Long enough for a writer to finish, short enough to seem at once.
constexpr auto reloadDelay = 180ms;

} // namespace

DockFolder newDockFolder(qsizetype number)
{
    return {.id = QUuid::createUuid(),
            .name = filledIn(CompanionStore::tr("Dock Folder %lld"), number)};
}

CompanionStore::CompanionStore(const Collaborators &collaborators)
    : m_(collaborators)
    , m_pendingReload(m_.platform.clock->makeTimer([this] { load(); }))
{
    connect(&m_.proxies, &ProxyLifecycle::launchFailed, this, &CompanionStore::setErrorMessage);
}

CompanionStore::~CompanionStore() = default;

void CompanionStore::start()
{
    requireMainThread();
    load();
    startWatching();
    refreshInstalledProxies();
    checkForUpdatesIfNeeded();
}

const QList<DockFolder> &CompanionStore::folders() const
{
    requireMainThread();
    return m_folders;
}

std::optional<DockFolder> CompanionStore::folder(const QUuid &id) const
{
    requireMainThread();
    const auto found = std::ranges::find(m_folders, id, &DockFolder::id);
    return found == m_folders.end() ? std::nullopt : std::optional(*found);
}

const QString &CompanionStore::errorMessage() const
{
    requireMainThread();
    return m_errorMessage;
}

const QSet<QUuid> &CompanionStore::lockedFolderIDs() const
{
    requireMainThread();
    return m_lockedFolderIDs;
}

bool CompanionStore::isLocked(const QUuid &id) const
{
    requireMainThread();
    return m_lockedFolderIDs.contains(id);
}

bool CompanionStore::isInstalled(const QUuid &id) const
{
    requireMainThread();
    return m_installedProxies.contains(id);
}

bool CompanionStore::isInstalling(const QUuid &id) const
{
    requireMainThread();
    return m_installingFolderIDs.contains(id);
}

const std::optional<CompanionStore::InstallProgress> &CompanionStore::installAllProgress() const
{
    requireMainThread();
    return m_installAllProgress;
}

bool CompanionStore::isNestletInstalled() const
{
    requireMainThread();
    return m_nestletURL.has_value();
}

const std::optional<FileURL> &CompanionStore::nestletURL() const
{
    requireMainThread();
    return m_nestletURL;
}

void CompanionStore::load()
{
    requireMainThread();
    m_isReloading = true;
    const LibraryFile::Contents read = m_.folderLibrary.load();
    const bool hadLockedFolders = !std::exchange(m_lockedFolderIDs, {}).isEmpty();
    if (hadLockedFolders)
        Q_EMIT lockedFolderIDsChanged();
    // A file that is what it was has nothing to tell, while here may be more: what could not be
    // saved, or the folder made up for want of a library.
    if (!read.isUnchanged || hadLockedFolders || m_folders.isEmpty()) {
        m_hasUnsavedFolders = !read.folders;
        setFolders(read.folders ? *read.folders : QList{newDockFolder(1)});
    }
    QSet<QUuid> ids;
    for (const DockFolder &folder : std::as_const(m_folders))
        ids.insert(folder.id);
    m_.proxies.removeOrphanProxies(ids);
    m_isReloading = false;
    refreshPresence();
}

void CompanionStore::save()
{
    requireMainThread();
    if (m_isReloading)
        return;
    DockFolderLibrary library{.folders = m_folders};
    library.folders.removeIf([this](const DockFolder &folder) { return isLocked(folder.id); });
    library.selectedFolderID = m_folders.isEmpty() ? fallbackFolder().id : m_folders.first().id;
    m_hasUnsavedFolders = true;
    try {
        m_.folderLibrary.save(library);
        m_hasUnsavedFolders = false;
    } catch (const Error &error) {
        setErrorMessage(error.description());
    }
}

void CompanionStore::startWatching()
{
    const FileURL directory = m_.folderLibrary.directory();
    ignoringErrors([&] { m_.platform.files->createDirectories(directory); });
    m_jsonWatcher = m_.platform.watcher->watch(directory, [this] { scheduleReload(); });
}

void CompanionStore::scheduleReload()
{
    requireMainThread();
    m_pendingReload->start(reloadDelay);
}

void CompanionStore::setFolders(const QList<DockFolder> &folders)
{
    if (m_folders == folders)
        return;
    m_folders = folders;
    Q_EMIT foldersChanged();
}

void CompanionStore::setErrorMessage(const QString &message)
{
    requireMainThread();
    if (m_errorMessage == message)
        return;
    m_errorMessage = message;
    Q_EMIT errorMessageChanged();
}

void CompanionStore::clearError()
{
    setErrorMessage({});
}

void CompanionStore::applicationBecameActive()
{
    requireMainThread();
    refreshPresence();
    checkForUpdatesIfNeeded();
}

void CompanionStore::noticeNestlet()
{
    requireMainThread();
    if (m_.templateApp.installedNestletURL() != m_nestletURL)
        refreshPresence();
}

void CompanionStore::refreshPresence()
{
    requireMainThread();
    m_installedProxies = m_.proxyDirectory.installedProxies();
    m_nestletURL = m_.templateApp.installedNestletURL();
    Q_EMIT presenceChanged();
}
