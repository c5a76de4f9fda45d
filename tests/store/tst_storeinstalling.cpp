#include "tests/store/storefixture.h"

#include "builder/infoplist.h"
#include "tests/builder/bundles.h"

#include <QSignalSpy>
#include <QTest>

using Operation = FakeFileSystem::Operation;

/// What "Show in Dock" does beside the building: to the library, and with what
/// goes on meanwhile.
class StoreInstallingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_fixture.reset(); }

    void aMadeUpFolderIsSavedBeforeItIsInstalled_data();
    void aMadeUpFolderIsSavedBeforeItIsInstalled();
    void theFolderMadeUpByAResetIsSavedBeforeItIsInstalled();
    void aFolderThatCouldNotBeSavedIsSavedBeforeItIsInstalled();
    void installingASavedFolderLeavesTheLibraryAlone();
    void aSecondInstallOfAFolderIsRefusedUntilTheFirstHasEnded();
    void aFolderThatGoesBeforeItsInstallBeginsIsNoError();
    void aRenameDuringAnInstallIsPartOfIt();
    void aChangeDuringAnInstallThatFailsIsRebuiltAfterIt();
    void anInstallWaitsForARebuildThatHasBegun();
    void aFolderDeletedWhileItsInstallWaitsForARebuildIsLeftAlone();
    void onlyASuccessfulInstallIsAnnounced();
    void addAllTellsHowFarItIs();
    void addAllWithNothingToAddHasNoProgress();
    void aSecondAddAllWhileOneRunsDoesNothing();
    void addAllLeavesOutWhatIsBeingInstalled();
    void addAllEndsWhenItsFoldersGo();

private:
    using Progress = CompanionStore::InstallProgress;

    CompanionStore &store() { return *m_fixture->store; }
    DockFolder first() { return store().folders().first(); }
    void startWith(const QStringList &names)
    {
        QList<DockFolder> folders;
        for (const QString &name : names)
            folders.append(folderNamed(name));
        m_fixture->writeLibrary(folders);
        store().start();
        m_fixture->finishEverything();
    }
    /// A folder with a Dock app of which a copy runs that does not heed a request
    /// to quit.
    void startInstalledWithStubbornCopy()
    {
        startWith({QStringLiteral("Work"), QStringLiteral("Other")});
        install(first());
        m_fixture->applications.isStubborn = true;
        m_fixture->applications.launch(proxyBundleIdentifier(first().id));
        m_fixture->workspace.opened.clear();
        m_fixture->files.calls.clear();
    }
    /// Far enough that every operation is waiting for the copy to quit.
    static void runUntilOperationsWait()
    {
        for (int pass = 0; pass < 50; ++pass)
            QCoreApplication::processEvents();
    }
    QString displayName(const FileURL &bundle)
    {
        return readInfoPlist(bundle, m_fixture->files)
            .value(QStringLiteral("CFBundleDisplayName"))
            .toString();
    }
    FileURL proxyNamed(const QString &fileName)
    {
        return m_fixture->proxyDirectory.url().appendingDirectory(fileName);
    }
    /// What is published from here on, nothing written as {}.
    void recordProgress(QList<std::optional<Progress>> &into)
    {
        connect(&store(), &CompanionStore::installAllProgressChanged, this,
                [this, &into] { into.append(store().installAllProgress()); });
    }
    void install(const DockFolder &folder)
    {
        store().installProxy(folder.id);
        m_fixture->finishEverything();
    }
    /// Whether the program that is started next finds the one folder, in the
    /// library and installed.
    bool isFoundAtTheNextStart()
    {
        const DockFolder before = first();
        CompanionEngine next(m_fixture->platform, EventTurns::Start::AtOnce);
        next.store.start();
        m_fixture->finishEverything();
        return next.store.folders() == QList{before} && next.store.isInstalled(before.id);
    }

    std::unique_ptr<StoreFixture> m_fixture;
};

void StoreInstallingTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    m_fixture = std::make_unique<StoreFixture>();
    m_fixture->installNestlet();
}

void StoreInstallingTest::aMadeUpFolderIsSavedBeforeItIsInstalled_data()
{
    QTest::addColumn<bool>("byAddAll");
    QTest::newRow("alone") << false;
    QTest::newRow("with all") << true;
}

void StoreInstallingTest::aMadeUpFolderIsSavedBeforeItIsInstalled()
{
    QFETCH(bool, byAddAll);
    store().start();
    QVERIFY(!m_fixture->hasLibraryFile());
    if (byAddAll)
        store().installAllProxies();
    else
        store().installProxy(first().id);
    QCOMPARE(m_fixture->savedLibrary()->folders, QList{first()}); // before anything is built
    m_fixture->finishEverything();
    QVERIFY(store().isInstalled(first().id));
    QVERIFY(isFoundAtTheNextStart());
}

