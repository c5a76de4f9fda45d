#pragma once

#include "ui/rowlistmodel.h"

#include <QUuid>
#include <QtQml/qqmlregistration.h>

class CompanionStore;

/// What the sidebar shows of one folder.
struct FolderRow {
    QUuid id{};
    QString name{};
    QString status{}; ///< the caption while no drag hovers
    bool isLocked{};
    bool isInstalled{};
    bool operator==(const FolderRow &) const = default;
};

/// The rows of the sidebar: the App Store folder while Nestlet is there, then the library's
/// folders.
class FolderListModel final : public RowListModel<FolderRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by CompanionViewModel")

public:
    enum Role { FolderIDRole = Qt::UserRole, NameRole, StatusRole, IsLockedRole, IsInstalledRole };

    explicit FolderListModel(CompanionStore &store, QObject *parent = nullptr);

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// The folder of a row, as text; empty outside the list.
    Q_INVOKABLE [[nodiscard]] QString folderIDAt(int row) const;
    /// -1 when no row shows the folder.
    Q_INVOKABLE [[nodiscard]] int rowOf(const QString &folderID) const;

private:
    void update();
    [[nodiscard]] FolderRow rowFor(const QUuid &id, const QString &name, bool isLocked) const;

    CompanionStore &m_store;
};
