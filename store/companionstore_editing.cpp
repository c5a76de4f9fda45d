// What the user changes in the library: guard, one change, save, follow-up.

#include "store/companionstore.h"

#include "model/libraryfile.h"
#include "model/newitem.h"
#include "platform/bookmarks.h"
#include "platform/filesystem.h"
#include "platform/mainthread.h"
#include "store/movebyoffsets.h"
#include "store/proxylifecycle.h"

#include <algorithm>

std::optional<qsizetype> CompanionStore::editableIndex(const QUuid &id) const
{
    if (isLocked(id))
        return std::nullopt;
    const auto found = std::ranges::find(m_folders, id, &DockFolder::id);
    if (found == m_folders.end())
        return std::nullopt;
    return std::distance(m_folders.begin(), found);
}

bool CompanionStore::editFolder(const QUuid &id, const std::function<void(DockFolder &)> &change)
{
    const std::optional<qsizetype> index = editableIndex(id);
    if (!index)
        return false;
    DockFolder edited = m_folders.at(*index);
    change(edited);
    m_folders[*index] = edited;
    Q_EMIT foldersChanged();
    save();
    return true;
}

QList<QUuid> CompanionStore::unlockedFolderIDs() const
{
    QList<QUuid> ids;
    for (const DockFolder &folder : m_folders) {
        if (!isLocked(folder.id))
            ids.append(folder.id);
    }
    return ids;
}

DockFolder CompanionStore::addFolder()
{
    requireMainThread();
    DockFolder folder = newDockFolder(m_folders.size() + 1);
    setFolders(m_folders + QList{folder});
    save();
    return folder;
}

void CompanionStore::moveFolders(const std::set<qsizetype> &sources, qsizetype destination)
{
    requireMainThread();
    setFolders(movedByOffsets(m_folders, sources, destination));
    save();
}

void CompanionStore::deleteFolder(const QUuid &id)
{
    requireMainThread();
    const std::optional<qsizetype> index = editableIndex(id);
    if (!index)
        return;
    m_.proxies.removeProxies(id);
    QList<DockFolder> remaining = m_folders;
    remaining.removeAt(*index);
    if (remaining.isEmpty())
        remaining.append(newDockFolder(1));
    setFolders(remaining);
    save();
    refreshPresence();
}

void CompanionStore::renameFolder(const QUuid &id, const QString &name)
{
    requireMainThread();
    const QString trimmed = name.trimmed();
    if (!trimmed.isEmpty() && editFolder(id, [&](DockFolder &folder) { folder.name = trimmed; }))
        scheduleProxyUpdate(id);
}

void CompanionStore::setAccentColor(const QUuid &id, const std::optional<QString> &hex)
{
    requireMainThread();
    editFolder(id, [&](DockFolder &folder) { folder.accentColorHex = hex; });
}

void CompanionStore::setIconSymbol(const QUuid &id, const std::optional<QString> &symbol)
{
    requireMainThread();
    editFolder(id, [&](DockFolder &folder) {
        folder.iconSymbol = symbol;
        folder.customIconData.reset();
    });
}

void CompanionStore::setCustomIcon(const QUuid &id, const QByteArray &image)
{
    requireMainThread();
    editFolder(id, [&](DockFolder &folder) {
        folder.customIconData = image;
        folder.iconSymbol.reset();
    });
}

void CompanionStore::setGridColumns(const QUuid &id, std::optional<qint64> columns)
{
    requireMainThread();
    if (editFolder(id, [&](DockFolder &folder) { folder.gridColumns = columns; }))
        scheduleProxyUpdate(id);
}

void CompanionStore::addItems(const QUuid &id, const QList<FileURL> &urls)
{
    requireMainThread();
    editFolder(id, [&](DockFolder &folder) {
        // Not extended below: a URL that is given twice is added twice.
        QSet<FileURL> known;
        for (const DockFolderItem &item : std::as_const(folder.items))
            known.insert(item.url);
        for (const FileURL &url : urls) {
            if (!known.contains(url))
                folder.items.append(itemFromURL(url, *m_.platform.files, *m_.platform.bookmarks));
        }
    });
}

void CompanionStore::removeItem(const QUuid &id, const QUuid &itemID)
{
    requireMainThread();
    editFolder(id, [&](DockFolder &folder) {
        folder.items.removeIf([&](const DockFolderItem &item) { return item.id == itemID; });
    });
}

void CompanionStore::moveItem(const QUuid &id, const QUuid &itemID, qsizetype destination)
{
    requireMainThread();
    const std::optional<qsizetype> index = editableIndex(id);
    if (!index)
        return;
    const QList<DockFolderItem> &items = m_folders.at(*index).items;
    const auto found = std::ranges::find(items, itemID, &DockFolderItem::id);
    if (found == items.end())
        return;
    const qsizetype source = std::distance(items.begin(), found);
    editFolder(id, [&](DockFolder &folder) {
        folder.items = movedByOffsets(folder.items, {source}, destination);
    });
}

void CompanionStore::updateFolder(const QUuid &id, const std::function<void(DockFolder &)> &change)
{
    requireMainThread();
    editFolder(id, change);
}

void CompanionStore::resetEverything()
{
    requireMainThread();
    m_.proxies.removeEverything(unlockedFolderIDs());
    m_.folderLibrary.removeAll();
    clearError();
    m_hasUnsavedFolders = true;
    setFolders({newDockFolder(1)});
    refreshPresence();
}
