#include "system/installedapplications.h"

#include "platform/directories.h"
#include "platform/error.h"
#include "platform/filesystem.h"
#include "system/collationkeys.h"

#include <algorithm>
#include <vector>

namespace {

QList<DirectoryEntry> entriesOrNone(const FileSystem &files, const FileURL &directory)
{
    QList<DirectoryEntry> entries;
    ignoringErrors([&] { entries = files.visibleEntries(directory); });
    return entries;
}

bool isApplication(const DirectoryEntry &entry)
{
    constexpr QStringView extension{u".app"};
    return entry.name.endsWith(extension) && entry.name.size() > extension.size();
}

/// The applications found so far, each with the key that places it in the list.
class FoundApplications {
public:
    void add(const DirectoryEntry &entry, const EntryURLs &directory)
    {
        m_places.push_back({.key = m_keys.add(entry.name), .index = m_urls.size()});
        m_urls.append(directory.entry(entry.name, entry.isDirectory));
    }

    [[nodiscard]] QList<FileURL> sorted()
    {
        std::ranges::sort(m_places,
                          [this](const Place &a, const Place &b) { return goesBefore(a, b); });
        QList<FileURL> urls;
        urls.reserve(m_urls.size());
        for (const Place &place : m_places) {
            // Roots that lie within each other give the same application twice, now side by side.
            if (urls.isEmpty() || urls.constLast() != m_urls.at(place.index))
                urls.append(m_urls.at(place.index));
        }
        return urls;
    }

private:
    struct Place {
        CollationKeys::Key key{};
        qsizetype index{};
    };

    [[nodiscard]] bool goesBefore(const Place &a, const Place &b) const
    {
        const auto byName = m_keys.compare(a.key, b.key);
        // By path where the names are equal, so that the list is the same at each scan.
        if (std::is_eq(byName))
            return m_urls.at(a.index).text() < m_urls.at(b.index).text();
        return std::is_lt(byName);
    }

    CollationKeys m_keys{QLocale()};
    QList<FileURL> m_urls;
    std::vector<Place> m_places;
};

void scanFolder(const FileSystem &files, const FileURL &folder, FoundApplications &found)
{
    const EntryURLs urls(folder);
    for (const DirectoryEntry &entry : entriesOrNone(files, folder)) {
        if (isApplication(entry))
            found.add(entry, urls);
    }
}

void scanRoot(const FileSystem &files, const FileURL &root, FoundApplications &found)
{
    const EntryURLs urls(root);
    for (const DirectoryEntry &entry : entriesOrNone(files, root)) {
        if (isApplication(entry))
            found.add(entry, urls);
        else if (entry.isDirectory)
            scanFolder(files, urls.entry(entry.name, true), found);
    }
}

} // namespace

QList<FileURL> scanInstalledApplications(const FileSystem &files, const Directories &directories)
{
    FoundApplications found;
    for (const FileURL &root :
         {directories.system(QStringLiteral("/Applications/")),
          directories.system(QStringLiteral("/System/Applications/")),
          directories.home().appendingDirectory(QStringLiteral("Applications"))}) {
        scanRoot(files, root, found);
    }
    return found.sorted();
}
