#include "ui/itemlistmodel.h"

#include "model/uuidtext.h"

void ItemListModel::setItems(const QList<DockFolderItem> &items)
{
    QList<ItemRow> rows;
    rows.reserve(items.size());
    for (const DockFolderItem &item : items)
        rows.append({.id = item.id, .name = item.name, .path = item.url.path()});
    updateRows(rows);
}

QVariant ItemListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ItemRow &row = rows().at(index.row());
    switch (role) {
    case ItemIDRole:
        return uuidText(row.id);
    case NameRole:
        return row.name;
    case PathRole:
        return row.path;
    default:
        return {};
    }
}

QHash<int, QByteArray> ItemListModel::roleNames() const
{
    return {{ItemIDRole, "itemID"}, {NameRole, "name"}, {PathRole, "path"}};
}
