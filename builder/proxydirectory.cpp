#include "builder/proxydirectory.h"

#include "builder/infoplist.h"
#include "builder/proxyfilename.h"
#include "platform/directories.h"
#include "platform/error.h"

#include <algorithm>
#include <utility>

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
    QList<Entry> entries;
    for (const KnownBundle &bundle : look())
        entries.append(bundle.entry);
    return entries;
}

QList<FileURL> ProxyDirectory::installedProxyURLs(const QUuid &folderID) const
{
    QList<FileURL> urls;
    for (const KnownBundle &bundle : look()) {
        if (bundle.entry.folderID == folderID)
            urls.append(bundle.entry.url);
    }
    return urls;
}

QHash<QUuid, QList<FileURL>> ProxyDirectory::installedProxies() const
{
    const QList<KnownBundle> &bundles = look();
    if (m_installed)
        return *m_installed;
    QHash<QUuid, QList<FileURL>> &proxies = m_installed.emplace();
    proxies.reserve(bundles.size());
    for (const KnownBundle &bundle : bundles) {
        if (bundle.entry.folderID)
            proxies[*bundle.entry.folderID].append(bundle.entry.url);
    }
    return proxies;
}

FileURL ProxyDirectory::proxyAppURL(const DockFolder &folder) const
{
    FileURL primary = url().appendingDirectory(proxyFileName(folder));
    const std::optional<QUuid> owner = readFolderID(primary, m_files);
    if (!owner || *owner == folder.id)
        return primary;
    return url().appendingDirectory(distinctProxyFileName(folder));
}

const QList<ProxyDirectory::KnownBundle> &ProxyDirectory::look() const
{
    const QList<FileURL> urls = listing();
    QList<KnownBundle> before = std::exchange(m_known, {});
    m_known.reserve(urls.size());
    auto next = before.begin();
    bool isSame = true;
    for (const FileURL &url : urls) {
        // Listings keep their order, so this is nearly always the next one. One that moved to the
        // front is read again.
        const auto found = std::find_if(next, before.end(), [&url](const KnownBundle &bundle) {
            return bundle.entry.url == url;
        });
        if (found != before.end()) {
            m_known.append(std::move(*found));
            isSame &= found == next;
            next = found + 1;
        } else if (url.pathExtension() == u"app") {
            m_known.append({.entry = {.url = url}, .infoPlist = infoPlistURL(url)});
        } else {
            continue;
        }
        isSame &= !refresh(m_known.last());
    }
    if (!isSame || next != before.end())
        m_installed.reset();
    return m_known;
}

QList<FileURL> ProxyDirectory::listing() const
{
    QList<FileURL> urls;
    ignoringErrors([&] { urls = m_files.contents(url()); });
    return urls;
}

bool ProxyDirectory::refresh(KnownBundle &bundle) const
{
    // The state is taken before the bytes: what changes in between is noticed at the next look.
    const auto identity = m_files.identity(bundle.infoPlist);
    if (identity == bundle.identity)
        return false;
    bundle.identity.reset();
    bundle.entry.folderID.reset();
    ignoringErrors([&] { // what cannot be read now is tried again at the next look
        if (identity)
            bundle.entry.folderID = folderIDIn(m_files.read(bundle.infoPlist));
        bundle.identity = identity;
    });
    return true;
}
