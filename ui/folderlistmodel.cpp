#include "ui/folderlistmodel.h"

#include "model/dockfolder.h"
#include "model/uuidtext.h"
#include "store/companionstore.h"

FolderListModel::FolderListModel(CompanionStore &store, QObject *parent)
    : RowListModel(parent)
    , m_store(store)
{
    connect(&store, &CompanionStore::foldersChanged, this, &FolderListModel::update);
    connect(&store, &CompanionStore::presenceChanged, this, &FolderListModel::update);
    connect(&store, &CompanionStore::lockedFolderIDsChanged, this, &FolderListModel::update);
    update();
}

FolderRow FolderListModel::rowFor(const QUuid &id, const QString &name, bool isLocked) const
{
    const bool isInstalled = m_store.isInstalled(id);
    const QString status = isLocked ? tr("Belongs to the App Store app")
        : isInstalled               ? tr("Ready in Dock")
                                    : tr("Not added yet");
    return {
        .id = id, .name = name, .status = status, .isLocked = isLocked, .isInstalled = isInstalled};
}

void FolderListModel::update()
{
    QList<FolderRow> rows;
    rows.reserve(m_store.folders().size() + 1);
    if (m_store.isNestletInstalled())
        rows.append(rowFor(appStoreFolderID(), tr("Nestlet"), true));
    for (const DockFolder &folder : m_store.folders())
        rows.append(rowFor(folder.id, folder.name, m_store.isLocked(folder.id)));
    updateRows(rows);
}

QVariant FolderListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const FolderRow &row = rows().at(index.row());
    switch (role) {
    case FolderIDRole:
        return uuidText(row.id);
    case NameRole:
        return row.name;
    case StatusRole:
        return row.status;
    case IsLockedRole:
        return row.isLocked;
    case IsInstalledRole:
        return row.isInstalled;
    default:
        return {};
    }
}

QHash<int, QByteArray> FolderListModel::roleNames() const
{
    return {{FolderIDRole, "folderID"},
            {NameRole, "name"},
            {StatusRole, "status"},
            {IsLockedRole, "isLocked"},
            {IsInstalledRole, "isInstalled"}};
}

QString FolderListModel::folderIDAt(int row) const
{
    return row >= 0 && row < rows().size() ? uuidText(rows().at(row).id) : QString();
}

int FolderListModel::rowOf(const QString &folderID) const
{
    const std::optional<QUuid> id = uuidFromText(folderID);
    const auto found = std::ranges::find(rows(), id, &FolderRow::id);
    return found == rows().end() ? -1 : static_cast<int>(std::distance(rows().begin(), found));
}
