#pragma once

#include "ui/applicationscan.h"
#include "ui/dropreceiver.h"
#include "ui/folderdetailmodel.h"
#include "ui/folderlistmodel.h"

#include <QSet>

class CompanionStore;

/// The window's own state, which lives as long as the window: what is selected; and the commands
/// that concern no single folder.
class CompanionViewModel final : public DropReceiver {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")
    Q_PROPERTY(FolderListModel *folders READ folders CONSTANT)
    Q_PROPERTY(FolderDetailModel *detail READ detail CONSTANT)
    Q_PROPERTY(ApplicationScan *applicationScan READ applicationScan CONSTANT)
    Q_PROPERTY(QString selection READ selection WRITE setSelection NOTIFY selectionChanged)
    Q_PROPERTY(DetailKind detailKind READ detailKind NOTIFY selectionChanged)
    Q_PROPERTY(bool isNestletInstalled READ isNestletInstalled NOTIFY presenceChanged)
    Q_PROPERTY(QString nestletURL READ nestletURL NOTIFY presenceChanged)
    Q_PROPERTY(bool isUpdateAvailable READ isUpdateAvailable NOTIFY availableUpdateChanged)
    Q_PROPERTY(QString availableVersion READ availableVersion NOTIFY availableUpdateChanged)
    Q_PROPERTY(int addAllDone READ addAllDone NOTIFY addAllProgressChanged)
    Q_PROPERTY(int addAllTotal READ addAllTotal NOTIFY addAllProgressChanged)
    Q_PROPERTY(QString errorMessage READ errorMessage NOTIFY errorMessageChanged)

public:
    enum class DetailKind { Placeholder, AppStoreFolder, Folder };
    Q_ENUM(DetailKind)

    /// The scan finds the installed applications; what it uses outlives the view model.
    CompanionViewModel(CompanionStore &store, PictureStore &pictures,
                       ApplicationScan::Scan scanApplications = {}, QObject *parent = nullptr);

    [[nodiscard]] FolderListModel *folders() { return &m_folders; }
    [[nodiscard]] FolderDetailModel *detail() { return &m_detail; }
    [[nodiscard]] ApplicationScan *applicationScan() { return &m_applicationScan; }
    /// The selected folder's id as text; empty: none. Starts empty.
    [[nodiscard]] QString selection() const;
    void setSelection(const QString &folderID);
    [[nodiscard]] DetailKind detailKind() const;
    [[nodiscard]] bool isNestletInstalled() const;
    /// Text of the Nestlet app's URL; empty: there is none.
    [[nodiscard]] QString nestletURL() const;
    /// Whether there is an update to offer.
    [[nodiscard]] bool isUpdateAvailable() const;
    /// Of that update, as its feed has it: it may be empty.
    [[nodiscard]] QString availableVersion() const;
    /// How many of the folders have been added to the Dock, while all of them are being added.
    [[nodiscard]] int addAllDone() const;
    /// 0: nothing of the kind is going on.
    [[nodiscard]] int addAllTotal() const;
    /// Empty: there is no error to show.
    [[nodiscard]] QString errorMessage() const;

    Q_INVOKABLE void createFolder();
    Q_INVOKABLE void addAllToDock();
    Q_INVOKABLE void resetEverything();
    Q_INVOKABLE void clearError();
    Q_INVOKABLE void openNestlet();
    Q_INVOKABLE void downloadUpdate();
    Q_INVOKABLE void dismissUpdate();
    void receiveDrop(const QString &folderID, const QList<FileURL> &urls) override;

Q_SIGNALS:
    void selectionChanged();
    void errorMessageChanged();
    void presenceChanged();
    void availableUpdateChanged();
    void addAllProgressChanged();
    /// Something is to be said to those who don't see the window; the same may be said again.
    void announced(const QString &text);
    /// The user has made a folder, which is in the list now.
    void folderCreated(const QString &folderID);

private:
    void select(const std::optional<QUuid> &id);
    void keepSelectionValid();
    void announceInstalling();
    void announceInstallingAll();
    void announceInstalled(const QUuid &id);
    [[nodiscard]] std::optional<DockFolder> selectedFolder() const;
    [[nodiscard]] std::optional<QUuid> firstFolderID() const;

    CompanionStore &m_store;
    FolderListModel m_folders;
    FolderDetailModel m_detail;
    ApplicationScan m_applicationScan;
    std::optional<QUuid> m_selection; ///< a damaged library may hold the null id
    QSet<QUuid> m_installingFolderIDs; ///< when last looked
};
