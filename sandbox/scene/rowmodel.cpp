#include "sandbox/scene/rowmodel.h"

#include <algorithm>

RowModel::RowModel(const QStringList &roles, QObject *parent)
    : QAbstractListModel(parent)
    , m_roles(roles)
{
}

int RowModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant RowModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role < Qt::UserRole)
        return {};
    return m_rows.at(index.row()).values.value(m_roles.value(role - Qt::UserRole));
}

QHash<int, QByteArray> RowModel::roleNames() const
{
    QHash<int, QByteArray> names;
    for (int i = 0; i < m_roles.size(); ++i)
        names.insert(Qt::UserRole + i, m_roles.at(i).toUtf8());
    return names;
}

void RowModel::setRows(const QList<Row> &wanted)
{
    const int before = count();
    removeUnwanted(wanted);
    for (int row = 0; row < wanted.size(); ++row)
        placeRow(row, wanted.at(row));
    if (count() != before)
        Q_EMIT countChanged();
}

void RowModel::removeUnwanted(const QList<Row> &wanted)
{
    for (int row = count() - 1; row >= 0; --row) {
        if (std::ranges::find(wanted, m_rows.at(row).key, &Row::key) != wanted.end())
            continue;
        beginRemoveRows({}, row, row);
        m_rows.removeAt(row);
        endRemoveRows();
    }
}

// Rows above `row` are in place.
void RowModel::placeRow(int row, const Row &wanted)
{
    const auto found = std::ranges::find(m_rows, wanted.key, &Row::key);
    const int current = static_cast<int>(found - m_rows.begin());
    if (current == count()) {
        beginInsertRows({}, row, row);
        m_rows.insert(row, wanted);
        endInsertRows();
    } else if (current != row) {
        beginMoveRows({}, current, current, {}, row);
        m_rows.move(current, row);
        endMoveRows();
    }
    if (m_rows.at(row) == wanted)
        return;
    m_rows[row] = wanted;
    Q_EMIT dataChanged(index(row), index(row));
}
