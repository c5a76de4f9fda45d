#pragma once

#include <QAbstractItemModelTester>
#include <QAbstractListModel>
#include <QStringList>

/// Notes what a list model tells its views, while Qt's own tester holds it to the rules.
class ModelChanges : public QObject {
public:
    explicit ModelChanges(QAbstractListModel &model)
        : m_tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest)
    {
        connect(&model, &QAbstractItemModel::rowsInserted, this,
                [this](const QModelIndex &, int first, int last) { note(u"insert", first, last); });
        connect(&model, &QAbstractItemModel::rowsRemoved, this,
                [this](const QModelIndex &, int first, int last) { note(u"remove", first, last); });
        connect(&model, &QAbstractItemModel::rowsMoved, this,
                [this](const QModelIndex &, int first, int, const QModelIndex &, int row) {
                    note(u"move", first, row);
                });
        connect(&model, &QAbstractItemModel::dataChanged, this,
                [this, &model](const QModelIndex &first, const QModelIndex &last,
                               const QList<int> &roles) {
                    note(u"change", first.row(), last.row());
                    if (!roles.isEmpty())
                        m_notes.last() += u' ' + names(model, roles);
                });
        connect(&model, &QAbstractItemModel::modelReset, this,
                [this] { m_notes.append(QStringLiteral("reset")); });
    }

    /// What was told since the last call: "insert 1-1", "move 2-0" (from, to), "change 0-0 name",
    /// "reset" …
    [[nodiscard]] QStringList take() { return std::exchange(m_notes, {}); }

private:
    static QString names(const QAbstractListModel &model, const QList<int> &roles)
    {
        QStringList names;
        for (const int role : roles)
            names.append(QString::fromLatin1(model.roleNames().value(role)));
        names.sort();
        return names.join(u' ');
    }

    void note(QStringView what, int first, int last)
    {
        m_notes.append(QStringLiteral("%1 %2-%3").arg(what).arg(first).arg(last));
    }

    QAbstractItemModelTester m_tester;
    QStringList m_notes;
};

/// The values of one role, from the first row to the last.
[[nodiscard]] inline QStringList texts(const QAbstractListModel &model, int role)
{
    QStringList values;
    for (int row = 0; row < model.rowCount(); ++row)
        values.append(model.index(row).data(role).toString());
    return values;
}
