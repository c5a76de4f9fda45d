#include "model/libraryfile.h"

#include "model/libraryjson.h"
#include "platform/directories.h"
#include "platform/error.h"
#include "platform/filesystem.h"

struct LibraryFile::State {
    const FileSystem &files;
    FileURL support;
};

LibraryFile::LibraryFile(const FileSystem &files, const Directories &directories)
    : m_state(std::make_unique<State>(State{files, directories.applicationSupport()}))
{
}

LibraryFile::~LibraryFile() = default;

FileURL LibraryFile::url() const
{
    return directory().appendingFile(QStringLiteral("Nestlet.json"));
}

FileURL LibraryFile::directory() const
{
    return m_state->support.appendingDirectory(QStringLiteral("Nestlet"));
}

std::optional<QList<DockFolder>> LibraryFile::load()
{
    try {
        const std::optional<DockFolderLibrary> library = decodeLibrary(m_state->files.read(url()));
        if (library && !library->folders.isEmpty())
            return library->folders;
    } catch (const Error &) { // NOLINT(bugprone-empty-catch): as good as no library
    }
    return std::nullopt;
}

void LibraryFile::save(const DockFolderLibrary &library)
{
    m_state->files.createDirectories(directory());
    m_state->files.writeAtomically(url(), encodeLibrary(library));
}

void LibraryFile::removeAll()
{
    ignoringErrors([&] { m_state->files.remove(url()); });
}
