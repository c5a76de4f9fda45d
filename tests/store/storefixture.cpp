#include "tests/store/storefixture.h"

#include "builder/infoplist.h"
#include "model/libraryjson.h"
#include "model/nestlet.h"
#include "model/uuidtext.h"
#include "tests/builder/bundles.h"

#include <QCoreApplication>

namespace {

template <typename Fake, typename Interface> Fake &fill(std::unique_ptr<Interface> &slot)
{
    auto fake = std::make_unique<Fake>();
    Fake &reference = *fake;
    slot = std::move(fake);
    return reference;
}

ProcessResult acceptEverything(const FakeProcessRunner::Call &call)
{
    if (!call.arguments.contains(QStringLiteral("-dvvv")))
        return {};
    const QString description = QStringLiteral("Identifier=") + nestletBundleIdentifier
        + QStringLiteral("\nTeamIdentifier=") + expectedTeamIdentifier + u'\n';
    return {.exitStatus = 0, .standardError = description.toUtf8()};
}

} // namespace

FakePlatform::FakePlatform()
    : directories(fill<FakeDirectories>(platform.directories))
    , files(fill<FakeFileSystem>(platform.files))
    , processes(fill<FakeProcessRunner>(platform.processes))
    , workspace(fill<FakeWorkspace>(platform.workspace))
    , applications(fill<FakeRunningApplications>(platform.applications))
    , standardDefaults(fill<FakeUserDefaults>(platform.standardDefaults))
    , dockDefaults(fill<FakeUserDefaults>(platform.dockDefaults))
    , watcher(fill<FakeDirectoryWatcher>(platform.watcher))
    , bookmarks(fill<FakeBookmarks>(platform.bookmarks))
    , mainBundle(fill<FakeMainBundle>(platform.mainBundle))
    , clock(fill<FakeClock>(platform.clock))
    , network(fill<FakeURLFetcher>(platform.network))
{
    processes.onRun = acceptEverything;
    files.files.createDirectories(directories.temporary());
}

StoreFixture::StoreFixture()
    : companion(platform, EventTurns::Start::AtOnce)
{
}

StoreFixture::~StoreFixture() = default;

FileURL StoreFixture::nestletURL() const
{
    return directories.at(QStringLiteral("/Applications/Nestlet.app"));
}

void StoreFixture::installNestlet()
{
    makeTemplateApp(nestletURL(), files.files);
}

FileURL StoreFixture::installProxyBundle(const DockFolder &folder, const QString &fileName)
{
    const QString name = fileName.isEmpty() ? folder.name : fileName;
    FileURL bundle = proxyDirectory.url().appendingDirectory(name + QStringLiteral(".app"));
    writeInfoPlist(bundle,
                   {{QStringLiteral("DockFolderID"), uuidText(folder.id)},
                    {QStringLiteral("CFBundleDisplayName"), folder.name}},
                   files.files);
    return bundle;
}

void StoreFixture::writeLibrary(const QList<DockFolder> &folders) const
{
    writeLibraryBytes(encodeLibrary({.folders = folders, .selectedFolderID = folders.first().id}));
}

void StoreFixture::writeLibraryBytes(const QByteArray &bytes) const
{
    writeFile(folderLibrary.url(), bytes, files.files);
}

void StoreFixture::startWith(const QList<DockFolder> &folders)
{
    writeLibrary(folders);
    store->start();
    finishEverything();
}

void StoreFixture::changeFromOutside(const QList<DockFolder> &folders)
{
    writeLibrary(folders);
    watcher.change();
    finishEverything();
}

QByteArray StoreFixture::libraryBytes() const
{
    return files.files.read(folderLibrary.url());
}

std::optional<DockFolderLibrary> StoreFixture::savedLibrary() const
{
    return decodeLibrary(libraryBytes());
}

bool StoreFixture::hasLibraryFile() const
{
    return files.files.exists(folderLibrary.url());
}

void StoreFixture::finishEverything()
{
    do {
        // Often: every folder's operation takes several turns, one pass of the loop each.
        for (int pass = 0; pass < 400; ++pass)
            QCoreApplication::processEvents();
    } while (clock.advanceToNext());
}

void CompanionStoreTestAccess::lock(CompanionStore &store, const QUuid &id)
{
    store.m_lockedFolderIDs.insert(id);
    Q_EMIT store.lockedFolderIDsChanged();
}

DockFolder folderNamed(const QString &name)
{
    return {.id = QUuid::createUuid(), .name = name};
}

DockFolder folderNamed(const QString &name, const QStringList &itemURLs)
{
    DockFolder folder = folderNamed(name);
    for (const QString &text : itemURLs) {
        const FileURL url = FileURL::fromValidText(text);
        folder.items.append({.id = QUuid::createUuid(), .name = url.displayName(), .url = url});
    }
    return folder;
}

QStringList namesOf(const QList<DockFolder> &folders)
{
    QStringList names;
    for (const DockFolder &folder : folders)
        names.append(folder.name);
    return names;
}

QStringList namesOf(const QList<DockFolderItem> &items)
{
    QStringList names;
    for (const DockFolderItem &item : items)
        names.append(item.name);
    return names;
}