void StoreInstallingTest::theFolderMadeUpByAResetIsSavedBeforeItIsInstalled()
{
    m_fixture->writeLibrary({folderNamed(QStringLiteral("Work"))});
    store().start();
    store().resetEverything();
    m_fixture->watcher.change(); // the event of the file's removal
    m_fixture->finishEverything();
    QVERIFY(!m_fixture->hasLibraryFile());
    install(first());
    QVERIFY(isFoundAtTheNextStart());
}

void StoreInstallingTest::aFolderThatCouldNotBeSavedIsSavedBeforeItIsInstalled()
{
    store().start();
    m_fixture->files.fail(Operation::Write, QStringLiteral("Nestlet.json"));
    store().renameFolder(first().id, QStringLiteral("Work"));
    QVERIFY(!m_fixture->hasLibraryFile());
    store().clearError();
    store().installProxy(first().id); // fails once more
    QVERIFY(store().errorMessage().contains(QStringLiteral("No space left")));
    m_fixture->finishEverything();
    m_fixture->files.failures.clear();
    install(first());
    QVERIFY(isFoundAtTheNextStart());
}

void StoreInstallingTest::installingASavedFolderLeavesTheLibraryAlone()
{
    m_fixture->writeLibrary({folderNamed(QStringLiteral("Work"))});
    store().start();
    const QByteArray bytes = m_fixture->libraryBytes() + '\n'; // by another program, just now
    m_fixture->writeLibraryBytes(bytes);
    install(first());
    QCOMPARE(m_fixture->libraryBytes(), bytes);
}

void StoreInstallingTest::aSecondInstallOfAFolderIsRefusedUntilTheFirstHasEnded()
{
    startInstalledWithStubbornCopy();
    store().installProxy(first().id);
    store().installProxy(first().id);
    runUntilOperationsWait();
    store().installProxy(first().id);
    m_fixture->finishEverything();
    QCOMPARE(m_fixture->files.count(Operation::Copy), 1);
    QCOMPARE(m_fixture->workspace.opened.size(), 1);
    install(first());
    QCOMPARE(m_fixture->files.count(Operation::Copy), 2);
}

void StoreInstallingTest::aFolderThatGoesBeforeItsInstallBeginsIsNoError()
{
    m_fixture->files.files.remove(m_fixture->nestletURL());
    startWith({QStringLiteral("Work"), QStringLiteral("Other")});
    const QSignalSpy announced(&store(), &CompanionStore::proxyInstalled);
    const QUuid id = first().id;
    store().installProxy(id);
    store().deleteFolder(id);
    m_fixture->finishEverything();
    QCOMPARE(store().errorMessage(), QString());
    QVERIFY(!store().isInstalling(id));
    QCOMPARE(announced.count(), 0);
}

void StoreInstallingTest::aRenameDuringAnInstallIsPartOfIt()
{
    startInstalledWithStubbornCopy();
    store().installProxy(first().id);
    runUntilOperationsWait();
    store().renameFolder(first().id, QStringLiteral("Play"));
    m_fixture->finishEverything();
    const FileURL proxy = proxyNamed(QStringLiteral("Play.app"));
    QCOMPARE(m_fixture->proxyDirectory.installedProxyURLs(first().id), QList{proxy});
    QCOMPARE(displayName(proxy), QStringLiteral("Play"));
    QCOMPARE(m_fixture->workspace.opened,
             (QList<FakeWorkspace::Opened>{{proxy, Activation::Foreground}}));
}

void StoreInstallingTest::aChangeDuringAnInstallThatFailsIsRebuiltAfterIt()
{
    startWith({QStringLiteral("Work")});
    install(first());
    m_fixture->workspace.opened.clear();
    // The template is refused once, and found in order when it is looked at
    // again.
    const auto inOrder = std::exchange(m_fixture->processes.onRun, [](const auto &) {
        return ProcessResult{.exitStatus = 1, .standardError = "broken"};
    });
    connect(&store(), &CompanionStore::errorMessageChanged, this,
            [&] { m_fixture->processes.onRun = inOrder; });
    store().installProxy(first().id);
    store().renameFolder(first().id, QStringLiteral("Play"));
    m_fixture->finishEverything();
    QVERIFY(store().errorMessage().contains(QStringLiteral("broken")));
    const FileURL proxy = proxyNamed(QStringLiteral("Work.app"));
    QCOMPARE(displayName(proxy), QStringLiteral("Play"));
    QCOMPARE(m_fixture->workspace.opened,
             (QList<FakeWorkspace::Opened>{{proxy, Activation::Background}}));
}

void StoreInstallingTest::anInstallWaitsForARebuildThatHasBegun()
{
    startInstalledWithStubbornCopy();
    store().setGridColumns(first().id, 3);
    runUntilOperationsWait();
    store().installProxy(first().id);
    QVERIFY(store().isInstalling(first().id));
    m_fixture->finishEverything();
    QVERIFY(!store().isInstalling(first().id));
    const FileURL proxy = proxyNamed(QStringLiteral("Work.app"));
    QCOMPARE(m_fixture->workspace.opened,
             (QList<FakeWorkspace::Opened>{{proxy, Activation::Background},
                                           {proxy, Activation::Foreground}}));
    QCOMPARE(m_fixture->clock.sleeps.size(),
             100); // one of them waited for the copy, not both
}

