#include "model/keptfolders.h"
#include "model/libraryfile.h"
#include "model/libraryjson.h"
#include "tests/fakes/fakedirectories.h"
#include "tests/fakes/fakefilesystem.h"
#include "tests/librarygenerator.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

class LibraryFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void isInApplicationSupport();
    void thereIsNoLibraryWithoutAFile();
    void aLibraryWithoutFoldersIsNone();
    void loadsWhatWasSaved();
    void createsItsDirectory();
    void savesCompactlyWhateverItRead();

    void theEchoOfASaveIsTheSameList();
    void anUnchangedFileIsTheSameList();
    void onlyTheChangedFolderIsNew_data();
    void onlyTheChangedFolderIsNew();
    void aFolderWrittenDifferentlyIsStillShared();
    void aFolderWrittenDifferentlyIsStillSharedBesideKnownOnes();
    void theOnlyNewPictureDoesNotKeepItsWholeFile();
    void foldersAreSharedBeyondInsertionsRemovalsAndMoves();
    void aFailedLoadForgetsNothing();
    void tellsWhetherTheFileChanged();
    void loadsAheadOnce();
    void whatChangesWhileItLoadsAheadIsReadAgain();
    void whatWasLoadedAheadNeedNotBeAskedFor();
    void aFailedSaveIsNoChangeOfTheFile();
    void noLibraryStaysTheSame();
    void savesWhatAPlainEncoderWould();
    void survivesManyRandomEdits();

    void keepsAFileThatCannotBeDecoded();
    void keepsEachContentOnce();
    void keepsNothingOfALibrary();
    void keepsWhatSomebodyElseBrokeAfterALoad();
    void keepsWhatSomebodyElseBrokeAfterASave();
    void movesAFileAsideThatCannotBeRead();
    void movesADirectoryAside();
    void whatWasMovedAsideComesBackWhenTheSaveFails();
    void aSaveFailsWhenTheBackupDoes();
    void aSaveFailsWhenTheFileCannotBeMovedAside();
    void aFailedSaveLeavesTheOldFile();
    void saysWhichPathFailed();

    void removesTheFileAndTheBackups();
    void removingNothingIsNoError();

private:
    struct Bench { // a file on a Mac of its own
        FakeFileSystem files{};
        FakeDirectories directories{};
        LibraryFile file{files, directories};

        void write(const QByteArray &bytes)
        {
            files.files.createDirectories(file.directory());
            files.files.writeAtomically(file.url(), bytes);
        }
        [[nodiscard]] QByteArray bytes() const { return files.files.read(file.url()); }
        [[nodiscard]] QString support() const { return directories.applicationSupport().path(); }
        [[nodiscard]] QDir backups() const
        {
            return {support() + QStringLiteral("/Nestlet Companion/Backups")};
        }
        [[nodiscard]] QByteArrayList backedUp() const
        {
            QByteArrayList contents;
            for (const QString &name : backups().entryList(QDir::Files))
                contents.append(files.files.read(FileURL::file(backups().filePath(name))));
            return contents;
        }
    };
};

namespace {

DockFolderLibrary sampleLibrary(int folders = 4)
{
    return LibraryGenerator(1).regularLibrary({.folders = folders,
                                               .itemsPerFolder = 3,
                                               .pictures = folders,
                                               .pictureSize = 100,
                                               .bookmarkSize = 10});
}

// Whether both are one folder, and not merely equal ones.
bool isShared(const DockFolder &a, const DockFolder &b)
{
    return a.items.constData() == b.items.constData()
        && a.customIconData->isSharedWith(*b.customIconData);
}

} // namespace

void LibraryFileTest::isInApplicationSupport()
{
    const Bench bench;
    QCOMPARE(bench.file.directory().path(), bench.support() + QStringLiteral("/Nestlet"));
    QVERIFY(bench.file.directory().hasDirectoryPath());
    QCOMPARE(bench.file.url().path(), bench.support() + QStringLiteral("/Nestlet/Nestlet.json"));
}

void LibraryFileTest::thereIsNoLibraryWithoutAFile()
{
    Bench bench;
    QCOMPARE(bench.file.load().folders, std::nullopt);
}

void LibraryFileTest::aLibraryWithoutFoldersIsNone()
{
    Bench bench;
    bench.write(encodeLibrary({}));
    QCOMPARE(bench.file.load().folders, std::nullopt);
}

