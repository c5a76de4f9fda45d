#include "tests/store/storefixture.h"

#include "builder/infoplist.h"
#include "model/uuidtext.h"
#include "tests/builder/bundles.h"

#include <QSignalSpy>
#include <QTest>

using namespace std::chrono_literals;
using Operation = FakeFileSystem::Operation;

class StoreProxiesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_fixture.reset(); }

    void showInDockBuildsAndLaunchesInFront();
    void showInDockWithoutNestletNamesTheSearchedPaths();
    void showInDockAfterARenameReplacesTheOldBundle();
    void showInDockReplacesWhatIsInTheWay();
    void aLaunchFailureReachesTheUser();
    void aFailedStepReachesTheUserAndStopsTheRest_data();
    void aFailedStepReachesTheUserAndStopsTheRest();
    void aFolderThatGoesWhileItsCopiesQuitIsNotInstalled();
    void runningCopiesQuitBeforeTheBundleIsReplaced();
    void politeCopiesAreNotForced();
    void stubbornCopiesAreForcedAfter100Polls();
    void undyingCopiesAreGivenUpAfterTheSettlingPause();
    void aColumnChangeRebuildsInPlaceInTheBackground();
    void aRenameRebuildsInPlaceUnderTheNewDisplayName();
    void twoQuickChangesStartOneRebuild();
    void editsOfAFolderThatIsNotInstalledBuildNothing();
    void otherEditsRebuildNothing();
    void aFailedRebuildIsOnlyLogged();
    void startRebuildsEveryInstalledProxy();
    void startLooksAtTheProxyDirectoryNoMoreOftenForMoreFolders();
    void startAsksForNestletOnce();
    void eventsAreHandledBetweenTwoRebuilds();
    void startWithoutNestletRebuildsNothing();
    void addAllInstallsEveryUnlockedFolder();
    void addAllGivesFoldersOfOneNameABundleEach();
    void theAppStoreFolderNeverGetsADockApp();
    void theAppStoreFoldersDockAppIsNobodysToRemove_data();
    void theAppStoreFoldersDockAppIsNobodysToRemove();
    void aFolderRenamedWhileItsCopiesQuitIsInstalledUnderTheNewName();
    void deletingAFolderRemovesItsProxyTilesAndCopies();
    void resetRemovesEverything();
    void aProxyDirectoryThatIsAFileIsAnErrorToShow();

private:
    CompanionStore &store() { return *m_fixture->store; }
    DockFolder first() { return store().folders().first(); }
    void startWith(const QList<DockFolder> &folders)
    {
        m_fixture->startWith(folders);
        m_fixture->workspace.opened.clear();
        m_fixture->workspace.completions.clear();
    }
    void install(const DockFolder &folder)
    {
        store().installProxy(folder.id);
        m_fixture->finishEverything();
    }
    FileURL proxyNamed(const QString &fileName)
    {
        return m_fixture->proxyDirectory.url().appendingDirectory(fileName);
    }
    QString displayName(const FileURL &bundle)
    {
        return readInfoPlist(bundle, m_fixture->files)
            .value(QStringLiteral("CFBundleDisplayName"))
            .toString();
    }
    QVariantMap tileFor(const FileURL &bundle)
    {
        return {{QStringLiteral("tile-data"),
                 QVariantMap{{QStringLiteral("file-data"),
                              QVariantMap{{QStringLiteral("_CFURLString"), bundle.text()}}}}}};
    }

    std::unique_ptr<StoreFixture> m_fixture;
};

void StoreProxiesTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    m_fixture = std::make_unique<StoreFixture>();
    m_fixture->installNestlet();
}

void StoreProxiesTest::showInDockBuildsAndLaunchesInFront()
{
    startWith({folderNamed(QStringLiteral("a/b"))});
    const QSignalSpy presence(&store(), &CompanionStore::presenceChanged);
    install(first());
    QCOMPARE(store().errorMessage(), QString());
    const FileURL proxy = proxyNamed(QStringLiteral("a b.app"));
    QCOMPARE(displayName(proxy), QStringLiteral("a/b"));
    QCOMPARE(m_fixture->workspace.opened,
             (QList<FakeWorkspace::Opened>{{proxy, Activation::Foreground}}));
    QVERIFY(store().isInstalled(first().id));
    QVERIFY(!store().isInstalling(first().id));
    QVERIFY(presence.count() >= 2); // when it begins and when it ends
}

