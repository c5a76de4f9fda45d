#pragma once

#include <QAbstractListModel>
#include <QSet>

#include <algorithm>
#include <optional>

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
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const final
    {
        const bool isRow = this->checkIndex(index, CheckIndexOption::IndexIsValid);
        return isRow ? value(m_rows.at(index.row()), role) : QVariant();
    }

protected:
    using ID = decltype(Row::id);

    /// What a row shows under a role, which depends on nothing else; invalid when it is none.
    [[nodiscard]] virtual QVariant value(const Row &row, int role) const = 0;

    [[nodiscard]] const QList<Row> &rows() const { return m_rows; }

    /// -1: no row has the id.
    [[nodiscard]] int rowWithID(const std::optional<ID> &id) const
    {
        const auto found = std::ranges::find(m_rows, id, &Row::id);
        return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
    }

    /// The next row after `row`, going round, whose text begins so, whatever the case; -1: none.
    template <typename TextOf>
    [[nodiscard]] int nextRowStartingWith(const QString &text, int row, TextOf textOf) const
    {
        const int count = rowCount();
        for (int step = 1; step <= count; ++step) {
            const int candidate = (std::max(row, -1) + step) % count;
            if (textOf(m_rows.at(candidate)).startsWith(text, Qt::CaseInsensitive))
                return candidate;
        }
        return -1;
    }

    void updateRows(const QList<Row> &wanted)
    {
        if (const auto differing = std::ranges::mismatch(m_rows, wanted, {}, &Row::id, &Row::id);
            differing.in1 != m_rows.end() || differing.in2 != wanted.end()) {
            if (!m_rows.isEmpty())
                removeMissing(wanted);
            placeRows(wanted);
        }
        changeRows(wanted);
    }

private:
    static QSet<ID> idsOf(const QList<Row> &rows)
    {
        QSet<ID> ids;
        ids.reserve(rows.size());
        for (const Row &row : rows)
            ids.insert(row.id);
        return ids;
    }

    void removeMissing(const QList<Row> &wanted)
    {
        const QSet<ID> ids = idsOf(wanted);
        for (int end = static_cast<int>(m_rows.size()); end > 0;) {
            int first = end;
            while (first > 0 && !ids.contains(m_rows.at(first - 1).id))
                --first;
            removeRun(first, end);
            end = std::max(first - 1, 0);
        }
    }

    void removeRun(int first, int end)
    {
        if (first == end)
            return;
        beginRemoveRows({}, first, end - 1);
        m_rows.remove(first, end - first);
        endRemoveRows();
    }

    // Brings every wanted row to its place by the fewest changes that a view can animate.
    void placeRows(const QList<Row> &wanted)
    {
        QSet<ID> known = idsOf(m_rows);
        for (int row = 0; row < wanted.size(); ++row) {
            if (row < m_rows.size() && m_rows.at(row).id == wanted.at(row).id)
                continue;
            if (const int current = rowFrom(row, wanted.at(row).id); current >= 0) {
                if (current == row + 1) // the row in between went down, most likely
                    moveRow(row, placeOf(m_rows.at(row).id, wanted, row));
                if (m_rows.at(row).id != wanted.at(row).id)
                    moveRow(rowFrom(row, wanted.at(row).id), row);
                continue;
            }
            int end = row + 1;
            while (end < wanted.size() && !known.contains(wanted.at(end).id))
                ++end;
            insertRun(wanted, row, end);
        }
        // Left over when an id that a damaged library held twice is there once only.
        removeRun(static_cast<int>(wanted.size()), static_cast<int>(m_rows.size()));
    }

    // Where a row that is not in place yet goes, as far as the list reaches now.
    int placeOf(const ID &id, const QList<Row> &wanted, int start) const
    {
        const auto found = std::ranges::find(wanted.begin() + start, wanted.end(), id, &Row::id);
        return static_cast<int>(std::min(std::distance(wanted.begin(), found), m_rows.size() - 1));
    }

    void moveRow(int from, int to)
    {
        if (from == to)
            return;
        beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
        m_rows.move(from, to);
        endMoveRows();
    }

    void insertRun(const QList<Row> &wanted, int first, int end)
    {
        beginInsertRows({}, first, end - 1);
        m_rows = m_rows.first(first) + wanted.sliced(first, end - first) + m_rows.sliced(first);
        endInsertRows();
    }

    void changeRows(const QList<Row> &wanted)
    {
        const QList<int> allRoles = this->roleNames().keys();
        for (int row = 0; row < wanted.size(); ++row) {
            if (m_rows.at(row) == wanted.at(row))
                continue;
            QList<int> roles = allRoles;
            roles.removeIf([&](int role) {
                return value(m_rows.at(row), role) == value(wanted.at(row), role);
            });
            m_rows[row] = wanted.at(row);
            if (!roles.isEmpty())
                Q_EMIT dataChanged(index(row), index(row), roles);
        }
    }

    int rowFrom(int start, const ID &id) const
    {
        const auto begin = m_rows.begin() + std::min<qsizetype>(start, m_rows.size());
        const auto found = std::ranges::find(begin, m_rows.end(), id, &Row::id);
        return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
    }

    QList<Row> m_rows;
};