void LibraryFileTest::loadsWhatWasSaved()
{
    Bench bench;
    const DockFolderLibrary library = sampleLibrary();
    bench.file.save(library);
    QCOMPARE(bench.file.load().folders, std::optional(library.folders));
    LibraryFile another(bench.files, bench.directories);
    QCOMPARE(another.load().folders, std::optional(library.folders));
}

void LibraryFileTest::createsItsDirectory()
{
    Bench bench;
    QVERIFY(!QFile::exists(bench.support()));
    bench.file.save(sampleLibrary());
    QVERIFY(QFile::exists(bench.file.url().path()));
}

void LibraryFileTest::savesCompactlyWhateverItRead()
{
    Bench bench;
    const DockFolderLibrary library = sampleLibrary();
    const QByteArray compact = encodeLibrary(library);
    bench.write(
        QByteArray(compact).replace("/", R"(\/)").replace(R"({"id")", R"({ "more" : 1, "id")"));
    QCOMPARE(bench.file.load().folders, std::optional(library.folders));
    bench.file.save(library);
    QCOMPARE(bench.bytes(), compact);
}

void LibraryFileTest::theEchoOfASaveIsTheSameList()
{
    Bench bench;
    const DockFolderLibrary library = sampleLibrary();
    bench.file.save(library);
    QCOMPARE(bench.file.load().folders->constData(), library.folders.constData());
}

void LibraryFileTest::anUnchangedFileIsTheSameList()
{
    Bench bench;
    bench.write(encodeLibrary(sampleLibrary()).replace(",", " , "));
    const QList<DockFolder> first = bench.file.load().folders.value();
    const QList<DockFolder> second = bench.file.load().folders.value();
    QCOMPARE(second.constData(), first.constData());
}

void LibraryFileTest::onlyTheChangedFolderIsNew_data()
{
    QTest::addColumn<bool>("isSaved"); // or was written by somebody else
    QTest::addColumn<int>("changed");
    for (const bool isSaved : {true, false}) {
        for (int changed = 0; changed < 4; ++changed)
            QTest::addRow("folder %d of a %s file", changed, isSaved ? "saved" : "foreign")
                << isSaved << changed;
    }
}

void LibraryFileTest::onlyTheChangedFolderIsNew()
{
    QFETCH(bool, isSaved);
    QFETCH(int, changed);
    Bench bench;
    DockFolderLibrary library = sampleLibrary();
    if (isSaved)
        bench.file.save(library);
    else
        bench.write(encodeLibrary(library));
    const QList<DockFolder> before = bench.file.load().folders.value();

    library.folders[changed].name = QStringLiteral("another");
    for (int round = 0; round < 2; ++round) { // what was shared once goes on being shared
        bench.write(encodeLibrary(library));
        const QList<DockFolder> after = bench.file.load().folders.value();
        QCOMPARE(after, library.folders);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(isShared(after.at(i), before.at(i)), i != changed);
        library.folders[changed].name += u'!';
    }
}

void LibraryFileTest::aFolderWrittenDifferentlyIsStillShared()
{
    Bench bench;
    const DockFolderLibrary library = sampleLibrary();
    bench.file.save(library);
    bench.write(encodeLibrary(library).replace("/", R"(\/)"));
    const QList<DockFolder> after = bench.file.load().folders.value();
    for (int i = 0; i < 4; ++i)
        QVERIFY(isShared(after.at(i), library.folders.at(i)));
}

void LibraryFileTest::aFolderWrittenDifferentlyIsStillSharedBesideKnownOnes()
{
    Bench bench;
    QByteArray bytes = encodeLibrary(sampleLibrary());
    bench.write(bytes);
    const QList<DockFolder> before = bench.file.load().folders.value();
    bench.write(bytes.replace(bytes.lastIndexOf("\"name\":"), 7, "\"name\" :"));
    const QList<DockFolder> after = bench.file.load().folders.value();
    for (int i = 0; i < 4; ++i)
        QVERIFY(isShared(after.at(i), before.at(i)));
}

// Or a library that is edited here and elsewhere in turn would keep as many files as folders.
void LibraryFileTest::theOnlyNewPictureDoesNotKeepItsWholeFile()
{
    DockFolderLibrary library = sampleLibrary();
    KeptFolders kept;
    (void)kept.encode(library);
    library.folders[1].customIconData = QByteArray("another picture");
    const QByteArray file = encodeLibrary(library).replace("/", R"(\/)");
    const std::optional<QList<DockFolder>> decoded = kept.decode(file);
    QCOMPARE(decoded, std::optional(library.folders));
    QVERIFY(!file.isDetached()); // for what is kept of it
    (void)kept.encode({.folders = *decoded});
    QVERIFY(file.isDetached());
}

