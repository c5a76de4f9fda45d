#include "system/installedapplications.h"

#include "platform/directories.h"
#include "platform/error.h"
#include "platform/filesystem.h"
#include "system/collationkeys.h"

#include <algorithm>
#include <array>
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

FileURL urlOf(const DirectoryEntry &entry, const FileURL &directory)
{
    return entry.isDirectory ? directory.appendingDirectory(entry.name)
                             : directory.appendingFile(entry.name);
}

/// The applications found so far, each with what places it in the list.
class FoundApplications {
public:
    void add(const DirectoryEntry &entry, const FileURL &directory)
    {
        m_found.push_back({.key = m_keys.add(entry.name), .url = urlOf(entry, directory)});
    }

    [[nodiscard]] QList<FileURL> sorted()
    {
        std::ranges::sort(m_found,
                          [this](const Found &a, const Found &b) { return goesBefore(a, b); });
        // Roots that lie within each other give the same application twice, now side by side.
        const auto repeated = std::ranges::unique(m_found, {}, &Found::url);
        m_found.erase(repeated.begin(), repeated.end());

        QList<FileURL> urls;
        urls.reserve(std::ssize(m_found));
        for (Found &found : m_found)
            urls.append(std::move(found.url));
        return urls;
    }

private:
    struct Found {
        CollationKeys::Key key{};
        FileURL url{};
    };

    [[nodiscard]] bool goesBefore(const Found &a, const Found &b) const
    {
        const auto byName = m_keys.compare(a.key, b.key);
        // By place where the names are equal, so that the list is the same at each scan.
        return byName == 0 ? a.url.text() < b.url.text() : byName < 0;
    }

    CollationKeys m_keys{QLocale()};
    std::vector<Found> m_found;
};

void scanFolder(const FileSystem &files, const FileURL &folder, FoundApplications &found)
{
    for (const DirectoryEntry &entry : entriesOrNone(files, folder)) {
        if (isApplication(entry))
            found.add(entry, folder);
    }
}

void scanRoot(const FileSystem &files, const FileURL &root, FoundApplications &found)
{
    for (const DirectoryEntry &entry : entriesOrNone(files, root)) {
        if (isApplication(entry))
            found.add(entry, root);
        else if (entry.isDirectory)
            scanFolder(files, root.appendingDirectory(entry.name), found);
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
