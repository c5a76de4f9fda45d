#include "ui/companionviewmodel.h"

#include "model/uuidtext.h"
#include "store/companionstore.h"

CompanionViewModel::CompanionViewModel(CompanionStore &store, PictureStore &pictures,
                                       ApplicationScan::Scan scanApplications, QObject *parent)
    : DropReceiver(parent)
    , m_store(store)
    , m_folders(store, pictures)
    , m_detail(store, pictures)
    , m_applicationScan(std::move(scanApplications))
{
    connect(&store, &CompanionStore::foldersChanged, this, &CompanionViewModel::keepSelectionValid);
    connect(&store, &CompanionStore::errorMessageChanged, this,
            &CompanionViewModel::errorMessageChanged);
    connect(&store, &CompanionStore::presenceChanged, this, &CompanionViewModel::presenceChanged);
    connect(&store, &CompanionStore::availableUpdateChanged, this,
            &CompanionViewModel::availableUpdateChanged);
    connect(&store, &CompanionStore::installAllProgressChanged, this,
            &CompanionViewModel::addAllProgressChanged);
    connect(&store, &CompanionStore::presenceChanged, this,
            &CompanionViewModel::announceInstalling);
    connect(&store, &CompanionStore::installAllProgressChanged, this,
            &CompanionViewModel::announceInstallingAll);
    connect(&store, &CompanionStore::proxyInstalled, this, &CompanionViewModel::announceInstalled);
}

QString CompanionViewModel::selection() const
{
    return m_selection ? uuidText(*m_selection) : QString();
}

void CompanionViewModel::setSelection(const QString &folderID)
{
    select(uuidFromText(folderID));
    m_store.noticeNestlet(); // without, a strip says so
}

void CompanionViewModel::select(const std::optional<QUuid> &id)
{
    if (m_selection == id)
        return;
    m_selection = id;
    m_detail.setFolder(id == appStoreFolderID() ? std::nullopt : id);
    Q_EMIT selectionChanged();
}

void CompanionViewModel::keepSelectionValid()
{
    if (m_selection != appStoreFolderID() && !selectedFolder())
        select(firstFolderID());
}

std::optional<DockFolder> CompanionViewModel::selectedFolder() const
{
    return m_selection ? m_store.folder(*m_selection) : std::nullopt;
}

std::optional<QUuid> CompanionViewModel::firstFolderID() const
{
    return m_store.folders().isEmpty() ? std::nullopt : std::optional(m_store.folders().first().id);
}

CompanionViewModel::DetailKind CompanionViewModel::detailKind() const
{
    if (m_selection == appStoreFolderID())
        return DetailKind::AppStoreFolder;
    return selectedFolder() ? DetailKind::Folder : DetailKind::Placeholder;
}

bool CompanionViewModel::isNestletInstalled() const
{
    return m_store.isNestletInstalled();
}

QString CompanionViewModel::nestletURL() const
{
    const auto &url = m_store.nestletURL();
    return url ? url->text() : QString();
}

bool CompanionViewModel::isUpdateAvailable() const
{
    return m_store.availableUpdate().has_value();
}

QString CompanionViewModel::availableVersion() const
{
    const auto &update = m_store.availableUpdate();
    return update ? update->version : QString();
}

int CompanionViewModel::addAllDone() const
{
    const auto &progress = m_store.installAllProgress();
    return static_cast<int>(progress ? progress->done : 0);
}

int CompanionViewModel::addAllTotal() const
{
    const auto &progress = m_store.installAllProgress();
    return static_cast<int>(progress ? progress->total : 0);
}

// When all begin at once, that is said once.
void CompanionViewModel::announceInstalling()
{
    QSet<QUuid> installing;
    for (const DockFolder &folder : m_store.folders()) {
        if (!m_store.isInstalling(folder.id))
            continue;
        installing.insert(folder.id);
        if (m_installingFolderIDs.contains(folder.id) || m_store.installAllProgress())
            continue;
        Q_EMIT announced(m_store.isInstalled(folder.id)
                             ? tr("Updating %1 in the Dock.").arg(folder.name)
                             : tr("Adding %1 to the Dock.").arg(folder.name));
    }
    m_installingFolderIDs = installing;
}

void CompanionViewModel::announceInstallingAll()
{
    if (const auto &progress = m_store.installAllProgress(); progress && progress->done == 0)
        Q_EMIT announced(tr("Adding all folders to the Dock."));
}

void CompanionViewModel::announceInstalled(const QUuid &id)
{
    const std::optional<DockFolder> folder = m_store.folder(id);
    if (folder)
        Q_EMIT announced(tr("%1 is in the Dock.").arg(folder->name));
}

QString CompanionViewModel::errorMessage() const
{
    return m_store.errorMessage();
}

void CompanionViewModel::createFolder()
{
    Q_EMIT folderCreated(uuidText(m_store.addFolder().id));
}

void CompanionViewModel::addAllToDock()
{
    m_store.installAllProxies();
}

void CompanionViewModel::resetEverything()
{
    m_store.resetEverything();
    select(firstFolderID());
}

void CompanionViewModel::clearError()
{
    m_store.clearError();
}

void CompanionViewModel::openNestlet()
{
    m_store.openNestlet();
}

void CompanionViewModel::downloadUpdate()
{
    if (const auto &update = m_store.availableUpdate())
        m_store.openUpdateDownload(*update);
}

void CompanionViewModel::dismissUpdate()
{
    m_store.dismissUpdate();
}

void CompanionViewModel::receiveDrop(const QString &folderID, const QList<FileURL> &urls)
{
    if (const std::optional<QUuid> id = uuidFromText(folderID))
        m_store.addItems(*id, urls);
}