void StoreProxiesTest::showInDockWithoutNestletNamesTheSearchedPaths()
{
    m_fixture->files.files.remove(m_fixture->nestletURL());
    startWith({folderNamed(QStringLiteral("Work"))});
    install(first());
    QCOMPARE(store().errorMessage(),
             QStringLiteral("Nestlet was not found at %1. Install Nestlet first.")
                 .arg(m_fixture->templateApp.missingLocationsText()));
    QVERIFY(!store().isInstalled(first().id));
}

void StoreProxiesTest::showInDockAfterARenameReplacesTheOldBundle()
{
    startWith({folderNamed(QStringLiteral("Old"))});
    install(first());
    const FileURL old = proxyNamed(QStringLiteral("Old.app"));
    m_fixture->dockDefaults.values.insert(QStringLiteral("persistent-apps"),
                                          QVariantList{tileFor(old)});
    store().renameFolder(first().id, QStringLiteral("New"));
    m_fixture->finishEverything();
    QVERIFY(m_fixture->files.exists(old));
    install(first());
    QVERIFY(!m_fixture->files.exists(old));
    QCOMPARE(displayName(proxyNamed(QStringLiteral("New.app"))), QStringLiteral("New"));
    QCOMPARE(m_fixture->dockDefaults.array(QStringLiteral("persistent-apps")), QVariantList());
}

void StoreProxiesTest::showInDockReplacesWhatIsInTheWay()
{
    startWith({folderNamed(QStringLiteral("Work"))});
    const FileURL proxy = proxyNamed(QStringLiteral("Work.app"));
    writeFile(proxy.appendingFile(QStringLiteral("foreign")), "x", m_fixture->files.files);
    install(first());
    QCOMPARE(store().errorMessage(), QString());
    QVERIFY(!m_fixture->files.exists(proxy.appendingFile(QStringLiteral("foreign"))));
}

void StoreProxiesTest::aLaunchFailureReachesTheUser()
{
    startWith({folderNamed(QStringLiteral("Work"))});
    install(first());
    m_fixture->workspace.completeAll(PlatformError(QStringLiteral("It would not start.")));
    QCOMPARE(store().errorMessage(), QStringLiteral("It would not start."));
    store().clearError();
    QCOMPARE(store().errorMessage(), QString());
}

void StoreProxiesTest::aFailedStepReachesTheUserAndStopsTheRest_data()
{
    QTest::addColumn<FakeFileSystem::Operation>("operation");
    QTest::addColumn<QString>("pathEnd");
    QTest::newRow("create the directory")
        << Operation::CreateDirectories << "/Users/me/Applications/Nestlet";
    QTest::newRow("copy, disk full") << Operation::Copy << "Work.app";
    QTest::newRow("rewrite") << Operation::Write << "Info.plist";
    QTest::newRow("strip") << Operation::Remove << "_CodeSignature";
    QTest::newRow("write the entitlements") << Operation::Write << ".plist";
}

void StoreProxiesTest::aFailedStepReachesTheUserAndStopsTheRest()
{
    QFETCH(FakeFileSystem::Operation, operation);
    QFETCH(QString, pathEnd);
    startWith({folderNamed(QStringLiteral("Work"))});
    m_fixture->files.fail(operation, pathEnd);
    install(first());
    QVERIFY(store().errorMessage().contains(QStringLiteral("No space left")));
    QVERIFY(m_fixture->workspace.opened.isEmpty());
    QVERIFY(!store().isInstalling(first().id));
}

void StoreProxiesTest::aFolderThatGoesWhileItsCopiesQuitIsNotInstalled()
{
    startWith({folderNamed(QStringLiteral("Work")), folderNamed(QStringLiteral("Other"))});
    m_fixture->applications.isStubborn = true;
    m_fixture->applications.launch(proxyBundleIdentifier(first().id));
    store().installProxy(first().id);
    for (int pass = 0; pass < 50; ++pass)
        QCoreApplication::processEvents();
    store().deleteFolder(first().id);
    m_fixture->finishEverything();
    QVERIFY(!m_fixture->files.exists(proxyNamed(QStringLiteral("Work.app"))));
    QCOMPARE(store().errorMessage(), QString());
}

