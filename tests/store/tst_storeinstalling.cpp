#include "tests/store/storefixture.h"

#include <QSignalSpy>
#include <QTest>

using Operation = FakeFileSystem::Operation;

/// What "Show in Dock" does beside the building: to the library, and with what goes on meanwhile.
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

private:
    CompanionStore &store() { return *m_fixture->store; }
    DockFolder first() { return store().folders().first(); }
    void install(const DockFolder &folder)
    {
        store().installProxy(folder.id);
        m_fixture->finishEverything();
    }
    /// Whether the program that is started next finds the one folder, in the library and installed.
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

QTEST_GUILESS_MAIN(StoreInstallingTest)
#include "tst_storeinstalling.moc"
