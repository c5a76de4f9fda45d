#pragma once

#include "ui/rowlistmodel.h"
#include "ui/systempanels.h"

#include <QFutureWatcher>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

/// What the window's own open panel shows of a directory: its directories and its pictures, sorted
/// by name. The files are looked at off the main thread; the directory that is shown stays until
/// the next one has been read, and who asks again wants nothing of what was asked before.
class ImageBrowserModel : public RowListModel<PictureEntry> {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(SystemPanels *panels READ panels WRITE setPanels NOTIFY panelsChanged)
    Q_PROPERTY(QString directoryPath READ directoryPath NOTIFY directoryChanged)
    Q_PROPERTY(QString directoryURL READ directoryURL NOTIFY directoryChanged)
    Q_PROPERTY(bool hasParent READ hasParent NOTIFY directoryChanged)
    Q_PROPERTY(int placeCount READ placeCount NOTIFY placesChanged)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY isLoadingChanged)

public:
    enum Role { URLRole = Qt::UserRole, NameRole, IsDirectoryRole };

    explicit ImageBrowserModel(QObject *parent = nullptr);

    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    [[nodiscard]] SystemPanels *panels() const { return m_panels; }
    /// Begins where a picture was last chosen, or at the user's pictures.
    void setPanels(SystemPanels *panels);
    /// Empty texts until the first directory has been read.
    [[nodiscard]] QString directoryPath() const { return m_directory.path(); }
    [[nodiscard]] QString directoryURL() const { return m_directory.text(); }
    [[nodiscard]] bool hasParent() const;
    [[nodiscard]] bool isLoading() const { return m_isLoading; }

    // The user's own directories that are there, the home first.

    [[nodiscard]] int placeCount() const { return static_cast<int>(m_places.size()); }
    Q_INVOKABLE [[nodiscard]] QString placeName(int place) const;
    Q_INVOKABLE [[nodiscard]] QString placeSymbol(int place) const;
    Q_INVOKABLE [[nodiscard]] QString placeURL(int place) const;

    // What is opened is told by one signal: `opened`, `pictureFound` or `refused`.

    /// A directory or a file, given by its URL's text.
    Q_INVOKABLE void open(const QString &urlText);
    /// The same for a path as it is typed: an absolute one, one from the home ("~/…") or one from
    /// the directory that is shown.
    Q_INVOKABLE void openPath(const QString &path);
    Q_INVOKABLE void openParent();

    /// To be called when the user has chosen a picture of the directory that is shown.
    Q_INVOKABLE void rememberDirectory();

    Q_INVOKABLE [[nodiscard]] QString urlAt(int row) const;
    Q_INVOKABLE [[nodiscard]] bool isPictureAt(int row) const;
    /// The next row after `row`, going round, whose name begins with the text; -1: none.
    Q_INVOKABLE [[nodiscard]] int rowStartingWith(const QString &text, int row) const;

Q_SIGNALS:
    void panelsChanged();
    void placesChanged();
    void directoryChanged();
    void isLoadingChanged();
    /// The rows are now those of the directory that was asked for.
    void opened();
    void pictureFound(const QString &url);
    /// What is shown stays as it is.
    void refused(const QString &why);

private:
    [[nodiscard]] QVariant value(const PictureEntry &row, int role) const override;
    void await(const QFuture<PictureListing> &listing);
    void setIsLoading(bool isLoading);
    void show(const PictureListing &listing);
    void showDirectory(const PictureListing &listing);
    void showPlaces(const QList<PicturePlace> &places);

    QPointer<SystemPanels> m_panels;
    QFutureWatcher<PictureListing> m_listing;
    QList<PicturePlace> m_places;
    FileURL m_directory;
    bool m_isLoading = false;
};