void StoreInstallingTest::aFolderDeletedWhileItsInstallWaitsForARebuildIsLeftAlone()
{
    startInstalledWithStubbornCopy();
    const QUuid id = first().id;
    store().setGridColumns(id, 3);
    runUntilOperationsWait();
    store().installProxy(id);
    store().deleteFolder(id);
    m_fixture->finishEverything();
    QVERIFY(m_fixture->proxyDirectory.entries().isEmpty());
    QVERIFY(m_fixture->workspace.opened.isEmpty());
    QVERIFY(!store().isInstalling(id));
    QCOMPARE(store().errorMessage(), QString());
}

void StoreInstallingTest::onlyASuccessfulInstallIsAnnounced()
{
    startWith({QStringLiteral("Work")});
    QSignalSpy announced(&store(), &CompanionStore::proxyInstalled);
    m_fixture->files.fail(Operation::Copy);
    install(first());
    QCOMPARE(announced.count(), 0);
    m_fixture->files.failures.clear();
    bool wasInstalled = false;
    connect(&store(), &CompanionStore::proxyInstalled, this,
            [&](const QUuid &id) { wasInstalled = store().isInstalled(id); });
    install(first());
    QCOMPARE(announced.count(), 1);
    QCOMPARE(announced.first(), QVariantList{first().id});
    QVERIFY(wasInstalled); // already when it was announced
    store().setGridColumns(first().id, 3);
    m_fixture->finishEverything();
    QCOMPARE(announced.count(), 1);
}

void StoreInstallingTest::addAllTellsHowFarItIs()
{
    startWith({QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three")});
    m_fixture->files.fail(Operation::Copy, QStringLiteral("Two.app"));
    QCOMPARE(store().installAllProgress(), std::nullopt);
    QList<std::optional<Progress>> progress;
    recordProgress(progress);
    store().installAllProxies();
    QCOMPARE(store().installAllProgress(), (Progress{.done = 0, .total = 3}));
    m_fixture->finishEverything();
    QCOMPARE(progress,
             (QList<std::optional<Progress>>{Progress{.done = 0, .total = 3},
                                             Progress{.done = 1, .total = 3},
                                             Progress{.done = 2, .total = 3}, std::nullopt}));
    QVERIFY(store().errorMessage().contains(QStringLiteral("No space left")));
    QVERIFY(store().isInstalled(store().folders().last().id));
}

void StoreInstallingTest::addAllWithNothingToAddHasNoProgress()
{
    startWith({QStringLiteral("Work")});
    CompanionStoreTestAccess::lock(store(), first().id);
    const QSignalSpy progress(&store(), &CompanionStore::installAllProgressChanged);
    store().installAllProxies();
    QCOMPARE(progress.count(), 0);
    QCOMPARE(store().installAllProgress(), std::nullopt);
}

void StoreInstallingTest::aSecondAddAllWhileOneRunsDoesNothing()
{
    startWith({QStringLiteral("One"), QStringLiteral("Two")});
    store().installAllProxies();
    const DockFolder added = store().addFolder();
    store().installAllProxies();
    QCOMPARE(store().installAllProgress(), (Progress{.done = 0, .total = 2}));
    m_fixture->finishEverything();
    QCOMPARE(m_fixture->workspace.opened.size(), 2);
    QVERIFY(!store().isInstalled(added.id));
    store().installAllProxies();
    m_fixture->finishEverything();
    QCOMPARE(m_fixture->workspace.opened.size(), 5);
}

void StoreInstallingTest::addAllLeavesOutWhatIsBeingInstalled()
{
    startInstalledWithStubbornCopy();
    store().installProxy(first().id);
    runUntilOperationsWait();
    store().installAllProxies();
    QCOMPARE(store().installAllProgress(), (Progress{.done = 0, .total = 1}));
    m_fixture->finishEverything();
    QCOMPARE(store().installAllProgress(), std::nullopt);
    QCOMPARE(m_fixture->workspace.opened.size(), 2);
}

void StoreInstallingTest::addAllEndsWhenItsFoldersGo()
{
    startInstalledWithStubbornCopy();
    store().installAllProxies();
    store().deleteFolder(store().folders().at(1).id);
    runUntilOperationsWait();
    store().resetEverything();
    m_fixture->finishEverything();
    QCOMPARE(store().installAllProgress(), std::nullopt);
    QVERIFY(m_fixture->workspace.opened.isEmpty());
    QVERIFY(!m_fixture->files.exists(m_fixture->proxyDirectory.url()));
    QCOMPARE(store().errorMessage(), QString());
}

QTEST_GUILESS_MAIN(StoreInstallingTest)
#include "tst_storeinstalling.moc"
