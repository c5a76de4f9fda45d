#include "ui/itemlistmodel.h"

#include "model/uuidtext.h"

void ItemListModel::setItems(const QList<DockFolderItem> &items)
{
    QList<ItemRow> rows;
    rows.reserve(items.size());
    for (const DockFolderItem &item : items)
        rows.append({.id = item.id, .name = item.name, .url = item.url});
    updateRows(rows);
}

QVariant ItemListModel::value(const ItemRow &row, int role) const
{
    switch (role) {
    case ItemIDRole:
        return uuidText(row.id);
    case NameRole:
        return row.name;
    case URLRole:
        return row.url.text();
    case PathRole:
        return row.url.path();
    default:
        return {};
    }
}

QHash<int, QByteArray> ItemListModel::roleNames() const
{
    return {{ItemIDRole, "itemID"}, {NameRole, "name"}, {URLRole, "url"}, {PathRole, "path"}};
}

QString ItemListModel::itemIDAt(int row) const
{
    return row >= 0 && row < rows().size() ? uuidText(rows().at(row).id) : QString();
}

int ItemListModel::rowOf(const QString &itemID) const
{
    return rowWithID(uuidFromText(itemID));
}
