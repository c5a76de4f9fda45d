#pragma once

#include "ui/folderdetailmodel.h"
#include "ui/folderlistmodel.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

class CompanionStore;

/// The window's own state, which lives as long as the window: what is selected; and the commands
/// that concern no single folder.
class CompanionViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")
    Q_PROPERTY(FolderListModel *folders READ folders CONSTANT)
    Q_PROPERTY(FolderDetailModel *detail READ detail CONSTANT)
    Q_PROPERTY(QString selection READ selection WRITE setSelection NOTIFY selectionChanged)
    Q_PROPERTY(DetailKind detailKind READ detailKind NOTIFY selectionChanged)
    Q_PROPERTY(QString errorMessage READ errorMessage NOTIFY errorMessageChanged)

public:
    enum class DetailKind { Placeholder, AppStoreFolder, Folder };
    Q_ENUM(DetailKind)

    explicit CompanionViewModel(CompanionStore &store, QObject *parent = nullptr);

    [[nodiscard]] FolderListModel *folders() { return &m_folders; }
    [[nodiscard]] FolderDetailModel *detail() { return &m_detail; }
    /// The selected folder's id as text; empty: none. Starts empty.
    [[nodiscard]] QString selection() const;
    void setSelection(const QString &folderID);
    [[nodiscard]] DetailKind detailKind() const;
    /// Empty: there is no error to show.
    [[nodiscard]] QString errorMessage() const;

    Q_INVOKABLE void createFolder();
    Q_INVOKABLE void addAllToDock();
    Q_INVOKABLE void resetEverything();
    Q_INVOKABLE void clearError();
    /// Texts of file URLs, dropped on a folder's row.
    Q_INVOKABLE void addItems(const QString &folderID, const QStringList &urls);

Q_SIGNALS:
    void selectionChanged();
    void errorMessageChanged();

private:
    void select(const QUuid &id);
    void keepSelectionValid();
    [[nodiscard]] QUuid firstFolderID() const;

    CompanionStore &m_store;
    FolderListModel m_folders;
    FolderDetailModel m_detail;
    QUuid m_selection;
};
