#pragma once

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QVariantMap>

/// One row: what it is, and what it shows by role name.
struct Row {
    QString key{};
    QVariantMap values{};
    bool operator==(const Row &) const = default;
};

/// A list of rows that changes row by row, so that views keep theirs.
class RowModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    explicit RowModel(const QStringList &roles, QObject *parent = nullptr);

    [[nodiscard]] int count() const { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] const QList<Row> &rows() const { return m_rows; }
    void setRows(const QList<Row> &wanted);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();

private:
    void removeUnwanted(const QList<Row> &wanted);
    void placeRow(int row, const Row &wanted);

    QStringList m_roles;
    QList<Row> m_rows;
};