void StoreProxiesTest::runningCopiesQuitBeforeTheBundleIsReplaced()
{
    startWith({folderNamed(QStringLiteral("Work"))});
    install(first());
    m_fixture->applications.launch(proxyBundleIdentifier(first().id));
    m_fixture->files.onCall = [this](const FakeFileSystem::Call &call) {
        if (call.operation == Operation::Remove && call.path.endsWith(QStringLiteral("Work.app")))
            QCOMPARE(m_fixture->applications.terminated.size(), 1);
    };
    install(first());
    QCOMPARE(m_fixture->applications.terminated.size(), 1);
}

void StoreProxiesTest::politeCopiesAreNotForced()
{
    startWith({folderNamed(QStringLiteral("Work"))});
    m_fixture->applications.launch(proxyBundleIdentifier(first().id));
    install(first());
    QCOMPARE(m_fixture->clock.sleeps, QList<std::chrono::milliseconds>());
    QVERIFY(m_fixture->applications.forceTerminated.isEmpty());
}

void StoreProxiesTest::stubbornCopiesAreForcedAfter100Polls()
{
    startWith({folderNamed(QStringLiteral("Work"))});
    m_fixture->applications.isStubborn = true;
    const RunningApplication copy
        = m_fixture->applications.launch(proxyBundleIdentifier(first().id));
    install(first());
    QCOMPARE(m_fixture->clock.sleeps, QList<std::chrono::milliseconds>(100, 50ms));
    QCOMPARE(m_fixture->applications.terminated, QList{copy});
    QCOMPARE(m_fixture->applications.forceTerminated, QList{copy});
    QCOMPARE(m_fixture->workspace.opened.size(), 1);
}

void StoreProxiesTest::undyingCopiesAreGivenUpAfterTheSettlingPause()
{
    startWith({folderNamed(QStringLiteral("Work"))});
    m_fixture->applications.isStubborn = true;
    m_fixture->applications.isUndying = true;
    m_fixture->applications.launch(proxyBundleIdentifier(first().id));
    install(first());
    QCOMPARE(m_fixture->clock.sleeps.size(), 101);
    QCOMPARE(m_fixture->clock.sleeps.last(), 200ms);
    QCOMPARE(m_fixture->workspace.opened.size(), 1);
}

void StoreProxiesTest::aColumnChangeRebuildsInPlaceInTheBackground()
{
    startWith({folderNamed(QStringLiteral("Work"))});
    install(first());
    const FileURL odd = proxyNamed(QStringLiteral("Renamed by hand.app"));
    m_fixture->files.move(proxyNamed(QStringLiteral("Work.app")), odd);
    m_fixture->workspace.opened.clear();
    m_fixture->applications.launch(proxyBundleIdentifier(first().id));
    store().setGridColumns(first().id, 3);
    m_fixture->finishEverything();
    QCOMPARE(m_fixture->applications.terminated.size(), 1);
    QCOMPARE(m_fixture->workspace.opened,
             (QList<FakeWorkspace::Opened>{{odd, Activation::Background}}));
    QCOMPARE(displayName(odd), QStringLiteral("Work"));
}

void StoreProxiesTest::aRenameRebuildsInPlaceUnderTheNewDisplayName()
{
    startWith({folderNamed(QStringLiteral("Work"))});
    install(first());
    store().renameFolder(first().id, QStringLiteral("Play"));
    m_fixture->finishEverything();
    QCOMPARE(displayName(proxyNamed(QStringLiteral("Work.app"))), QStringLiteral("Play"));
    QVERIFY(!m_fixture->files.exists(proxyNamed(QStringLiteral("Play.app"))));
}

void StoreProxiesTest::twoQuickChangesStartOneRebuild()
{
    startWith({folderNamed(QStringLiteral("Work"))});
    install(first());
    m_fixture->files.calls.clear();
    store().setGridColumns(first().id, 3);
    store().setGridColumns(first().id, 4);
    m_fixture->finishEverything();
    QCOMPARE(m_fixture->files.count(Operation::Copy), 1);
    store().setGridColumns(first().id, 2);
    m_fixture->finishEverything();
    QCOMPARE(m_fixture->files.count(Operation::Copy), 2);
}

