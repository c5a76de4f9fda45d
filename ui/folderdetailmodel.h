#pragma once

#include "ui/itemlistmodel.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

class CompanionStore;

/// The selected folder as its detail shows it, and what its controls do.
class FolderDetailModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by CompanionViewModel")
    Q_PROPERTY(QString folderID READ folderID NOTIFY folderIDChanged)
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(bool isLocked READ isLocked NOTIFY changed)
    Q_PROPERTY(bool isInstalled READ isInstalled NOTIFY changed)
    Q_PROPERTY(bool isInstalling READ isInstalling NOTIFY changed)
    Q_PROPERTY(int itemCount READ itemCount NOTIFY changed)
    Q_PROPERTY(ItemListModel *items READ items CONSTANT)
    Q_PROPERTY(QString accentColorHex READ accentColorHex NOTIFY changed)
    Q_PROPERTY(QString iconSymbol READ iconSymbol NOTIFY changed)
    Q_PROPERTY(bool hasCustomIcon READ hasCustomIcon NOTIFY changed)
    Q_PROPERTY(QString pictureSource READ pictureSource NOTIFY changed)
    Q_PROPERTY(int gridColumns READ gridColumns NOTIFY changed)
    Q_PROPERTY(int previewColumns READ previewColumns NOTIFY changed)
    Q_PROPERTY(QStringList previewURLs READ previewURLs NOTIFY changed)

public:
    explicit FolderDetailModel(CompanionStore &store, QObject *parent = nullptr);

    /// A null id, or one that is not in the library, shows nothing.
    void setFolder(const QUuid &id);

    [[nodiscard]] QString folderID() const;
    [[nodiscard]] QString name() const { return m_folder.name; }
    [[nodiscard]] bool isLocked() const;
    [[nodiscard]] bool isInstalled() const;
    [[nodiscard]] bool isInstalling() const;
    [[nodiscard]] int itemCount() const { return m_items.rowCount(); }
    [[nodiscard]] ItemListModel *items() { return &m_items; }
    /// "#RRGGBB"; empty: none was chosen, or it can't be read.
    [[nodiscard]] QString accentColorHex() const;
    /// Empty: none.
    [[nodiscard]] QString iconSymbol() const;
    [[nodiscard]] bool hasCustomIcon() const { return m_folder.customIconData.has_value(); }
    /// Of an image; empty: none.
    [[nodiscard]] QString pictureSource() const;
    /// 0: automatic.
    [[nodiscard]] int gridColumns() const;
    [[nodiscard]] int previewColumns() const;
    [[nodiscard]] QStringList previewURLs() const;

    /// Commits an edited name and returns the text that the field is to show then.
    Q_INVOKABLE QString commitName(const QString &draft);
    Q_INVOKABLE void showInDock();
    Q_INVOKABLE void revealInFinder();
    Q_INVOKABLE void removeFolder();
    /// Texts of file URLs.
    Q_INVOKABLE void addItems(const QStringList &urls);
    Q_INVOKABLE void removeItem(const QString &itemID);
    /// Moves an item so that it ends at `index`, which is brought into the list's bounds.
    Q_INVOKABLE void moveItem(const QString &itemID, int index);
    /// Empty: none.
    Q_INVOKABLE void setIconSymbol(const QString &symbol);
    /// "#RRGGBB"; empty: none.
    Q_INVOKABLE void setAccentColor(const QString &hex);
    /// 0: automatic.
    Q_INVOKABLE void setGridColumns(int columns);

Q_SIGNALS:
    void folderIDChanged();
    void changed();

private:
    void update();

    CompanionStore &m_store;
    DockFolder m_folder;
    ItemListModel m_items;
};