void LibraryFileTest::foldersAreSharedBeyondInsertionsRemovalsAndMoves()
{
    Bench bench;
    const DockFolderLibrary library = sampleLibrary(6);
    bench.file.save(library);
    DockFolderLibrary changed = library;
    changed.folders.removeAt(1);
    changed.folders.move(0, 3);
    changed.folders.insert(2, LibraryGenerator(2).oddFolder());
    bench.write(encodeLibrary(changed));
    const QList<DockFolder> after = bench.file.load().folders.value();
    QCOMPARE(after, changed.folders);
    for (const DockFolder &folder : after) {
        const auto old = std::ranges::find(library.folders, folder.id, &DockFolder::id);
        if (old != library.folders.end())
            QVERIFY(isShared(folder, *old));
    }
}

void LibraryFileTest::aFailedLoadForgetsNothing()
{
    Bench bench;
    DockFolderLibrary library = sampleLibrary();
    bench.file.save(library);
    bench.write(encodeLibrary(library).chopped(1));
    QCOMPARE(bench.file.load().folders, std::nullopt);
    bench.write(encodeLibrary(library));
    QVERIFY(isShared(bench.file.load().folders->constLast(), library.folders.constLast()));
}

void LibraryFileTest::tellsWhetherTheFileChanged()
{
    Bench bench;
    DockFolderLibrary library = sampleLibrary();
    bench.write(encodeLibrary(library));
    QVERIFY(!bench.file.load().isUnchanged); // nobody has looked before
    QVERIFY(bench.file.load().isUnchanged);
    library.folders[1].name = QStringLiteral("another");
    bench.write(encodeLibrary(library));
    QVERIFY(!bench.file.load().isUnchanged);
    QVERIFY(bench.file.load().isUnchanged);
    library.folders.removeLast();
    bench.file.save(library);
    QVERIFY(bench.file.load().isUnchanged);
}

void LibraryFileTest::loadsAheadOnce()
{
    Bench bench;
    const DockFolderLibrary library = sampleLibrary();
    bench.write(encodeLibrary(library));
    bench.file.beginLoading();
    QCOMPARE(bench.file.load().folders, std::optional(library.folders));
    QVERIFY(bench.file.load().isUnchanged);
    bench.files.files.remove(bench.file.url());
    QCOMPARE(bench.file.load().folders, std::nullopt);
    bench.file.beginLoading();
    QCOMPARE(bench.file.load().folders, std::nullopt);
}

void LibraryFileTest::whatChangesWhileItLoadsAheadIsReadAgain()
{
    DockFolderLibrary library = sampleLibrary();
    for (int round = 0; round < 20; ++round) { // before, while or after it is read
        Bench bench;
        bench.write(encodeLibrary(sampleLibrary()));
        bench.file.beginLoading();
        library.folders[1].name = QString::number(round);
        bench.write(encodeLibrary(library));
        QCOMPARE(bench.file.load().folders, std::optional(library.folders));
        library.folders[0].name = QString::number(round);
        bench.file.save(library);
        QVERIFY(bench.backedUp().isEmpty());
    }
}

void LibraryFileTest::whatWasLoadedAheadNeedNotBeAskedFor()
{
    Bench bench;
    bench.write(encodeLibrary(sampleLibrary()));
    bench.file.beginLoading();
}

void LibraryFileTest::aFailedSaveIsNoChangeOfTheFile()
{
    Bench bench;
    DockFolderLibrary library = sampleLibrary();
    bench.file.save(library);
    library.folders[1].name = QStringLiteral("another");
    library.folders.removeFirst();
    bench.files.fail(FakeFileSystem::Operation::Write);
    QVERIFY_THROWS_EXCEPTION(PlatformError, bench.file.save(library));
    QVERIFY(bench.file.load().isUnchanged);
    bench.write(encodeLibrary(library)); // by somebody else, who did what we could not
    QVERIFY(!bench.file.load().isUnchanged);
}

void LibraryFileTest::noLibraryStaysTheSame()
{
    Bench bench;
    QVERIFY(!bench.file.load().isUnchanged);
    QVERIFY(bench.file.load().isUnchanged);
    bench.write("no library");
    QVERIFY(bench.file.load().isUnchanged);
    bench.file.save(sampleLibrary());
    bench.files.files.remove(bench.file.url());
    QVERIFY(!bench.file.load().isUnchanged);
    bench.file.save(sampleLibrary());
    bench.file.removeAll();
    QVERIFY(bench.file.load().isUnchanged);
}

