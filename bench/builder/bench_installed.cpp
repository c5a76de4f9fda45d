// Which of 500 folders are installed?

#include "bench/ratios.h"
#include "bench/require.h"
#include "builder/infoplist.h"
#include "builder/proxydirectory.h"
#include "model/uuidtext.h"
#include "platform/posix/posixfilesystem.h"
#include "platform/propertylist.h"
#include "tests/fakes/fakedirectories.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>

namespace {

constexpr int folderCount = 500;
constexpr int otherKeyCount = 31; // 2.6 KB of XML in all
constexpr int peersShare = 10; // the peer asks for every tenth folder: all would take a minute

/// 500 Dock apps, of which the Info.plists alone matter here.
class InstalledProxies {
public:
    InstalledProxies()
        : m_directory(m_files, m_directories)
    {
        for (int i = 0; i < folderCount; ++i)
            add(i);
    }

    [[nodiscard]] ProxyDirectory newDirectory() const { return {m_files, m_directories}; }
    [[nodiscard]] const QList<QUuid> &folderIDs() const { return m_folderIDs; }
    [[nodiscard]] const QList<QByteArray> &infoPlistPaths() const { return m_infoPlistPaths; }

    // How it would be done folder by folder, each look by itself.
    [[nodiscard]] bool isInstalledByItself(const QUuid &folderID) const
    {
        bool isFound = false;
        for (const FileURL &entry : m_files.contents(m_directory.url()))
            isFound |= entry.pathExtension() == u"app" && readFolderID(entry, m_files) == folderID;
        return isFound;
    }

private:
    void add(int number)
    {
        const QUuid id = QUuid::createUuid();
        const FileURL bundle
            = m_directory.url().appendingDirectory(QStringLiteral("Folder %1.app").arg(number));
        const FileURL infoPlist = infoPlistURL(bundle);
        m_files.createDirectories(infoPlist.deletingLastPathComponent());
        m_files.writeAtomically(infoPlist, infoPlistBytes(id));
        m_folderIDs.append(id);
        m_infoPlistPaths.append(infoPlist.nativePath());
    }

    static QByteArray infoPlistBytes(const QUuid &id)
    {
        QVariantMap info{{QStringLiteral("DockFolderID"), uuidText(id)}};
        for (int i = 0; i < otherKeyCount; ++i) {
            info.insert(QStringLiteral("NSSomeUsageDescription%1").arg(i),
                        QStringLiteral("Nestlet opens it %1").arg(i));
        }
        return serializePropertyList(info, PropertyListFormat::XML);
    }

    PosixFileSystem m_files;
    FakeDirectories m_directories;
    ProxyDirectory m_directory;
    QList<QUuid> m_folderIDs;
    QList<QByteArray> m_infoPlistPaths;
};

void openReadAndClose(const QList<QByteArray> &paths)
{
    std::array<char, 8192> buffer{};
    for (const QByteArray &path : paths) {
        const int file = ::open(path.constData(), O_RDONLY | O_CLOEXEC);
        require(file >= 0 && ::read(file, buffer.data(), buffer.size()) > 0);
        ::close(file);
    }
}

void statEach(const QList<QByteArray> &paths)
{
    for (const QByteArray &path : paths) {
        struct stat status { };
        require(::stat(path.constData(), &status) == 0);
    }
}

} // namespace

int main(int argc, char **argv)
{
    const InstalledProxies proxies;
    std::optional<ProxyDirectory> fresh;
    const ProxyDirectory known = proxies.newDirectory();
    require(known.installedProxies().size() == folderCount);

    Ratios ratios;
    ratios.add({
        .name = "Which of 500 folders are installed, first sweep",
        .ours = {.name = "one sweep",
                 .run = [&] { require(fresh->installedProxies().size() == folderCount); },
                 .prepare = [&] { fresh.emplace(proxies.newDirectory()); }},
        .references
        = {{.variant = {.name = "a listing, 500 reads per folder (a tenth of them)",
                        .run =
                            [&] {
                                for (int i = 0; i < folderCount; i += peersShare)
                                    require(proxies.isInstalledByItself(proxies.folderIDs().at(i)));
                            }},
            .timesFaster = 100.0 / peersShare},
           {.variant = {.name = "open, read, close of 500 files",
                        .run = [&] { openReadAndClose(proxies.infoPlistPaths()); }}}},
        .rounds = 9,
    });
    ratios.add({
        .name = "Which of 500 folders are installed, again when nothing changed",
        .ours = {.name = "one sweep",
                 .run = [&] { require(known.installedProxies().size() == folderCount); }},
        .references = {{.variant = {.name = "one stat each",
                                    .run = [&] { statEach(proxies.infoPlistPaths()); }},
                        .timesLonger = 2},
                       {.variant = {.name = "open, read, close of 500 files",
                                    .run = [&] { openReadAndClose(proxies.infoPlistPaths()); }}}},
        .repeat = 10,
    });
    return ratios.run(argc, argv);
}
