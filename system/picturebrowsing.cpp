#include "system/picturebrowsing.h"

#include "platform/directories.h"
#include "platform/error.h"
#include "platform/filesystem.h"
#include "system/collationkeys.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

using Outcome = PictureListing::Outcome;

/// A type of picture, and what ends the names of its files.
struct PictureType {
    QLatin1StringView identifier{};
    std::array<QLatin1StringView, 3> extensions{};
};

constexpr std::array pictureTypes{
    PictureType{QLatin1StringView("public.png"), {QLatin1StringView("png")}},
    PictureType{QLatin1StringView("public.jpeg"),
                {QLatin1StringView("jpg"), QLatin1StringView("jpeg"), QLatin1StringView("jpe")}},
    PictureType{QLatin1StringView("public.tiff"),
                {QLatin1StringView("tif"), QLatin1StringView("tiff")}},
    PictureType{QLatin1StringView("com.microsoft.bmp"),
                {QLatin1StringView("bmp"), QLatin1StringView("dib")}},
    PictureType{QLatin1StringView("com.apple.icns"), {QLatin1StringView("icns")}},
    PictureType{QLatin1StringView("public.heic"), {QLatin1StringView("heic")}}};

bool isPackage(const QString &name)
{
    return name.endsWith(u".app", Qt::CaseInsensitive);
}

FileURL asDirectory(const FileURL &url)
{
    return url.hasDirectoryPath() ? url : FileURL::directory(url.path());
}

// Links to directories are looked through, whatever their names.
std::optional<PictureEntry> shownEntry(const FileSystem &files, const FileURL &directory,
                                       const DirectoryEntry &entry)
{
    const FileURL url = directory.appendingDirectory(entry.name);
    if (entry.isDirectory || files.isDirectory(url)) {
        if (isPackage(entry.name))
            return std::nullopt;
        return PictureEntry{.id = url, .name = entry.name, .isDirectory = true};
    }
    if (!isPictureName(entry.name))
        return std::nullopt;
    return PictureEntry{.id = directory.appendingFile(entry.name), .name = entry.name};
}

// As a Mac sorts names: by the user's language, numbers by their value.
QList<PictureEntry> sortedByName(const QList<PictureEntry> &entries)
{
    struct Place {
        CollationKeys::Key key{};
        const PictureEntry *entry{};
    };
    CollationKeys keys{QLocale(), CollationKeys::Digits::AsNumbers};
    std::vector<Place> places;
    places.reserve(static_cast<size_t>(entries.size()));
    for (const PictureEntry &entry : entries)
        places.push_back({.key = keys.add(entry.name), .entry = &entry});
    std::ranges::sort(places, [&](const Place &a, const Place &b) {
        const auto order = keys.compare(a.key, b.key);
        return std::is_eq(order) ? a.entry->name < b.entry->name : std::is_lt(order);
    });
    QList<PictureEntry> sorted;
    sorted.reserve(entries.size());
    for (const Place &place : places)
        sorted.append(*place.entry);
    return sorted;
}

QList<PictureEntry> entriesOf(const FileSystem &files, const FileURL &directory)
{
    QList<PictureEntry> entries;
    for (const DirectoryEntry &entry : files.visibleEntries(directory)) {
        if (const std::optional<PictureEntry> shown = shownEntry(files, directory, entry))
            entries.append(*shown);
    }
    return sortedByName(entries);
}

QList<PicturePlace> placesThatAreThere(const FileSystem &files, const FileURL &home)
{
    using Kind = PicturePlace::Kind;
    QList<PicturePlace> places{
        {.kind = Kind::Home, .url = home},
        {.kind = Kind::Desktop, .url = home.appendingDirectory(QStringLiteral("Desktop"))},
        {.kind = Kind::Documents, .url = home.appendingDirectory(QStringLiteral("Documents"))},
        {.kind = Kind::Downloads, .url = home.appendingDirectory(QStringLiteral("Downloads"))},
        {.kind = Kind::Pictures, .url = home.appendingDirectory(QStringLiteral("Pictures"))}};
    places.removeIf([&](const PicturePlace &place) { return !files.isDirectory(place.url); });
    return places;
}

PictureListing listed(const FileSystem &files, const FileURL &url)
{
    if (!files.isDirectory(url)) {
        if (!files.exists(url))
            return {.outcome = Outcome::Nothing, .url = url};
        const bool isPicture = isPictureName(url.lastPathComponent());
        return {.outcome = isPicture ? Outcome::Picture : Outcome::OtherFile, .url = url};
    }
    const FileURL directory = asDirectory(url);
    try {
        return {.outcome = Outcome::Directory,
                .url = directory,
                .entries = entriesOf(files, directory)};
    } catch (const Error &) {
        const bool isStillThere = files.isDirectory(directory);
        return {.outcome = isStillThere ? Outcome::Unreadable : Outcome::Nothing, .url = directory};
    }
}

} // namespace

QStringList pictureContentTypes()
{
    QStringList identifiers;
    for (const PictureType &type : pictureTypes)
        identifiers.append(type.identifier);
    return identifiers;
}

bool isPictureName(const QString &name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot < 1)
        return false;
    const QStringView extension = QStringView(name).sliced(dot + 1);
    return !extension.isEmpty() && std::ranges::any_of(pictureTypes, [&](const PictureType &type) {
        return std::ranges::any_of(type.extensions, [&](QLatin1StringView known) {
            return extension.compare(known, Qt::CaseInsensitive) == 0;
        });
    });
}

PictureListing browsePictures(const FileSystem &files, const Directories &directories,
                              const FileURL &url)
{
    PictureListing listing = listed(files, url);
    listing.places = placesThatAreThere(files, directories.home());
    return listing;
}

PictureListing browseFirstPictures(const FileSystem &files, const Directories &directories,
                                   const std::optional<FileURL> &last)
{
    const FileURL home = directories.home();
    QList<FileURL> candidates{home.appendingDirectory(QStringLiteral("Pictures")), home};
    if (last)
        candidates.prepend(*last);
    for (const FileURL &candidate : candidates) {
        PictureListing listing = listed(files, candidate);
        if (listing.outcome == Outcome::Directory) {
            listing.places = placesThatAreThere(files, home);
            return listing;
        }
    }
    return browsePictures(files, directories, FileURL::directory(QStringLiteral("/")));
}

std::optional<FileURL> urlOfTypedPath(const QString &path, const FileURL &home,
                                      const FileURL &directory)
{
    QString wanted = path.trimmed();
    if (wanted.isEmpty())
        return std::nullopt;
    if (wanted == u"~" || wanted.startsWith(u"~/"))
        wanted = home.path() + wanted.sliced(1);
    else if (!wanted.startsWith(u'/'))
        wanted = directory.path() + u'/' + wanted;
    return FileURL::file(standardizedPath(wanted));
}