void LibraryFileTest::savesWhatAPlainEncoderWould()
{
    Bench bench;
    DockFolderLibrary library = sampleLibrary();
    bench.file.save(library);
    library.folders[2].items[1].name = QStringLiteral("another");
    library.folders.move(0, 3);
    library.folders.append(library.folders.constFirst()); // the same id twice
    library.folders.last().name = QStringLiteral("twin");
    library.selectedFolderID = appStoreFolderID();
    bench.file.save(library);
    QCOMPARE(bench.bytes(), encodeLibrary(library));
    library.folders.clear();
    bench.file.save(library);
    QCOMPARE(bench.bytes(), encodeLibrary(library));
}

void LibraryFileTest::survivesManyRandomEdits()
{
    Bench bench;
    LibraryGenerator random(3);
    DockFolderLibrary library = sampleLibrary();
    for (int i = 0; i < 400; ++i) {
        const auto place = [&] { return random.number(int(library.folders.size())); };
        switch (library.folders.size() < 3 ? 0 : random.number(4)) {
        case 0:
            library.folders.insert(place(), random.oddFolder());
            break;
        case 1:
            library.folders.removeAt(place());
            break;
        case 2:
            library.folders.move(place(), place());
            break;
        default:
            library.folders[place()].name = QString::number(i);
        }
        if (random.number(2) == 0) {
            bench.file.save(library);
            QCOMPARE(bench.bytes(), encodeLibrary(library));
        } else {
            bench.write(
                encodeLibrary(library).replace("\":", random.number(2) == 0 ? "\" :" : "\":"));
        }
        if (random.number(3) != 0)
            library.folders = bench.file.load().folders.value();
    }
    QVERIFY(bench.backedUp().isEmpty());
}

void LibraryFileTest::keepsAFileThatCannotBeDecoded()
{
    Bench bench;
    bench.write("precious");
    QCOMPARE(bench.file.load().folders, std::nullopt);
    QVERIFY(bench.backedUp().isEmpty());
    bench.file.save(sampleLibrary());
    QCOMPARE(bench.backedUp(), QByteArrayList{"precious"});
    QCOMPARE(bench.bytes(), encodeLibrary(sampleLibrary()));
    const QString name = bench.backups().entryList(QDir::Files).constFirst();
    QVERIFY(name.startsWith(QStringLiteral("Nestlet ")) && name.endsWith(QStringLiteral(".json")));
}

void LibraryFileTest::keepsEachContentOnce()
{
    Bench bench;
    for (const char *content : {"one", "two", "one", "", "two"}) {
        bench.write(content);
        QCOMPARE(bench.file.load().folders, std::nullopt);
        bench.file.save(sampleLibrary());
    }
    QByteArrayList kept = bench.backedUp();
    std::ranges::sort(kept);
    QCOMPARE(kept, (QByteArrayList{"", "one", "two"}));
}

void LibraryFileTest::keepsNothingOfALibrary()
{
    Bench bench;
    bench.write(encodeLibrary(sampleLibrary(2)));
    bench.file.save(sampleLibrary()); // never loaded
    bench.write(encodeLibrary({}));
    QCOMPARE(bench.file.load().folders, std::nullopt);
    bench.file.save(sampleLibrary());
    bench.write(encodeLibrary(sampleLibrary(3)));
    bench.file.save(sampleLibrary()); // changed since
    QVERIFY(!bench.backups().exists());
}

void LibraryFileTest::keepsWhatSomebodyElseBrokeAfterALoad()
{
    Bench bench;
    bench.write(encodeLibrary(sampleLibrary()));
    QVERIFY(bench.file.load().folders);
    bench.write("broken since");
    bench.file.save(sampleLibrary());
    QCOMPARE(bench.backedUp(), QByteArrayList{"broken since"});
}

void LibraryFileTest::keepsWhatSomebodyElseBrokeAfterASave()
{
    Bench bench;
    bench.file.save(sampleLibrary());
    bench.write("broken since");
    bench.file.save(sampleLibrary());
    bench.file.save(sampleLibrary());
    QCOMPARE(bench.backedUp(), QByteArrayList{"broken since"});
}

