#pragma once

#include "ui/iconimageloader.h"
#include "ui/itemlistmodel.h"
#include "ui/throttle.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

class CompanionStore;
class PictureStore;

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
    Q_PROPERTY(QStringList itemURLs READ itemURLs NOTIFY changed)
    Q_PROPERTY(QString accentColorHex READ accentColorHex NOTIFY changed)
    Q_PROPERTY(QString iconSymbol READ iconSymbol NOTIFY changed)
    Q_PROPERTY(bool hasCustomIcon READ hasCustomIcon NOTIFY changed)
    Q_PROPERTY(QString pictureSource READ pictureSource NOTIFY changed)
    Q_PROPERTY(int gridColumns READ gridColumns NOTIFY changed)
    Q_PROPERTY(int previewColumns READ previewColumns NOTIFY changed)
    Q_PROPERTY(QStringList previewURLs READ previewURLs NOTIFY changed)

public:
    /// The pictures of folders that it tells of are put there.
    FolderDetailModel(CompanionStore &store, PictureStore &pictures, QObject *parent = nullptr);
    ~FolderDetailModel() override;

    /// None, or one that is not in the library, shows nothing.
    void setFolder(const std::optional<QUuid> &id);

    [[nodiscard]] QString folderID() const;
    [[nodiscard]] QString name() const { return m_folder.name; }
    [[nodiscard]] bool isLocked() const;
    [[nodiscard]] bool isInstalled() const;
    [[nodiscard]] bool isInstalling() const;
    [[nodiscard]] int itemCount() const { return m_items.rowCount(); }
    [[nodiscard]] ItemListModel *items() { return &m_items; }
    /// Texts of the URLs of all items.
    [[nodiscard]] QStringList itemURLs() const;
    /// "#RRGGBB"; empty: none was chosen, or it can't be read.
    [[nodiscard]] QString accentColorHex() const;
    /// Empty: none.
    [[nodiscard]] QString iconSymbol() const;
    [[nodiscard]] bool hasCustomIcon() const;
    /// Of an image; empty: none.
    [[nodiscard]] QString pictureSource() const;
    /// 0: automatic; -1: a number that is none of columns.
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
    /// Makes the picture of a file, given by its URL's text, the folder's icon when it has been
    /// read. A file that holds no picture changes nothing.
    Q_INVOKABLE void loadCustomImage(const QString &urlText, const QString &folderID = {});
    /// "#RRGGBB"; empty: none. Shown at once; of the many colours of a drag only some are stored,
    /// and always the last.
    Q_INVOKABLE void setAccentColor(const QString &hex);
    /// 0: automatic.
    Q_INVOKABLE void setGridColumns(int columns);

Q_SIGNALS:
    void folderIDChanged();
    void changed();

private:
    void update();

    CompanionStore &m_store;
    PictureStore &m_pictures;
    std::optional<QUuid> m_id;
    DockFolder m_folder; ///< with that id, whether it is there or not
    ItemListModel m_items;
    IconImageLoader m_iconImages;
    std::optional<QString> m_chosenColor; ///< counts while a change waits
    std::unique_ptr<Clock> m_clock;
    Throttle m_colorChanges;
};
