#include "builder/proxydirectory.h"

#include "builder/infoplist.h"
#include "builder/proxyfilename.h"
#include "platform/directories.h"
#include "platform/error.h"

ProxyDirectory::ProxyDirectory(const FileSystem &files, const Directories &directories)
    : m_files(files)
    , m_directories(directories)
{
}

FileURL ProxyDirectory::url() const
{
    return m_directories.userApplications().appendingDirectory(QStringLiteral("Nestlet"));
}

QList<ProxyDirectory::Entry> ProxyDirectory::entries() const
{
    const QList<FileURL> urls = bundles();
    QList<Entry> entries;
    entries.reserve(urls.size());
    for (const FileURL &url : urls)
        entries.append({.url = url, .folderID = folderIDOf(url)});
    forgetAllBut(urls);
    return entries;
}

QList<FileURL> ProxyDirectory::installedProxyURLs(const QUuid &folderID) const
{
    QList<FileURL> urls;
    for (const Entry &entry : entries()) {
        if (entry.folderID == folderID)
            urls.append(entry.url);
    }
    return urls;
}

QSet<QUuid> ProxyDirectory::installedFolderIDs() const
{
    QSet<QUuid> ids;
    for (const Entry &entry : entries()) {
        if (entry.folderID)
            ids.insert(*entry.folderID);
    }
    return ids;
}

FileURL ProxyDirectory::proxyAppURL(const DockFolder &folder) const
{
    const FileURL primary = url().appendingDirectory(proxyFileName(folder));
    const std::optional<QUuid> owner = readFolderID(primary, m_files);
    if (!owner || *owner == folder.id)
        return primary;
    return url().appendingDirectory(distinctProxyFileName(folder));
}

QList<FileURL> ProxyDirectory::bundles() const
{
    QList<FileURL> urls;
    ignoringErrors([&] { urls = m_files.contents(url()); });
    urls.removeIf([this](const FileURL &entry) {
        return !m_known.contains(entry) && entry.pathExtension() != u"app";
    });
    return urls;
}

std::optional<QUuid> ProxyDirectory::folderIDOf(const FileURL &bundle) const
{
    auto known = m_known.find(bundle);
    if (known == m_known.end())
        known = m_known.insert(bundle, {.infoPlist = infoPlistURL(bundle)});
    // The state is taken before the bytes: what changes in between is noticed at the next look.
    const auto identity = m_files.identity(known->infoPlist);
    if (identity != known->identity) {
        known->folderID = identity ? readFolderID(bundle, m_files) : std::nullopt;
        known->identity = identity;
    }
    return known->folderID;
}

void ProxyDirectory::forgetAllBut(const QList<FileURL> &bundles) const
{
    if (m_known.size() == bundles.size()) // all known ones are there, since those here are known
        return;
    const QSet<FileURL> present(bundles.begin(), bundles.end());
    m_known.removeIf([&](const auto &known) { return !present.contains(known.key()); });
}
