#include "model/libraryjson.h"
#include "tests/store/storefixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace std::chrono_literals;
using Operation = FakeFileSystem::Operation;

class StoreLibraryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_fixture.reset(); }

    void noFileGivesOneFolderAndWritesNothing();
    void anUnusableFileGivesOneFolderAndNoError_data();
    void anUnusableFileGivesOneFolderAndNoError();
    void anUndecodableFileIsKeptBeforeItIsOverwritten();
    void fiveEventsWithin100MillisecondsCauseOneLoad();
    void anOutsideChangeIsShownWithoutWritingItBack();
    void theEchoOfTheOwnSaveChangesNothing();
    void theDefaultFolderOutlivesEventsWithoutALibrary();
    void whatCouldNotBeSavedOutlivesEventsOfAnUnchangedFile_data();
    void whatCouldNotBeSavedOutlivesEventsOfAnUnchangedFile();
    void anOutsideChangeReplacesWhatCouldNotBeSaved();
    void aFileThatGoesAwayGivesOneNewFolder();
    void withoutAWatcherTheStoreWorks();
    void aLockedFolderIsLeftOutButNamedAsSelected();
    void aLockedFolderIsUnlockedByTheNextLoad();
    void anOrphanedProxyIsRemovedAtLoad();
    void whatIsNoProxyIsNeverTouchedAtLoad();
    void theLibraryDirectoryIsWatched();

private:
    CompanionStore &store() { return *m_fixture->store; }
    void change(std::chrono::milliseconds wait = 180ms)
    {
        m_fixture->watcher.change();
        m_fixture->clock.advance(wait);
    }

    std::unique_ptr<StoreFixture> m_fixture;
};

void StoreLibraryTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    m_fixture = std::make_unique<StoreFixture>();
}

void StoreLibraryTest::noFileGivesOneFolderAndWritesNothing()
{
    store().start();
    m_fixture->finishEverything();
    QCOMPARE(namesOf(store().folders()), QStringList{QStringLiteral("Dock Folder 1")});
    QVERIFY(!m_fixture->hasLibraryFile());
    store().addFolder();
    QVERIFY(m_fixture->hasLibraryFile());
}

