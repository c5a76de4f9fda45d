#pragma once

#include "platform/fileurl.h"
#include "ui/rowlistmodel.h"
#include "ui/systempanels.h"

#include <QPointer>
#include <QtQml/qqmlregistration.h>

/// An entry of the directory that is shown.
struct ImageBrowserRow {
    QString id{}; ///< the text of its URL
    QString name{};
    bool isDirectory{};
    bool operator==(const ImageBrowserRow &) const = default;
};

/// What the window's own open panel shows of a directory: its directories and its pictures, sorted
/// by name.
class ImageBrowserModel : public RowListModel<ImageBrowserRow> {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(SystemPanels *panels READ panels WRITE setPanels NOTIFY panelsChanged)
    Q_PROPERTY(QString directoryName READ directoryName NOTIFY directoryChanged)
    Q_PROPERTY(QString directoryPath READ directoryPath NOTIFY directoryChanged)
    Q_PROPERTY(QString directoryURL READ directoryURL NOTIFY directoryChanged)
    Q_PROPERTY(bool hasParent READ hasParent NOTIFY directoryChanged)
    Q_PROPERTY(int placeCount READ placeCount NOTIFY panelsChanged)

public:
    enum Role { URLRole = Qt::UserRole, NameRole, IsDirectoryRole };

    using RowListModel::RowListModel;

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    [[nodiscard]] SystemPanels *panels() const { return m_panels; }
    /// Begins where a picture was last chosen, or at the user's pictures.
    void setPanels(SystemPanels *panels);
    [[nodiscard]] QString directoryName() const;
    [[nodiscard]] QString directoryPath() const { return m_directory.path(); }
    [[nodiscard]] QString directoryURL() const { return m_directory.text(); }
    [[nodiscard]] bool hasParent() const;

    // The user's own directories that are there, the home first.

    [[nodiscard]] int placeCount() const { return static_cast<int>(m_places.size()); }
    Q_INVOKABLE [[nodiscard]] QString placeName(int place) const;
    Q_INVOKABLE [[nodiscard]] QString placeSymbol(int place) const;
    Q_INVOKABLE [[nodiscard]] QString placeURL(int place) const;

    /// Shows another directory, given by its URL's text. False, and nothing changes, when it can't
    /// be read.
    Q_INVOKABLE bool openDirectory(const QString &urlText);
    Q_INVOKABLE void openParent();
    /// Shows the directory again as it is now.
    Q_INVOKABLE void refresh();

    /// The URL of what a path names: an absolute one, one from the home ("~/…") or one from the
    /// directory that is shown. Empty when nothing is there.
    Q_INVOKABLE [[nodiscard]] QString urlOfPath(const QString &path) const;
    Q_INVOKABLE [[nodiscard]] bool isDirectory(const QString &urlText) const;
    /// Whether the name or URL of a file is that of a picture that can be an icon.
    Q_INVOKABLE [[nodiscard]] static bool isPicture(const QString &name);
    /// To be called when the user has chosen a picture of the directory that is shown.
    Q_INVOKABLE void rememberDirectory();

    Q_INVOKABLE [[nodiscard]] QString urlAt(int row) const;
    /// The next row after `row`, going round, whose name begins with the text; -1: none.
    Q_INVOKABLE [[nodiscard]] int rowStartingWith(const QString &text, int row) const;
    /// -1: none.
    Q_INVOKABLE [[nodiscard]] int rowOf(const QString &urlText) const;

Q_SIGNALS:
    void panelsChanged();
    void directoryChanged();

private:
    struct Place {
        FileURL url;
        QString name;
        QString symbol;
    };

    [[nodiscard]] QList<Place> existingPlaces() const;
    [[nodiscard]] FileURL firstDirectory() const;
    [[nodiscard]] std::optional<QList<ImageBrowserRow>> entriesOf(const FileURL &directory) const;

    QPointer<SystemPanels> m_panels;
    QList<Place> m_places;
    FileURL m_directory;
};
