#include "ui/folderlistmodel.h"

#include "model/folderpreview.h"
#include "model/uuidtext.h"
#include "store/companionstore.h"
#include "ui/picturestore.h"

FolderListModel::FolderListModel(CompanionStore &store, PictureStore &pictures, QObject *parent)
    : RowListModel(parent)
    , m_store(store)
    , m_pictures(pictures)
{
    connect(&store, &CompanionStore::foldersChanged, this, &FolderListModel::update);
    connect(&store, &CompanionStore::presenceChanged, this, &FolderListModel::update);
    connect(&store, &CompanionStore::lockedFolderIDsChanged, this, &FolderListModel::update);
    update();
}

FolderRow FolderListModel::rowFor(const DockFolder &folder, bool isLocked) const
{
    return {.id = folder.id,
            .folder = folder,
            .pictureSource = m_pictures.pictureSource(folder),
            .isLocked = isLocked,
            .isInstalled = m_store.isInstalled(folder.id)};
}

void FolderListModel::update()
{
    const int formerFirst = firstMovableRow();
    QList<FolderRow> rows;
    rows.reserve(m_store.folders().size() + 1);
    m_hasAppStoreRow = m_store.isNestletInstalled();
    if (m_hasAppStoreRow)
        rows.append(rowFor({.id = appStoreFolderID(), .name = tr("Nestlet")}, true));
    for (const DockFolder &folder : m_store.folders()) {
        if (!m_hasAppStoreRow || folder.id != appStoreFolderID())
            rows.append(rowFor(folder, m_store.isLocked(folder.id)));
    }
    m_pictures.keepOnly(m_store.folders());
    const bool isReordered
        = !std::ranges::equal(this->rows(), rows, {}, &FolderRow::id, &FolderRow::id);
    updateRows(rows);
    if (firstMovableRow() != formerFirst)
        Q_EMIT firstMovableRowChanged();
    if (isReordered)
        Q_EMIT orderChanged();
}

QString FolderListModel::status(const FolderRow &row)
{
    if (row.isLocked)
        return tr("Belongs to the App Store app");
    return row.isInstalled ? tr("Ready in Dock") : tr("Not added yet");
}

QVariant FolderListModel::value(const FolderRow &row, int role) const
{
    switch (role) {
    case FolderIDRole:
        return uuidText(row.id);
    case NameRole:
        return row.folder.name;
    case StatusRole:
        return status(row);
    case IsLockedRole:
        return row.isLocked;
    case IsInstalledRole:
        return row.isInstalled;
    case AccentColorRole:
        return previewColor(row.folder);
    case IconSymbolRole:
        return row.folder.iconSymbol.value_or(QString());
    case PictureSourceRole:
        return row.pictureSource;
    case PreviewURLsRole:
        return previewURLs(row.folder);
    case PreviewColumnsRole:
        return previewColumns(row.folder);
    default:
        return {};
    }
}

QHash<int, QByteArray> FolderListModel::roleNames() const
{
    return {{FolderIDRole, "folderID"},       {NameRole, "name"},
            {StatusRole, "status"},           {IsLockedRole, "isLocked"},
            {IsInstalledRole, "isInstalled"}, {AccentColorRole, "accentColorHex"},
            {IconSymbolRole, "iconSymbol"},   {PictureSourceRole, "pictureSource"},
            {PreviewURLsRole, "previewURLs"}, {PreviewColumnsRole, "previewColumns"}};
}

QString FolderListModel::folderIDAt(int row) const
{
    return row >= 0 && row < rows().size() ? uuidText(rows().at(row).id) : QString();
}

int FolderListModel::rowOf(const QString &folderID) const
{
    return rowWithID(uuidFromText(folderID));
}

int FolderListModel::rowStartingWith(const QString &text, int row) const
{
    return nextRowStartingWith(text, row, [](const FolderRow &shown) { return shown.folder.name; });
}

int FolderListModel::firstMovableRow() const
{
    return m_hasAppStoreRow ? 1 : 0;
}

void FolderListModel::moveFolder(const QString &folderID, int row)
{
    const int sourceRow = rowOf(folderID);
    if (sourceRow < firstMovableRow())
        return;
    const int targetRow = std::clamp(row, firstMovableRow(), rowCount() - 1);
    const qsizetype source = libraryPlace(rows().at(sourceRow).id);
    const qsizetype target = libraryPlace(rows().at(targetRow).id);
    if (source != target)
        m_store.moveFolders({source}, target > source ? target + 1 : target);
}

// A library may hold folders that have no row here.
qsizetype FolderListModel::libraryPlace(const QUuid &id) const
{
    const QList<DockFolder> &folders = m_store.folders();
    return std::ranges::find(folders, id, &DockFolder::id) - folders.begin();
}