void StoreProxiesTest::editsOfAFolderThatIsNotInstalledBuildNothing()
{
    startWith({folderNamed(QStringLiteral("Work"))});
    m_fixture->files.calls.clear();
    store().renameFolder(first().id, QStringLiteral("Play"));
    store().setGridColumns(first().id, 3);
    m_fixture->finishEverything();
    QCOMPARE(m_fixture->files.count(Operation::Copy), 0);
    QVERIFY(m_fixture->workspace.opened.isEmpty());
}

void StoreProxiesTest::otherEditsRebuildNothing()
{
    startWith({folderNamed(QStringLiteral("Work"))});
    install(first());
    m_fixture->files.calls.clear();
    store().setAccentColor(first().id, QStringLiteral("#112233"));
    store().setIconSymbol(first().id, QStringLiteral("gear"));
    store().setCustomIcon(first().id, "png");
    store().addItems(first().id, {FileURL::fromValidText(QStringLiteral("file:///a.app"))});
    m_fixture->finishEverything();
    QCOMPARE(m_fixture->files.count(Operation::Copy), 0);
}

void StoreProxiesTest::aFailedRebuildIsOnlyLogged()
{
    startWith({folderNamed(QStringLiteral("Work"))});
    install(first());
    m_fixture->processes.onRun = [](const FakeProcessRunner::Call &) {
        return ProcessResult{.exitStatus = 1, .standardError = "broken"};
    };
    const QString path = m_fixture->nestletURL().path();
    QTest::ignoreMessage(
        QtWarningMsg,
        qPrintable(QStringLiteral("Nestlet Companion: rebuild of 'Work' failed: Nestlet Companion "
                                  "requires a signed Nestlet app. %1: Nestlet Companion requires a "
                                  "signed Nestlet app. broken")
                       .arg(path)));
    store().setGridColumns(first().id, 3);
    m_fixture->finishEverything();
    QCOMPARE(store().errorMessage(), QString());
}

void StoreProxiesTest::startRebuildsEveryInstalledProxy()
{
    const DockFolder one = folderNamed(QStringLiteral("One"));
    const DockFolder two = folderNamed(QStringLiteral("Two"));
    const DockFolder three = folderNamed(QStringLiteral("Three"));
    m_fixture->writeLibrary({one, two, three});
    const FileURL oneApp = m_fixture->installProxyBundle(one);
    const FileURL threeApp = m_fixture->installProxyBundle(three);
    store().start();
    QVERIFY(m_fixture->workspace.opened.isEmpty()); // not before the event loop runs
    m_fixture->finishEverything();
    QCOMPARE(m_fixture->workspace.opened,
             (QList<FakeWorkspace::Opened>{{oneApp, Activation::Background},
                                           {threeApp, Activation::Background}}));
}

void StoreProxiesTest::startLooksAtTheProxyDirectoryNoMoreOftenForMoreFolders()
{
    const auto listings = [this](int folderCount) {
        init();
        QList<DockFolder> folders;
        for (int i = 0; i < folderCount; ++i) {
            folders.append(folderNamed(QString::number(i)));
            m_fixture->installProxyBundle(folders.last());
        }
        m_fixture->writeLibrary(folders);
        store().start();
        const qsizetype count = m_fixture->files.count(Operation::Contents);
        m_fixture->finishEverything(); // the rebuilds, which look by themselves
        return count;
    };
    QCOMPARE(listings(2), 2); // for what has no folder any more, and for what is left
    QCOMPARE(listings(40), 2);
}

void StoreProxiesTest::startAsksForNestletOnce()
{
    m_fixture->files.files.remove(m_fixture->nestletURL()); // so that the workspace is asked
    m_fixture->writeLibrary({folderNamed(QStringLiteral("Work"))});
    store().start();
    QCOMPARE(m_fixture->workspace.lookups, 1);
}

void StoreProxiesTest::eventsAreHandledBetweenTwoRebuilds()
{
    const DockFolder one = folderNamed(QStringLiteral("One"));
    const DockFolder two = folderNamed(QStringLiteral("Two"));
    m_fixture->writeLibrary({one, two});
    m_fixture->installProxyBundle(one);
    m_fixture->installProxyBundle(two);
    QStringList log;
    m_fixture->files.onCall = [&](const FakeFileSystem::Call &call) {
        if (call.operation != Operation::Copy)
            return;
        log.append(call.path.section(u'/', -1));
        // What a user's input is to the loop: it comes while a rebuild blocks the thread.
        QMetaObject::invokeMethod(
            this, [&] { log.append(QStringLiteral("input")); }, Qt::QueuedConnection);
    };
    store().start();
    m_fixture->finishEverything();
    QCOMPARE(log,
             QStringList({QStringLiteral("One.app"), QStringLiteral("input"),
                          QStringLiteral("Two.app"), QStringLiteral("input")}));
}

