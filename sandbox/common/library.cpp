#include "sandbox/common/library.h"

#include "sandbox/common/files.h"

#include "model/libraryjson.h"
#include "platform/error.h"

#include <QFileInfo>
#include <QFileSystemWatcher>

#include <algorithm>

namespace {

constexpr std::chrono::milliseconds settleTime{40};

std::optional<QList<DockFolder>> readFolders(const QString &path)
{
    try {
        if (auto library = decodeLibrary(readFile(path)))
            return library->folders;
    } catch (const Error &) { // NOLINT(bugprone-empty-catch): then there is no library
    }
    return std::nullopt;
}

// The nearest directory above a path that is there.
QString existingDirectoryAbove(const QString &path)
{
    QString directory = QFileInfo(path).path();
    while (!QFileInfo::exists(directory) && directory != u"/")
        directory = QFileInfo(directory).path();
    return directory;
}

} // namespace

Library::Library(const StandInMac &mac, QObject *parent)
    : QObject(parent)
    , m_path(mac.folderLibraryPath())
    , m_folders(readFolders(m_path).value_or(QList<DockFolder>()))
    , m_watcher(new QFileSystemWatcher(this))
{
    m_settle.setSingleShot(true);
    m_settle.setInterval(settleTime);
    connect(&m_settle, &QTimer::timeout, this, &Library::reload);
    for (const auto event :
         {&QFileSystemWatcher::directoryChanged, &QFileSystemWatcher::fileChanged})
        connect(m_watcher, event, this, [this] { m_settle.start(); });
    watch();
}

std::optional<DockFolder> Library::folder(const QUuid &id) const
{
    const auto found = std::ranges::find(m_folders, id, &DockFolder::id);
    return found == m_folders.end() ? std::nullopt : std::optional(*found);
}

// The directory tells of a file that was replaced, the file of one that was written in place. Both
// may come and go.
void Library::watch()
{
    const QString directory = existingDirectoryAbove(m_path);
    if (!m_watcher->directories().contains(directory)) {
        if (const QStringList old = m_watcher->directories(); !old.isEmpty())
            m_watcher->removePaths(old);
        m_watcher->addPath(directory);
    }
    if (m_watcher->files().isEmpty() && QFileInfo::exists(m_path))
        m_watcher->addPath(m_path);
}

void Library::reload()
{
    watch();
    const auto folders = readFolders(m_path);
    if (!folders || *folders == m_folders)
        return;
    m_folders = *folders;
    Q_EMIT changed();
}
