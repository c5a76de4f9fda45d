#pragma once

#include "ui/applicationscan.h"

#include <QAbstractListModel>
#include <QFutureWatcher>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

#include <vector>

/// The installed applications that a search finds, and which of them are chosen. A row is a place
/// in the list and not an application: a search changes what the rows show and how many there are,
/// which keeps the view's cells and costs it nothing for the thousands that are out of sight.
class AppPickerModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ApplicationScan *scan READ scan WRITE setScan NOTIFY scanChanged)
    Q_PROPERTY(
        QStringList existingURLs READ existingURLs WRITE setExistingURLs NOTIFY existingURLsChanged)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(int count READ count NOTIFY contentChanged)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY contentChanged)
    Q_PROPERTY(bool hasNoMatches READ hasNoMatches NOTIFY contentChanged)
    Q_PROPERTY(int selectedCount READ selectedCount NOTIFY selectedCountChanged)

public:
    enum Role { URLRole = Qt::UserRole, NameRole, IsSelectedRole, AlreadyAddedRole };

    using QAbstractListModel::QAbstractListModel;

    /// Where the applications come from. Setting it starts a scan.
    [[nodiscard]] ApplicationScan *scan() const { return m_scan; }
    void setScan(ApplicationScan *scan);
    /// Texts of the URLs that cannot be chosen, as they are there already.
    [[nodiscard]] const QStringList &existingURLs() const { return m_existingURLs; }
    void setExistingURLs(const QStringList &urls);
    /// Part of the names that are shown, whatever the case; empty: all.
    [[nodiscard]] const QString &searchText() const { return m_searchText; }
    void setSearchText(const QString &text);

    [[nodiscard]] int count() const { return static_cast<int>(m_shown.size()); }
    [[nodiscard]] bool isLoading() const { return m_isLoading; }
    /// The search, and not the lack of applications, leaves nothing to show.
    [[nodiscard]] bool hasNoMatches() const;
    [[nodiscard]] int selectedCount() const { return m_selectedCount; }
    /// Texts of the chosen URLs in the order of the whole list, found by the search or not.
    Q_INVOKABLE [[nodiscard]] QStringList chosenURLs() const;
    /// Chooses the application in a row or takes it back; one that is there already stays as it is.
    Q_INVOKABLE void toggle(int row);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void scanChanged();
    void existingURLsChanged();
    void searchTextChanged();
    void contentChanged();
    void selectedCountChanged();

private:
    void showScanned();
    void markExisting();
    void showMatches();
    void setSelectedCount(int count);

    QPointer<ApplicationScan> m_scan;
    QFutureWatcher<ApplicationList> m_result;
    QStringList m_existingURLs;
    QString m_searchText;
    ApplicationList m_installed;
    QList<qsizetype> m_shown; ///< positions in the list of installed ones, one per row
    std::vector<bool> m_isAlreadyAdded; ///< one per installed application
    std::vector<bool> m_isSelected; ///< one per installed application
    int m_selectedCount = 0;
    bool m_isLoading = false;
};
