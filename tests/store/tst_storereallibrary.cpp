#include "tests/store/realcompanion.h"
#include "tests/store/storefixture.h"

#include "model/libraryjson.h"
#include "platform/directories.h"
#include "tests/builder/bundles.h"
#include "tests/fakes/fakeclock.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace std::chrono_literals;

namespace {

constexpr int patience = 60'000;
constexpr int quiet = 600; // a reload waits 180 ms for silence

} // namespace

/// The library file, changed by others on a real disk under a real watcher.
class StoreRealLibraryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aBurstOfReplacementsIsOneReload();
    void aFileThatIsDeletedAndComesBackIsFollowed();
    void aFileWrittenInPlaceIsFollowed();
    void anotherFileInTheDirectoryDisturbsNothing();
    void aThousandFoldersLoadAndTheirEchoIsSilent();
    void anEditAndAnOutsideChangeBothArrive();

private:
    CompanionStore &store() { return m_companion->engine.store; }
    void startWith(const QList<DockFolder> &folders)
    {
        writeLibrary(folders);
        store().start();
    }
    // As another program does: a new file is put in the place of the old one.
    void writeLibrary(const QList<DockFolder> &folders) const
    {
        writeFile(m_companion->engine.folderLibrary.url(),
                  encodeLibrary({.folders = folders, .selectedFolderID = folders.first().id}),
                  *m_companion->platform.files);
    }
    [[nodiscard]] QByteArray libraryBytes() const
    {
        return m_companion->platform.files->read(m_companion->engine.folderLibrary.url());
    }

    std::optional<QTemporaryDir> m_directory;
    std::unique_ptr<RealCompanion> m_companion;
};

void StoreRealLibraryTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_directory.emplace();
    m_companion = std::make_unique<RealCompanion>(m_directory->path());
}

void StoreRealLibraryTest::cleanup()
{
    m_companion.reset();
    m_directory.reset();
}

void StoreRealLibraryTest::aBurstOfReplacementsIsOneReload()
{
    auto ownClock = std::make_unique<FakeClock>(); // a busy machine makes no pauses in this one
    FakeClock &clock = *ownClock;
    m_companion = std::make_unique<RealCompanion>(m_directory->path(), std::move(ownClock));
    DockFolder folder = folderNamed(QStringLiteral("0"));
    startWith({folder});
    const QSignalSpy loads(&store(), &CompanionStore::presenceChanged); // each load looks anew
    const QSignalSpy changes(&store(), &CompanionStore::foldersChanged);
    for (int number = 1; number <= 200; ++number) {
        clock.advance(10ms);
        folder.name = QString::number(number);
        writeLibrary({folder});
        QCoreApplication::processEvents();
    }
    QCOMPARE(loads.count(), 0);
    for (int pass = 0; pass < 20; ++pass) // the last of the events
        QCoreApplication::processEvents();
    clock.advance(179ms);
    QCOMPARE(loads.count(), 0);
    clock.advance(1ms);
    QCOMPARE(loads.count(), 1);
    QCOMPARE(namesOf(store().folders()), QStringList(QStringLiteral("200")));
    QVERIFY(!clock.advanceToNext());
    QCOMPARE(changes.count(), 1);
}

void StoreRealLibraryTest::aFileThatIsDeletedAndComesBackIsFollowed()
{
    const DockFolder folder = folderNamed(QStringLiteral("Work"));
    startWith({folder});
    m_companion->platform.files->remove(m_companion->engine.folderLibrary.url());
    QTRY_COMPARE_WITH_TIMEOUT(namesOf(store().folders()),
                              QStringList(QStringLiteral("Dock Folder 1")), patience);
    QTest::qWait(quiet);
    QVERIFY(!m_companion->platform.files->exists(m_companion->engine.folderLibrary.url()));

    writeLibrary({folder, folderNamed(QStringLiteral("Play"))});
    QTRY_COMPARE_WITH_TIMEOUT(store().folders().size(), 2, patience);
    QCOMPARE(store().folders().first(), folder);
    store().renameFolder(folder.id, QStringLiteral("After all"));
    QCOMPARE(decodeLibrary(libraryBytes()).value().folders, store().folders());
    QCOMPARE(store().errorMessage(), QString());
}

