#include "ui/imagebrowsermodel.h"

#include "platform/directories.h"
#include "platform/error.h"
#include "platform/filesystem.h"

#include <QCollator>
#include <QLocale>

#include <algorithm>
#include <array>

namespace {

constexpr std::array pictureExtensions{"png", "jpg", "jpeg", "jpe",  "tif", "tiff",
                                       "bmp", "dib", "icns", "heic", "heif"};

bool isPackage(const FileURL &directory)
{
    return directory.pathExtension().compare(u"app", Qt::CaseInsensitive) == 0;
}

FileURL asDirectory(const FileURL &url)
{
    return url.hasDirectoryPath() ? url : FileURL::directory(url.path());
}

// As a Mac sorts names: by the user's language, numbers by their value.
void sortByName(QList<ImageBrowserRow> &rows)
{
    // The locale of no language knows no numbers.
    const QLocale locale;
    QCollator collator(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::ranges::sort(rows, [&](const ImageBrowserRow &first, const ImageBrowserRow &second) {
        const int order = collator.compare(first.name, second.name);
        return order != 0 ? order < 0 : first.name < second.name;
    });
}

} // namespace

QVariant ImageBrowserModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ImageBrowserRow &row = rows().at(index.row());
    switch (role) {
    case URLRole:
        return row.id;
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
    if (m_panels) {
        m_places = existingPlaces();
        openDirectory(firstDirectory().text());
    }
    Q_EMIT panelsChanged();
}

QList<ImageBrowserModel::Place> ImageBrowserModel::existingPlaces() const
{
    const FileURL home = m_panels->directories().home();
    const auto inHome
        = [&](const char *name) { return home.appendingDirectory(QString::fromLatin1(name)); };
    QList<Place> places{{home, home.lastPathComponent(), QStringLiteral("house")},
                        {inHome("Desktop"), tr("Desktop"), QStringLiteral("desktopcomputer")},
                        {inHome("Documents"), tr("Documents"), QStringLiteral("doc")},
                        {inHome("Downloads"), tr("Downloads"), QStringLiteral("arrow.down.circle")},
                        {inHome("Pictures"), tr("Pictures"), QStringLiteral("photo")}};
    places.removeIf(
        [this](const Place &place) { return !m_panels->files().isDirectory(place.url); });
    return places;
}

FileURL ImageBrowserModel::firstDirectory() const
{
    const FileURL home = m_panels->directories().home();
    for (const FileURL &directory : {m_panels->lastDirectory().value_or(FileURL()),
                                     home.appendingDirectory(QStringLiteral("Pictures")), home}) {
        if (directory.isFileURL() && m_panels->files().isDirectory(directory))
            return directory;
    }
    return FileURL::directory(QStringLiteral("/"));
}

QString ImageBrowserModel::directoryName() const
{
    return m_directory.lastPathComponent();
}

bool ImageBrowserModel::hasParent() const
{
    return m_directory.path() != u"/";
}

QString ImageBrowserModel::placeName(int place) const
{
    return m_places.value(place).name;
}

QString ImageBrowserModel::placeSymbol(int place) const
{
    return m_places.value(place).symbol;
}

QString ImageBrowserModel::placeURL(int place) const
{
    return m_places.value(place).url.text();
}

std::optional<QList<ImageBrowserRow>> ImageBrowserModel::entriesOf(const FileURL &directory) const
{
    const FileSystem &files = m_panels->files();
    QList<ImageBrowserRow> entries;
    try {
        for (const DirectoryEntry &entry : files.visibleEntries(directory)) {
            const FileURL url = directory.appendingFile(entry.name);
            const bool isFolder
                = entry.isDirectory || (!isPicture(entry.name) && files.isDirectory(url));
            if (isFolder && !isPackage(url))
                entries.append({directory.appendingDirectory(entry.name).text(), entry.name, true});
            else if (!isFolder && isPicture(entry.name))
                entries.append({url.text(), entry.name, false});
        }
    } catch (const Error &) {
        return std::nullopt;
    }
    sortByName(entries);
    return entries;
}

bool ImageBrowserModel::openDirectory(const QString &urlText)
{
    const std::optional<FileURL> url = FileURL::fromText(urlText);
    if (!url || !url->isFileURL() || !m_panels)
        return false;
    const FileURL directory = asDirectory(*url);
    const std::optional<QList<ImageBrowserRow>> entries = entriesOf(directory);
    if (!entries)
        return false;
    const bool isAnother = directory != m_directory;
    m_directory = directory;
    updateRows(*entries);
    if (isAnother)
        Q_EMIT directoryChanged();
    return true;
}

void ImageBrowserModel::openParent()
{
    if (hasParent())
        openDirectory(asDirectory(m_directory.deletingLastPathComponent()).text());
}

void ImageBrowserModel::refresh()
{
    openDirectory(m_directory.text());
}

QString ImageBrowserModel::urlOfPath(const QString &path) const
{
    QString wanted = path.trimmed();
    if (wanted.isEmpty() || !m_panels)
        return {};
    if (wanted == u"~" || wanted.startsWith(u"~/"))
        wanted = m_panels->directories().home().path() + wanted.sliced(1);
    else if (!wanted.startsWith(u'/'))
        wanted = m_directory.path() + u'/' + wanted;
    const FileURL url = FileURL::file(standardizedPath(wanted));
    if (!m_panels->files().exists(url))
        return {};
    return m_panels->files().isDirectory(url) ? asDirectory(url).text() : url.text();
}

bool ImageBrowserModel::isDirectory(const QString &urlText) const
{
    const std::optional<FileURL> url = FileURL::fromText(urlText);
    return url && m_panels && m_panels->files().isDirectory(*url);
}

bool ImageBrowserModel::isPicture(const QString &name)
{
    const QString extension = FileURL::file(u'/' + name).pathExtension();
    return std::ranges::any_of(pictureExtensions, [&](const char *known) {
        return extension.compare(QLatin1StringView(known), Qt::CaseInsensitive) == 0;
    });
}

void ImageBrowserModel::rememberDirectory()
{
    if (m_panels)
        m_panels->setLastDirectory(m_directory);
}

QString ImageBrowserModel::urlAt(int row) const
{
    return rows().value(row).id;
}

int ImageBrowserModel::rowStartingWith(const QString &text, int row) const
{
    const int count = rowCount();
    for (int step = 1; step <= count; ++step) {
        const int candidate = (row + step) % count;
        if (rows().at(candidate).name.startsWith(text, Qt::CaseInsensitive))
            return candidate;
    }
    return -1;
}

int ImageBrowserModel::rowOf(const QString &urlText) const
{
    const auto found = std::ranges::find(rows(), urlText, &ImageBrowserRow::id);
    return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}
