#pragma once

#include "model/dockfolder.h"
#include "ui/rowlistmodel.h"

#include <QtQml/qqmlregistration.h>

/// What the detail shows of one item.
struct ItemRow {
    QUuid id{};
    QString name{};
    QString path{};
    bool operator==(const ItemRow &) const = default;
};

/// The items of one folder, in its order.
class ItemListModel : public RowListModel<ItemRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by FolderDetailModel")

public:
    enum Role { ItemIDRole = Qt::UserRole, NameRole, PathRole };

    using RowListModel::RowListModel;

    void setItems(const QList<DockFolderItem> &items);

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
};
