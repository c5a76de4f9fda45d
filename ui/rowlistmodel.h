#pragma once

#include <QAbstractListModel>
#include <QSet>

#include <algorithm>

/// A list model whose rows are values with an `id`. New rows arrive whole; what differs reaches the
/// views as removals, insertions, moves and changes, never as a reset, so that selection, focus,
/// scroll position and text being typed stay. `Row` needs `id` and `operator==`.
template <typename Row> class RowListModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }

protected:
    [[nodiscard]] const QList<Row> &rows() const { return m_rows; }

    void updateRows(const QList<Row> &wanted)
    {
        removeMissing(wanted);
        for (int row = 0; row < wanted.size(); ++row)
            placeRow(row, wanted.at(row));
        removeBehind(static_cast<int>(wanted.size()));
    }

private:
    // Left over when an id that a damaged library held twice is there once only.
    void removeBehind(int count)
    {
        if (m_rows.size() <= count)
            return;
        beginRemoveRows({}, count, static_cast<int>(m_rows.size()) - 1);
        m_rows.resize(count);
        endRemoveRows();
    }

    void removeMissing(const QList<Row> &wanted)
    {
        QSet<decltype(Row::id)> ids;
        for (const Row &row : wanted)
            ids.insert(row.id);
        for (int row = static_cast<int>(m_rows.size()) - 1; row >= 0; --row) {
            if (ids.contains(m_rows.at(row).id))
                continue;
            beginRemoveRows({}, row, row);
            m_rows.removeAt(row);
            endRemoveRows();
        }
    }

    // Brings `wanted` to `row` by the smallest change a view can animate; rows above are in place.
    void placeRow(int row, const Row &wanted)
    {
        if (const int current = rowFrom(row, wanted); current < 0) {
            beginInsertRows({}, row, row);
            m_rows.insert(row, wanted);
            endInsertRows();
        } else if (current != row) {
            beginMoveRows({}, current, current, {}, row);
            m_rows.move(current, row);
            endMoveRows();
        }
        if (m_rows.at(row) != wanted) {
            m_rows[row] = wanted;
            Q_EMIT dataChanged(index(row), index(row));
        }
    }

    int rowFrom(int start, const Row &wanted) const
    {
        const auto found
            = std::find_if(m_rows.begin() + std::min<qsizetype>(start, m_rows.size()), m_rows.end(),
                           [&](const Row &row) { return row.id == wanted.id; });
        return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
    }

    QList<Row> m_rows;
};