void StoreProxiesTest::startWithoutNestletRebuildsNothing()
{
    m_fixture->files.files.remove(m_fixture->nestletURL());
    const DockFolder one = folderNamed(QStringLiteral("One"));
    m_fixture->writeLibrary({one});
    m_fixture->installProxyBundle(one);
    store().start();
    m_fixture->finishEverything();
    QVERIFY(m_fixture->workspace.opened.isEmpty());
    QVERIFY(m_fixture->processes.calls.isEmpty());
    QVERIFY(!store().isNestletInstalled());
}

void StoreProxiesTest::addAllInstallsEveryUnlockedFolder()
{
    startWith({folderNamed(QStringLiteral("One")), folderNamed(QStringLiteral("Two")),
               folderNamed(QStringLiteral("Three"))});
    CompanionStoreTestAccess::lock(store(), store().folders().at(1).id);
    store().installAllProxies();
    m_fixture->finishEverything();
    QCOMPARE(m_fixture->workspace.opened,
             (QList<FakeWorkspace::Opened>{
                 {proxyNamed(QStringLiteral("One.app")), Activation::Foreground},
                 {proxyNamed(QStringLiteral("Three.app")), Activation::Foreground}}));
    QVERIFY(!m_fixture->files.exists(proxyNamed(QStringLiteral("Two.app"))));
}

void StoreProxiesTest::addAllGivesFoldersOfOneNameABundleEach()
{
    startWith({folderNamed(QStringLiteral("Work")), folderNamed(QStringLiteral("Work"))});
    store().installAllProxies();
    m_fixture->finishEverything();
    const DockFolder second = store().folders().at(1);
    const FileURL other
        = proxyNamed(QStringLiteral("Work %1.app").arg(uuidText(second.id).left(8)));
    QCOMPARE(m_fixture->proxyDirectory.installedProxyURLs(first().id),
             QList{proxyNamed(QStringLiteral("Work.app"))});
    QCOMPARE(m_fixture->proxyDirectory.installedProxyURLs(second.id), QList{other});
}

void StoreProxiesTest::theAppStoreFolderNeverGetsADockApp()
{
    const DockFolder nestlets{.id = appStoreFolderID(), .name = QStringLiteral("Nestlet")};
    const FileURL foreign = m_fixture->installProxyBundle(nestlets);
    startWith({nestlets});
    QVERIFY(m_fixture->files.exists(foreign));
    m_fixture->files.calls.clear();
    store().installAllProxies();
    store().installProxy(nestlets.id);
    store().setGridColumns(nestlets.id, 3);
    m_fixture->finishEverything();
    QCOMPARE(m_fixture->files.count(Operation::Copy), 0);
    QVERIFY(m_fixture->workspace.opened.isEmpty());
}

void StoreProxiesTest::theAppStoreFoldersDockAppIsNobodysToRemove_data()
{
    QTest::addColumn<bool>("isInLibrary");
    QTest::newRow("its folder in the library") << true;
    QTest::newRow("its folder not in the library") << false;
}

void StoreProxiesTest::theAppStoreFoldersDockAppIsNobodysToRemove()
{
    QFETCH(bool, isInLibrary);
    const DockFolder nestlets{.id = appStoreFolderID(), .name = QStringLiteral("Nestlet")};
    const FileURL bundle = m_fixture->installProxyBundle(nestlets);
    const FileURL orphan
        = m_fixture->installProxyBundle(folderNamed(QStringLiteral("Gone from the library")));
    const QVariantList tiles{tileFor(bundle)};
    m_fixture->dockDefaults.values.insert(QStringLiteral("persistent-apps"), tiles);
    m_fixture->applications.launch(proxyBundleIdentifier(nestlets.id));
    const DockFolder work = folderNamed(QStringLiteral("Work"));
    startWith(isInLibrary ? QList{work, nestlets} : QList{work});
    QVERIFY(!m_fixture->files.exists(orphan)); // there was a sweep
    QVERIFY(m_fixture->files.exists(bundle));
    store().deleteFolder(nestlets.id);
    QVERIFY(m_fixture->files.exists(bundle));
    install(work);
    store().resetEverything();
    QVERIFY(m_fixture->files.exists(bundle));
    QVERIFY(!m_fixture->files.exists(proxyNamed(QStringLiteral("Work.app"))));
    QVERIFY(m_fixture->applications.terminated.isEmpty());
    QCOMPARE(m_fixture->dockDefaults.array(QStringLiteral("persistent-apps")), tiles);
}

