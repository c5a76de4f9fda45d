#include "ui/imagebrowsermodel.h"

using Outcome = PictureListing::Outcome;

ImageBrowserModel::ImageBrowserModel(QObject *parent)
    : RowListModel(parent)
{
    connect(&m_listing, &QFutureWatcherBase::finished, this, [this] {
        setIsLoading(false);
        show(m_listing.result());
    });
}

QVariant ImageBrowserModel::value(const PictureEntry &row, int role) const
{
    switch (role) {
    case URLRole:
        return row.id.text();
    case NameRole:
        return row.name;
    case IsDirectoryRole:
        return row.isDirectory;
    default:
        return {};
    }
}

QHash<int, QByteArray> ImageBrowserModel::roleNames() const
{
    return {{URLRole, "url"}, {NameRole, "name"}, {IsDirectoryRole, "isDirectory"}};
}

void ImageBrowserModel::setPanels(SystemPanels *panels)
{
    if (m_panels == panels)
        return;
    m_panels = panels;
    if (m_panels)
        await(m_panels->browseFirst());
    Q_EMIT panelsChanged();
}

bool ImageBrowserModel::hasParent() const
{
    return m_directory.isFileURL() && m_directory.path() != u"/";
}

QString ImageBrowserModel::placeName(int place) const
{
    using Kind = PicturePlace::Kind;
    if (place < 0 || place >= placeCount())
        return {};
    switch (m_places.at(place).kind) {
    case Kind::Home:
        return m_places.at(place).url.lastPathComponent();
    case Kind::Desktop:
        return tr("Desktop");
    case Kind::Documents:
        return tr("Documents");
    case Kind::Downloads:
        return tr("Downloads");
    case Kind::Pictures:
        return tr("Pictures");
    }
    return {};
}

QString ImageBrowserModel::placeSymbol(int place) const
{
    using Kind = PicturePlace::Kind;
    if (place < 0 || place >= placeCount())
        return {};
    switch (m_places.at(place).kind) {
    case Kind::Home:
        return QStringLiteral("house");
    case Kind::Desktop:
        return QStringLiteral("desktopcomputer");
    case Kind::Documents:
        return QStringLiteral("doc");
    case Kind::Downloads:
        return QStringLiteral("arrow.down.circle");
    case Kind::Pictures:
        return QStringLiteral("photo");
    }
    return {};
}

QString ImageBrowserModel::placeURL(int place) const
{
    return m_places.value(place).url.text();
}

void ImageBrowserModel::open(const QString &urlText)
{
    const std::optional<FileURL> url = FileURL::fromText(urlText);
    if (m_panels && url && url->isFileURL())
        await(m_panels->browse(*url));
}

void ImageBrowserModel::openPath(const QString &path)
{
    if (!m_panels)
        return;
    if (const std::optional<FileURL> url = urlOfTypedPath(path, m_panels->home(), m_directory))
        await(m_panels->browse(*url));
    else
        Q_EMIT refused(tr("There is nothing at this path."));
}

void ImageBrowserModel::openParent()
{
    if (hasParent())
        open(m_directory.deletingLastPathComponent().text());
}

// The answer to an earlier question, if it has not come yet, is never heard.
void ImageBrowserModel::await(const QFuture<PictureListing> &listing)
{
    m_listing.setFuture(listing);
    setIsLoading(true);
}

void ImageBrowserModel::setIsLoading(bool isLoading)
{
    if (m_isLoading == isLoading)
        return;
    m_isLoading = isLoading;
    Q_EMIT isLoadingChanged();
}

void ImageBrowserModel::show(const PictureListing &listing)
{
    showPlaces(listing.places);
    switch (listing.outcome) {
    case Outcome::Directory:
        showDirectory(listing);
        return;
    case Outcome::Picture:
        Q_EMIT pictureFound(listing.url.text());
        return;
    case Outcome::OtherFile:
        Q_EMIT refused(tr("This is no picture that can be an icon."));
        return;
    case Outcome::Unreadable:
        Q_EMIT refused(tr("This folder can’t be opened."));
        return;
    case Outcome::Nothing:
        Q_EMIT refused(tr("There is nothing at this path."));
        return;
    }
}

void ImageBrowserModel::showDirectory(const PictureListing &listing)
{
    const bool isAnother = listing.url != m_directory;
    m_directory = listing.url;
    if (isAnother)
        updateRows({}); // none stays: no need to compare
    updateRows(listing.entries);
    if (isAnother)
        Q_EMIT directoryChanged();
    Q_EMIT opened();
}

void ImageBrowserModel::showPlaces(const QList<PicturePlace> &places)
{
    if (m_places == places)
        return;
    m_places = places;
    Q_EMIT placesChanged();
}

void ImageBrowserModel::rememberDirectory()
{
    if (m_panels)
        m_panels->setLastDirectory(m_directory);
}

QString ImageBrowserModel::urlAt(int row) const
{
    return rows().value(row).id.text();
}

bool ImageBrowserModel::isPictureAt(int row) const
{
    return row >= 0 && row < rowCount() && !rows().at(row).isDirectory;
}

int ImageBrowserModel::rowStartingWith(const QString &text, int row) const
{
    return nextRowStartingWith(text, row, [](const PictureEntry &entry) { return entry.name; });
}
