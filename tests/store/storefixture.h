#pragma once

#include "platform/platform.h"
#include "store/companionengine.h"
#include "tests/fakes/fakebookmarks.h"
#include "tests/fakes/fakeclock.h"
#include "tests/fakes/fakedirectories.h"
#include "tests/fakes/fakedirectorywatcher.h"
#include "tests/fakes/fakefilesystem.h"
#include "tests/fakes/fakemainbundle.h"
#include "tests/fakes/fakeprocessrunner.h"
#include "tests/fakes/fakerunningapplications.h"
#include "tests/fakes/fakeurlfetcher.h"
#include "tests/fakes/fakeuserdefaults.h"
#include "tests/fakes/fakeworkspace.h"

/// A platform of fakes over real files in a temporary directory, with what a test sets and reads.
struct FakePlatform {
    FakePlatform();

    Platform platform;
    FakeDirectories &directories;
    FakeFileSystem &files;
    FakeProcessRunner &processes; ///< plays a signing tool that finds every bundle in order
    FakeWorkspace &workspace;
    FakeRunningApplications &applications;
    FakeUserDefaults &standardDefaults;
    FakeUserDefaults &dockDefaults;
    FakeDirectoryWatcher &watcher;
    FakeBookmarks &bookmarks;
    FakeMainBundle &mainBundle;
    FakeClock &clock;
    FakeURLFetcher &network;
};

/// A store over a FakePlatform, with all its real tools. Not started.
struct StoreFixture : FakePlatform {
    StoreFixture();
    ~StoreFixture();

    /// A template app that every check accepts, in "/Applications".
    void installNestlet();
    [[nodiscard]] FileURL nestletURL() const;
    /// A Dock proxy app as an earlier run left it, named after the folder.
    FileURL installProxyBundle(const DockFolder &folder, const QString &fileName = {});
    /// Writes the library file, as another program would.
    void writeLibrary(const QList<DockFolder> &folders) const;
    void writeLibraryBytes(const QByteArray &bytes) const;
    /// Starts the store over this library, and runs to the end what that begins.
    void startWith(const QList<DockFolder> &folders);
    /// Another program writes the library while the store watches it.
    void changeFromOutside(const QList<DockFolder> &folders);
    /// What the library file holds; nothing when it holds no library.
    [[nodiscard]] std::optional<DockFolderLibrary> savedLibrary() const;
    [[nodiscard]] QByteArray libraryBytes() const;
    [[nodiscard]] bool hasLibraryFile() const;
    /// Runs the event loop and the clock until nothing is left to wait for.
    void finishEverything();

    CompanionEngine companion;
    LibraryFile &folderLibrary = companion.folderLibrary;
    TemplateApp &templateApp = companion.templateApp;
    ProxyDirectory &proxyDirectory = companion.proxyDirectory;
    ProxyLifecycle &proxies = companion.proxies;
    CompanionStore *const store = &companion.store;
};

/// What no operation of the program does, but another program may one day ask of it.
struct CompanionStoreTestAccess {
    static void lock(CompanionStore &store, const QUuid &id);
};

[[nodiscard]] DockFolder folderNamed(const QString &name);
[[nodiscard]] DockFolder folderNamed(const QString &name, const QStringList &itemURLs);
[[nodiscard]] QStringList namesOf(const QList<DockFolder> &folders);
[[nodiscard]] QStringList namesOf(const QList<DockFolderItem> &items);