void StoreProxiesTest::aFolderRenamedWhileItsCopiesQuitIsInstalledUnderTheNewName()
{
    startWith({folderNamed(QStringLiteral("Old"))});
    m_fixture->applications.isStubborn = true;
    m_fixture->applications.launch(proxyBundleIdentifier(first().id));
    store().installProxy(first().id);
    for (int pass = 0; pass < 50; ++pass)
        QCoreApplication::processEvents();
    store().renameFolder(first().id, QStringLiteral("New"));
    m_fixture->finishEverything();
    const FileURL proxy = proxyNamed(QStringLiteral("New.app"));
    QCOMPARE(m_fixture->proxyDirectory.installedProxyURLs(first().id), QList{proxy});
    QCOMPARE(displayName(proxy), QStringLiteral("New"));
}

void StoreProxiesTest::deletingAFolderRemovesItsProxyTilesAndCopies()
{
    startWith({folderNamed(QStringLiteral("Work")), folderNamed(QStringLiteral("Other"))});
    install(first());
    const FileURL proxy = proxyNamed(QStringLiteral("Work.app"));
    const QVariantMap other
        = tileFor(FileURL::fromValidText(QStringLiteral("file:///Applications/Other.app/")));
    m_fixture->dockDefaults.values.insert(QStringLiteral("persistent-apps"),
                                          QVariantList{tileFor(proxy), other});
    m_fixture->applications.isStubborn = true;
    const RunningApplication copy
        = m_fixture->applications.launch(proxyBundleIdentifier(first().id));
    store().deleteFolder(first().id);
    QCOMPARE(m_fixture->applications.terminated, QList{copy});
    QVERIFY(m_fixture->applications.forceTerminated.isEmpty());
    QVERIFY(!m_fixture->files.exists(proxy));
    QCOMPARE(m_fixture->dockDefaults.array(QStringLiteral("persistent-apps")), QVariantList{other});
    QCOMPARE(namesOf(store().folders()), QStringList{QStringLiteral("Other")});
    QCOMPARE(namesOf(m_fixture->savedLibrary()->folders), QStringList{QStringLiteral("Other")});
}

void StoreProxiesTest::resetRemovesEverything()
{
    startWith({folderNamed(QStringLiteral("Work")), folderNamed(QStringLiteral("Other"))});
    install(first());
    const FileURL foreign = proxyNamed(QStringLiteral("Foreign.app"));
    m_fixture->files.createDirectories(foreign);
    m_fixture->applications.launch(proxyBundleIdentifier(first().id));
    const QUuid old = first().id;
    store().resetEverything();
    QVERIFY(!m_fixture->files.exists(m_fixture->proxyDirectory.url()));
    QVERIFY(!m_fixture->hasLibraryFile());
    QCOMPARE(m_fixture->applications.terminated.size(), 1);
    QCOMPARE(namesOf(store().folders()), QStringList{QStringLiteral("Dock Folder 1")});
    QVERIFY(first().id != old);
    QVERIFY(!store().isInstalled(old));

    // The event of the file's removal does not replace the new folder.
    const QUuid id = first().id;
    m_fixture->watcher.change();
    m_fixture->finishEverything();
    QCOMPARE(first().id, id);
    QVERIFY(!m_fixture->hasLibraryFile());
}

void StoreProxiesTest::aProxyDirectoryThatIsAFileIsAnErrorToShow()
{
    const QString path = m_fixture->proxyDirectory.url().path();
    writeFile(FileURL::file(path), "in the way", m_fixture->files.files);
    startWith({folderNamed(QStringLiteral("Work"))});
    install(first());
    QVERIFY2(store().errorMessage().contains(path), qPrintable(store().errorMessage()));
}

QTEST_GUILESS_MAIN(StoreProxiesTest)
#include "tst_storeproxies.moc"