void StoreLibraryTest::anUnusableFileGivesOneFolderAndNoError_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("no folders") << QByteArrayLiteral(
        R"({"folders":[],"selectedFolderID":"EE000000-EEEE-EEEE-EEEE-EEEEEEEEEEEE"})");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off") << QByteArrayLiteral(R"({"folders":[{"id":)");
    QTest::newRow("not JSON") << QByteArrayLiteral("hello");
}

void StoreLibraryTest::anUnusableFileGivesOneFolderAndNoError()
{
    QFETCH(QByteArray, bytes);
    m_fixture->writeLibraryBytes(bytes);
    store().start();
    QCOMPARE(namesOf(store().folders()), QStringList{QStringLiteral("Dock Folder 1")});
    QCOMPARE(store().errorMessage(), QString());
    QCOMPARE(m_fixture->libraryBytes(), bytes);
}

void StoreLibraryTest::anUndecodableFileIsKeptBeforeItIsOverwritten()
{
    const QByteArray bytes = QByteArrayLiteral("{\"folders\":[{\"name\":\"precious");
    m_fixture->writeLibraryBytes(bytes);
    store().start();
    store().addFolder();
    QVERIFY(m_fixture->savedLibrary());
    const FileURL backups = m_fixture->directories.applicationSupport()
                                .appendingDirectory(QStringLiteral("Nestlet Companion"))
                                .appendingDirectory(QStringLiteral("Backups"));
    const QList<FileURL> kept = m_fixture->files.contents(backups);
    QCOMPARE(kept.size(), 1);
    QCOMPARE(m_fixture->files.read(kept.first()), bytes);

    store().resetEverything();
    QVERIFY(!m_fixture->files.exists(backups));
}

void StoreLibraryTest::fiveEventsWithin100MillisecondsCauseOneLoad()
{
    m_fixture->writeLibrary({folderNamed(QStringLiteral("Work"))});
    store().start();
    m_fixture->files.calls.clear();
    for (int event = 0; event < 5; ++event) {
        m_fixture->watcher.change();
        if (event < 4)
            m_fixture->clock.advance(25ms);
    }
    m_fixture->clock.advance(179ms);
    QCOMPARE(m_fixture->files.count(Operation::Read), 0);
    m_fixture->clock.advance(1ms);
    QCOMPARE(m_fixture->files.count(Operation::Read), 1);
    m_fixture->clock.advance(10s);
    QCOMPARE(m_fixture->files.count(Operation::Read), 1);
}

void StoreLibraryTest::anOutsideChangeIsShownWithoutWritingItBack()
{
    m_fixture->writeLibrary({folderNamed(QStringLiteral("Work"))});
    store().start();
    const QSignalSpy changes(&store(), &CompanionStore::foldersChanged);
    m_fixture->writeLibrary(
        {folderNamed(QStringLiteral("Play")), folderNamed(QStringLiteral("x"))});
    change();
    QCOMPARE(changes.count(), 1);
    QCOMPARE(namesOf(store().folders()),
             QStringList({QStringLiteral("Play"), QStringLiteral("x")}));
    QCOMPARE(m_fixture->files.count(Operation::Write), 0);
}

void StoreLibraryTest::theEchoOfTheOwnSaveChangesNothing()
{
    m_fixture->writeLibrary({folderNamed(QStringLiteral("Work"))});
    store().start();
    store().addFolder();
    const QSignalSpy changes(&store(), &CompanionStore::foldersChanged);
    change();
    QCOMPARE(changes.count(), 0);
    QCOMPARE(store().folders().size(), 2);
}

void StoreLibraryTest::theDefaultFolderOutlivesEventsWithoutALibrary()
{
    store().start();
    const QUuid id = store().folders().first().id;
    change();
    QCOMPARE(store().folders().first().id, id);
}

void StoreLibraryTest::whatCouldNotBeSavedOutlivesEventsOfAnUnchangedFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("a library") << encodeLibrary({.folders = {folderNamed(QStringLiteral("Work"))}});
    QTest::newRow("no library") << QByteArrayLiteral("hello");
    QTest::newRow("no file") << QByteArray();
}

void StoreLibraryTest::whatCouldNotBeSavedOutlivesEventsOfAnUnchangedFile()
{
    QFETCH(QByteArray, bytes);
    if (!bytes.isNull())
        m_fixture->writeLibraryBytes(bytes);
    store().start();
    m_fixture->files.fail(Operation::Write, QStringLiteral("Nestlet.json"));
    store().renameFolder(store().folders().first().id, QStringLiteral("Play"));
    store().addFolder();
    const QList<DockFolder> edited = store().folders();
    const QSignalSpy changes(&store(), &CompanionStore::foldersChanged);
    change();
    QCOMPARE(changes.count(), 0);
    QCOMPARE(store().folders(), edited);

    // The next save that succeeds writes all of it.
    m_fixture->files.failures.clear();
    store().setAccentColor(edited.first().id, QStringLiteral("#112233"));
    change();
    QCOMPARE(namesOf(m_fixture->savedLibrary()->folders), namesOf(edited));
    QCOMPARE(store().folders(), m_fixture->savedLibrary()->folders);
}

void StoreLibraryTest::anOutsideChangeReplacesWhatCouldNotBeSaved()
{
    m_fixture->writeLibrary({folderNamed(QStringLiteral("Work"))});
    store().start();
    m_fixture->files.fail(Operation::Write, QStringLiteral("Nestlet.json"));
    store().addFolder();
    m_fixture->writeLibrary({folderNamed(QStringLiteral("Theirs"))});
    change();
    QCOMPARE(namesOf(store().folders()), QStringList{QStringLiteral("Theirs")});
}

void StoreLibraryTest::aFileThatGoesAwayGivesOneNewFolder()
{
    m_fixture->writeLibrary({folderNamed(QStringLiteral("Work"))});
    store().start();
    m_fixture->files.files.remove(m_fixture->folderLibrary.url());
    change();
    QCOMPARE(namesOf(store().folders()), QStringList{QStringLiteral("Dock Folder 1")});
}

void StoreLibraryTest::withoutAWatcherTheStoreWorks()
{
    m_fixture->watcher.canWatch = false;
    store().start();
    store().addFolder();
    QCOMPARE(m_fixture->savedLibrary()->folders.size(), 2);
}

void StoreLibraryTest::aLockedFolderIsLeftOutButNamedAsSelected()
{
    m_fixture->writeLibrary({folderNamed(QStringLiteral("1")), folderNamed(QStringLiteral("2"))});
    store().start();
    const QUuid locked = store().folders().first().id;
    CompanionStoreTestAccess::lock(store(), locked);
    store().addFolder();
    QCOMPARE(namesOf(m_fixture->savedLibrary()->folders),
             QStringList({QStringLiteral("2"), QStringLiteral("Dock Folder 3")}));
    QCOMPARE(m_fixture->savedLibrary()->selectedFolderID, locked);
}

void StoreLibraryTest::aLockedFolderIsUnlockedByTheNextLoad()
{
    m_fixture->writeLibrary({folderNamed(QStringLiteral("1"))});
    store().start();
    const QUuid locked = store().folders().first().id;
    CompanionStoreTestAccess::lock(store(), locked);
    change();
    QVERIFY(store().lockedFolderIDs().isEmpty());
    store().renameFolder(locked, QStringLiteral("free"));
    QCOMPARE(store().folders().first().name, QStringLiteral("free"));
}

void StoreLibraryTest::anOrphanedProxyIsRemovedAtLoad()
{
    const DockFolder kept = folderNamed(QStringLiteral("Kept"));
    const DockFolder gone = folderNamed(QStringLiteral("Gone"));
    m_fixture->writeLibrary({kept});
    const FileURL keptApp = m_fixture->installProxyBundle(kept);
    const FileURL goneApp = m_fixture->installProxyBundle(gone);
    store().start();
    QVERIFY(m_fixture->files.exists(keptApp));
    QVERIFY(!m_fixture->files.exists(goneApp));
    QVERIFY(store().isInstalled(kept.id));

    // By another program, while this one runs.
    m_fixture->writeLibrary({folderNamed(QStringLiteral("Other"))});
    change();
    QVERIFY(!m_fixture->files.exists(keptApp));
}

void StoreLibraryTest::whatIsNoProxyIsNeverTouchedAtLoad()
{
    const DockFolder gone = folderNamed(QStringLiteral("Gone"));
    m_fixture->writeLibrary({folderNamed(QStringLiteral("Work"))});
    const FileURL directory = m_fixture->proxyDirectory.url();
    const FileURL foreign = directory.appendingDirectory(QStringLiteral("Foreign.app"));
    m_fixture->files.createDirectories(foreign);
    const FileURL otherExtension
        = m_fixture->installProxyBundle(gone, QStringLiteral("Gone.app.old"));
    const FileURL upperCase = directory.appendingDirectory(QStringLiteral("Gone.APP"));
    m_fixture->files.move(otherExtension, upperCase);
    store().start();
    QVERIFY(m_fixture->files.exists(foreign));
    QVERIFY(m_fixture->files.exists(upperCase));
}

void StoreLibraryTest::theLibraryDirectoryIsWatched()
{
    store().start();
    QCOMPARE(m_fixture->watcher.watched, QList{m_fixture->folderLibrary.directory()});
    QVERIFY(m_fixture->files.exists(m_fixture->folderLibrary.directory()));
}

QTEST_GUILESS_MAIN(StoreLibraryTest)
#include "tst_storelibrary.moc"