void LibraryFileTest::movesAFileAsideThatCannotBeRead()
{
    Bench bench;
    bench.files.fail(FakeFileSystem::Operation::Read, QStringLiteral("Nestlet.json"), EIO);
    for (const char *content : {"first", "second"}) {
        bench.write(content);
        QCOMPARE(bench.file.load().folders, std::nullopt);
        bench.file.save(sampleLibrary());
        QCOMPARE(bench.bytes(), encodeLibrary(sampleLibrary()));
    }
    QByteArrayList kept = bench.backedUp();
    std::ranges::sort(kept);
    QCOMPARE(kept, (QByteArrayList{"first", "second"}));
}

void LibraryFileTest::movesADirectoryAside()
{
    Bench bench;
    bench.files.files.createDirectories(
        FileURL::directory(bench.file.url().path() + QStringLiteral("/within")));
    QCOMPARE(bench.file.load().folders, std::nullopt);
    bench.file.save(sampleLibrary());
    QCOMPARE(bench.bytes(), encodeLibrary(sampleLibrary()));
    QVERIFY(bench.backups().exists(QStringLiteral("Nestlet unreadable.json/within")));
}

void LibraryFileTest::whatWasMovedAsideComesBackWhenTheSaveFails()
{
    Bench bench;
    const QString within = bench.file.url().path() + QStringLiteral("/within");
    bench.files.files.createDirectories(FileURL::directory(within));
    bench.files.fail(FakeFileSystem::Operation::Write, QStringLiteral("Nestlet.json"));
    QVERIFY_THROWS_EXCEPTION(PlatformError, bench.file.save(sampleLibrary()));
    QVERIFY(QDir(within).exists());
    QVERIFY(bench.backups().isEmpty());
}

void LibraryFileTest::aSaveFailsWhenTheBackupDoes()
{
    Bench bench;
    bench.write("precious");
    bench.files.fail(FakeFileSystem::Operation::CreateDirectories, QStringLiteral("Backups"));
    QVERIFY_THROWS_EXCEPTION(PlatformError, bench.file.save(sampleLibrary()));
    QCOMPARE(bench.bytes(), QByteArray("precious"));
}

void LibraryFileTest::aSaveFailsWhenTheFileCannotBeMovedAside()
{
    Bench bench;
    bench.write("precious");
    bench.files.fail(FakeFileSystem::Operation::Read, {}, EACCES);
    bench.files.fail(FakeFileSystem::Operation::Move);
    QVERIFY_THROWS_EXCEPTION(PlatformError, bench.file.save(sampleLibrary()));
    QCOMPARE(bench.bytes(), QByteArray("precious"));
}

void LibraryFileTest::aFailedSaveLeavesTheOldFile()
{
    Bench bench;
    const DockFolderLibrary library = sampleLibrary();
    bench.file.save(library);
    DockFolderLibrary changed = library;
    changed.folders[1].name = QStringLiteral("another");
    bench.files.fail(FakeFileSystem::Operation::Write);
    QVERIFY_THROWS_EXCEPTION(PlatformError, bench.file.save(changed));
    QCOMPARE(bench.bytes(), encodeLibrary(library));
    QCOMPARE(bench.file.load().folders, std::optional(library.folders));
    bench.files.failures.clear();
    bench.file.save(changed);
    QCOMPARE(bench.bytes(), encodeLibrary(changed));
}

void LibraryFileTest::saysWhichPathFailed()
{
    Bench bench;
    bench.files.files.createDirectories(bench.directories.applicationSupport());
    QFile blocker(bench.support() + QStringLiteral("/Nestlet"));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    try {
        bench.file.save(sampleLibrary());
        QFAIL("a file is where the directory should be");
    } catch (const PlatformError &error) {
        QVERIFY(error.description().contains(blocker.fileName()));
    }
}

void LibraryFileTest::removesTheFileAndTheBackups()
{
    Bench bench;
    bench.write("precious");
    bench.file.save(sampleLibrary());
    QVERIFY(bench.backups().exists());
    bench.file.removeAll();
    QVERIFY(!QFile::exists(bench.file.url().path()));
    QVERIFY(!QFile::exists(bench.support() + QStringLiteral("/Nestlet Companion")));
    QCOMPARE(bench.file.load().folders, std::nullopt);
    bench.file.save(sampleLibrary());
    QCOMPARE(bench.file.load().folders, std::optional(sampleLibrary().folders));
}

void LibraryFileTest::removingNothingIsNoError()
{
    Bench bench;
    bench.file.removeAll();
    QVERIFY(!QFile::exists(bench.support()));
}

QTEST_APPLESS_MAIN(LibraryFileTest)
#include "tst_libraryfile.moc"
