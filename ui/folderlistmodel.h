#pragma once

#include "model/dockfolder.h"
#include "ui/rowlistmodel.h"

#include <QtQml/qqmlregistration.h>

class CompanionStore;
class PictureStore;

/// What the sidebar shows of one folder.
struct FolderRow {
    QUuid id{}; ///< the folder's
    DockFolder folder{}; ///< shares its data with the store's
    QString pictureSource{}; ///< of an image; empty: none
    bool isLocked{};
    bool isInstalled{};
    bool operator==(const FolderRow &) const = default;
};

/// The rows of the sidebar: the App Store folder while Nestlet is there, then the library's
/// folders, but for the App Store folder should one hold it.
class FolderListModel final : public RowListModel<FolderRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by CompanionViewModel")
    Q_PROPERTY(int firstMovableRow READ firstMovableRow NOTIFY firstMovableRowChanged)

public:
    enum Role {
        FolderIDRole = Qt::UserRole,
        NameRole,
        StatusRole, ///< the caption while no drag hovers
        IsLockedRole,
        IsInstalledRole,
        AccentColorRole, ///< "#RRGGBB", or empty: none that can be read
        IconSymbolRole, ///< empty: none
        PictureSourceRole, ///< of an image; empty: none
        PreviewURLsRole, ///< of the first items, as texts
        PreviewColumnsRole,
    };

    /// The pictures of folders that it tells of are put there.
    FolderListModel(CompanionStore &store, PictureStore &pictures, QObject *parent = nullptr);

    /// How many rows stand before the library's first.
    [[nodiscard]] int firstMovableRow() const;

    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// The folder of a row, as text; empty outside the list.
    Q_INVOKABLE [[nodiscard]] QString folderIDAt(int row) const;
    /// -1 when no row shows the folder.
    Q_INVOKABLE [[nodiscard]] int rowOf(const QString &folderID) const;
    /// The next row after `row`, going round, whose name begins with the text; -1: none.
    Q_INVOKABLE [[nodiscard]] int rowStartingWith(const QString &text, int row) const;
    /// Moves a folder so that it ends at `row`. The App Store folder stays first.
    Q_INVOKABLE void moveFolder(const QString &folderID, int row);

Q_SIGNALS:
    void firstMovableRowChanged();
    /// Rows have come, gone or moved, and all are in place.
    void orderChanged();

private:
    [[nodiscard]] QVariant value(const FolderRow &row, int role) const override;
    void update();
    [[nodiscard]] FolderRow rowFor(const DockFolder &folder, bool isLocked) const;
    [[nodiscard]] static QString status(const FolderRow &row);
    /// Of one that is there.
    [[nodiscard]] qsizetype libraryPlace(const QUuid &id) const;

    CompanionStore &m_store;
    PictureStore &m_pictures;
    bool m_hasAppStoreRow = false;
};
