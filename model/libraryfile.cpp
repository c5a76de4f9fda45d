#include "model/libraryfile.h"

#include "model/keptfolders.h"
#include "model/librarybackups.h"
#include "model/libraryjson.h"
#include "platform/directories.h"
#include "platform/error.h"
#include "platform/filesystem.h"

namespace {

std::optional<QByteArray> readIfPossible(const FileSystem &files, const FileURL &url)
{
    try {
        return files.read(url);
    } catch (const Error &) {
        return std::nullopt;
    }
}

} // namespace

struct LibraryFile::State {
    State(const FileSystem &fileSystem, const FileURL &applicationSupport)
        : files(fileSystem)
        , directory(applicationSupport.appendingDirectory(QStringLiteral("Nestlet")))
        , url(directory.appendingFile(QStringLiteral("Nestlet.json")))
        , ownDirectory(applicationSupport.appendingDirectory(QStringLiteral("Nestlet Companion")))
        , backups(files, ownDirectory.appendingDirectory(QStringLiteral("Backups")))
    {
    }

    void keepFileIfUndecodable();

    const FileSystem &files;
    FileURL directory;
    FileURL url;
    FileURL ownDirectory; ///< the companion's own, which nobody watches
    LibraryBackups backups;
    KeptFolders kept;
    std::optional<FileIdentity> decodable; ///< the state of the file last known to be a library
};

// What load could not use, or somebody else wrote since, is about to be overwritten.
void LibraryFile::State::keepFileIfUndecodable()
{
    const std::optional<FileIdentity> identity = files.identity(url);
    if (!identity || identity == decodable)
        return;
    const std::optional<QByteArray> bytes = readIfPossible(files, url);
    if (!bytes)
        backups.moveHere(url);
    else if (!decodeLibrary(*bytes))
        backups.keep(*bytes);
}

LibraryFile::LibraryFile(const FileSystem &files, const Directories &directories)
    : m_state(std::make_unique<State>(files, directories.applicationSupport()))
{
}

LibraryFile::~LibraryFile() = default;

FileURL LibraryFile::url() const
{
    return m_state->url;
}

FileURL LibraryFile::directory() const
{
    return m_state->directory;
}

std::optional<QList<DockFolder>> LibraryFile::load()
{
    m_state->decodable.reset();
    // Taken before reading: a change in between then counts as one by somebody else.
    const std::optional<FileIdentity> identity = m_state->files.identity(url());
    const std::optional<QByteArray> bytes = readIfPossible(m_state->files, url());
    if (!bytes)
        return std::nullopt;
    std::optional<QList<DockFolder>> folders = m_state->kept.decode(*bytes);
    if (!folders)
        return std::nullopt;
    m_state->decodable = identity;
    return folders->isEmpty() ? std::nullopt : folders;
}

void LibraryFile::save(const DockFolderLibrary &library)
{
    m_state->files.createDirectories(directory());
    m_state->keepFileIfUndecodable();
    m_state->files.writeAtomically(url(), m_state->kept.encode(library));
    m_state->decodable = m_state->files.identity(url());
}

void LibraryFile::removeAll()
{
    ignoringErrors([this] { m_state->files.remove(url()); });
    ignoringErrors([this] { m_state->files.remove(m_state->ownDirectory); });
    m_state->decodable.reset();
}