void StoreRealLibraryTest::aFileWrittenInPlaceIsFollowed()
{
    startWith({folderNamed(QStringLiteral("Work"))});
    DockFolder folder = store().folders().first();
    folder.name = QStringLiteral("In place");
    const QByteArray bytes = encodeLibrary({.folders = {folder}, .selectedFolderID = folder.id});
    QFile file(m_companion->engine.folderLibrary.url().path());
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), bytes.size());
    file.close();
    // A directory tells of names that come and go, not of bytes: another change brings them along.
    writeFile(
        m_companion->engine.folderLibrary.directory().appendingFile(QStringLiteral("touched")), "x",
        *m_companion->platform.files);
    QTRY_COMPARE_WITH_TIMEOUT(store().folders().first().name, QStringLiteral("In place"), patience);
}

void StoreRealLibraryTest::anotherFileInTheDirectoryDisturbsNothing()
{
    startWith({folderNamed(QStringLiteral("Work"))});
    QTest::qWait(quiet);
    QSignalSpy loads(&store(), &CompanionStore::presenceChanged);
    const QSignalSpy changes(&store(), &CompanionStore::foldersChanged);
    writeFile(m_companion->engine.folderLibrary.directory().appendingFile(QStringLiteral("other")),
              "x", *m_companion->platform.files);
    QTRY_COMPARE_WITH_TIMEOUT(loads.count(), 1, patience);
    QCOMPARE(changes.count(), 0);
}

void StoreRealLibraryTest::aThousandFoldersLoadAndTheirEchoIsSilent()
{
    QList<DockFolder> folders;
    for (int number = 1; number <= 1000; ++number) {
        folders.append(folderNamed(QStringLiteral("Folder %1").arg(number),
                                   {QStringLiteral("file:///Applications/A.app/"),
                                    QStringLiteral("file:///Applications/B%20%C3%A9.app/"),
                                    QStringLiteral("file:///tmp/e%CC%81")}));
    }
    startWith(folders);
    QCOMPARE(store().folders(), folders);
    QTest::qWait(quiet);

    QSignalSpy loads(&store(), &CompanionStore::presenceChanged);
    const QSignalSpy changes(&store(), &CompanionStore::foldersChanged);
    store().renameFolder(folders.at(500).id, QStringLiteral("Another"));
    QCOMPARE(changes.count(), 1);
    const QByteArray saved = libraryBytes();
    QTRY_COMPARE_WITH_TIMEOUT(loads.count(), 1, patience); // its own save comes back
    QTest::qWait(quiet);
    QCOMPARE(loads.count(), 1);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(libraryBytes(), saved);
    QCOMPARE(decodeLibrary(saved).value().folders, store().folders());

    folders[500].name = QStringLiteral("Another");
    folders.move(999, 0);
    writeLibrary(folders);
    QTRY_COMPARE_WITH_TIMEOUT(changes.count(), 2, patience);
    QCOMPARE(store().folders(), folders);
}

void StoreRealLibraryTest::anEditAndAnOutsideChangeBothArrive()
{
    startWith({folderNamed(QStringLiteral("Work"))});
    store().addFolder();
    QList<DockFolder> folders = decodeLibrary(libraryBytes()).value().folders;
    QCOMPARE(folders.size(), 2);
    folders.append(folderNamed(QStringLiteral("From outside")));
    writeLibrary(folders);
    QTRY_COMPARE_WITH_TIMEOUT(store().folders().size(), 3, patience);
    QCOMPARE(namesOf(store().folders()),
             (QStringList{QStringLiteral("Work"), QStringLiteral("Dock Folder 2"),
                          QStringLiteral("From outside")}));
}

QTEST_MAIN(StoreRealLibraryTest)
#include "tst_storereallibrary.moc"
