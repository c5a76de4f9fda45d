#include "model/libraryfile.h"

#include "model/keptfolders.h"
#include "model/librarybackups.h"
#include "model/libraryjson.h"
#include "platform/directories.h"
#include "platform/error.h"
#include "platform/filesystem.h"

#include <future>

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

    [[nodiscard]] std::optional<QList<DockFolder>> readFolders();
    [[nodiscard]] std::optional<QList<DockFolder>> folders();
    void replaceFile(const DockFolderLibrary &library);
    [[nodiscard]] std::optional<FileURL> keepFileIfUndecodable();
    void know(std::optional<QList<DockFolder>> folders);

    const FileSystem &files;
    FileURL directory;
    FileURL url;
    FileURL ownDirectory; ///< the companion's own, which nobody watches
    LibraryBackups backups;
    KeptFolders kept;
    std::optional<FileIdentity> lastRead; ///< the state of the file before it was read
    std::optional<FileIdentity> decodable; ///< the state of the file last known to be a library
    std::optional<QList<DockFolder>> known; ///< what the file held when last looked at or changed
    bool isKnown = false;
    std::future<std::optional<QList<DockFolder>>> loading; ///< last: what it uses outlives it
};

std::optional<QList<DockFolder>> LibraryFile::State::readFolders()
{
    decodable.reset();
    // Taken before reading: a change in between then counts as one by somebody else.
    lastRead = files.identity(url);
    const std::optional<QByteArray> bytes = readIfPossible(files, url);
    if (!bytes)
        return std::nullopt;
    std::optional<QList<DockFolder>> folders = kept.decode(*bytes);
    if (!folders)
        return std::nullopt;
    decodable = lastRead;
    return folders->isEmpty() ? std::nullopt : folders;
}

std::optional<QList<DockFolder>> LibraryFile::State::folders()
{
    if (!loading.valid())
        return readFolders();
    std::optional<QList<DockFolder>> loaded = loading.get();
    return files.identity(url) == lastRead ? loaded : readFolders();
}

void LibraryFile::State::know(std::optional<QList<DockFolder>> folders)
{
    known = std::move(folders);
    isKnown = true;
}

void LibraryFile::State::replaceFile(const DockFolderLibrary &library)
{
    const std::optional<FileURL> moved = keepFileIfUndecodable();
    try {
        files.writeAtomically(url, kept.encode(library));
    } catch (...) {
        if (moved)
            ignoringErrors([&] { files.move(*moved, url); });
        throw;
    }
}

// What load could not use, or somebody else wrote since, is about to be overwritten. Returns where
// it is when it had to be moved.
std::optional<FileURL> LibraryFile::State::keepFileIfUndecodable()
{
    const std::optional<FileIdentity> identity = files.identity(url);
    if (!identity || identity == decodable)
        return std::nullopt;
    const std::optional<QByteArray> bytes = readIfPossible(files, url);
    if (!bytes)
        return backups.moveHere(url);
    if (!decodeLibrary(*bytes))
        backups.keep(*bytes);
    return std::nullopt;
}

LibraryFile::LibraryFile(const FileSystem &files, const Directories &directories)
    : m_state(std::make_unique<State>(files, directories.applicationSupport()))
{
}

LibraryFile::~LibraryFile() = default;
LibraryFile::LibraryFile(LibraryFile &&) noexcept = default;
LibraryFile &LibraryFile::operator=(LibraryFile &&) noexcept = default;

FileURL LibraryFile::url() const
{
    return m_state->url;
}

FileURL LibraryFile::directory() const
{
    return m_state->directory;
}

LibraryFile::Contents LibraryFile::load()
{
    Contents contents{.folders = m_state->folders()};
    // Quick, since what did not change is shared.
    contents.isUnchanged = m_state->isKnown && m_state->known == contents.folders;
    m_state->know(contents.folders);
    return contents;
}

void LibraryFile::beginLoading()
{
    // When no thread can be had, the load happens where it is waited for.
    m_state->loading = std::async(std::launch::async | std::launch::deferred,
                                  [state = m_state.get()] { return state->readFolders(); });
}

void LibraryFile::save(const DockFolderLibrary &library)
{
    m_state->files.createDirectories(directory());
    m_state->replaceFile(library);
    m_state->decodable = m_state->files.identity(url());
    m_state->know(library.folders.isEmpty() ? std::nullopt : std::optional(library.folders));
}

void LibraryFile::removeAll()
{
    ignoringErrors([this] { m_state->files.remove(url()); });
    ignoringErrors([this] { m_state->files.remove(m_state->ownDirectory); });
    m_state->decodable.reset();
    m_state->know(std::nullopt);
}
