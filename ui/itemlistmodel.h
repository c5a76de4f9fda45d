#pragma once

#include "model/dockfolder.h"
#include "ui/rowlistmodel.h"

#include <QtQml/qqmlregistration.h>

/// What the detail shows of one item.
struct ItemRow {
    QUuid id{};
    QString name{};
    FileURL url{};
    bool operator==(const ItemRow &) const = default;
};

/// The items of one folder, in its order.
class ItemListModel : public RowListModel<ItemRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by FolderDetailModel")

public:
    enum Role {
        ItemIDRole = Qt::UserRole,
        NameRole,
        URLRole, ///< as text
        PathRole,
    };

    using RowListModel::RowListModel;

    void setItems(const QList<DockFolderItem> &items);

    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// The item of a row, as text; empty outside the list.
    Q_INVOKABLE [[nodiscard]] QString itemIDAt(int row) const;
    /// -1 when no row shows the item.
    Q_INVOKABLE [[nodiscard]] int rowOf(const QString &itemID) const;

private:
    [[nodiscard]] QVariant value(const ItemRow &row, int role) const override;
};
