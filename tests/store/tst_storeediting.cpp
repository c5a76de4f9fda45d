#include "tests/store/storefixture.h"

#include <QSignalSpy>
#include <QTest>

using Operation = FakeFileSystem::Operation;

namespace {

const QString a = QStringLiteral("file:///a");
const QString b = QStringLiteral("file:///b");
const QString c = QStringLiteral("file:///c");

} // namespace

class StoreEditingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_fixture.reset(); }

    void addedFoldersAreNumberedByTheCount();
    void theFirstOfAnEmptyListIsNumberOne();
    void aNameThatExistsIsGivenAgain();
    void everyEditIsOneChangeAndOneSave_data();
    void everyEditIsOneChangeAndOneSave();
    void lockedFoldersRefuseEveryEdit_data() { everyEditIsOneChangeAndOneSave_data(); }
    void lockedFoldersRefuseEveryEdit();
    void unknownFoldersRefuseEveryEdit_data() { everyEditIsOneChangeAndOneSave_data(); }
    void unknownFoldersRefuseEveryEdit();
    void renamingTrims();
    void renamingToBlanksChangesAndSavesNothing();
    void addsOnlyURLsThatTheFolderDoesNotHold();
    void addsAURLTwiceThatIsGivenTwice();
    void addingKnownURLsSavesTheUnchangedLibrary();
    void addedItemsAreOfTheirKind();
    void movesItemsByOffset_data();
    void movesItemsByOffset();
    void movingAnUnknownItemSavesNothing();
    void removesEveryItemWithTheID();
    void aPictureReplacesTheSymbolAndViceVersa();
    void noSymbolClearsThePictureToo();
    void foldersMoveByOffsets();
    void deletingTheOnlyFolderLeavesANewOne();
    void deletingOneOfTwoThenAddingRepeatsItsNumber();
    void theFileNamesTheFirstFolderAsSelected();
    void aFailedSaveIsReportedAndKeepsTheFolders();
    void editsKeepTheTextOfUntouchedURLs();

private:
    CompanionStore &store() { return *m_fixture->store; }
    QUuid firstID() { return store().folders().first().id; }
    void loadFolders(const QList<DockFolder> &folders)
    {
        m_fixture->writeLibrary(folders);
        store().start();
        m_fixture->files.calls.clear();
    }
    qsizetype saves() { return m_fixture->files.count(Operation::Write); }

    std::unique_ptr<StoreFixture> m_fixture;
};

void StoreEditingTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    m_fixture = std::make_unique<StoreFixture>();
}

void StoreEditingTest::addedFoldersAreNumberedByTheCount()
{
    store().start();
    QCOMPARE(namesOf(store().folders()), QStringList{QStringLiteral("Dock Folder 1")});
    const DockFolder second = store().addFolder();
    const DockFolder third = store().addFolder();
    QCOMPARE(second.name, QStringLiteral("Dock Folder 2"));
    QCOMPARE(third.name, QStringLiteral("Dock Folder 3"));
    QCOMPARE(store().folders().last(), third);
    QCOMPARE(third, (DockFolder{.id = third.id, .name = third.name}));
    QVERIFY(second.id != third.id);
}

void StoreEditingTest::theFirstOfAnEmptyListIsNumberOne()
{
    QVERIFY(store().folders().isEmpty()); // as long as nothing was loaded
    const DockFolder folder = store().addFolder();
    QCOMPARE(folder.name, QStringLiteral("Dock Folder 1"));
    QCOMPARE(store().folders(), QList{folder});
    QCOMPARE(m_fixture->savedLibrary()->folders, QList{folder});
}

void StoreEditingTest::aNameThatExistsIsGivenAgain()
{
    loadFolders({folderNamed(QStringLiteral("Dock Folder 4")), folderNamed(QStringLiteral("x")),
                 folderNamed(QStringLiteral("y"))});
    QCOMPARE(store().addFolder().name, QStringLiteral("Dock Folder 4"));
}

using Edit = std::function<void(CompanionStore &, const QUuid &)>;

void StoreEditingTest::everyEditIsOneChangeAndOneSave_data()
{
    QTest::addColumn<Edit>("edit");
    const auto row = [](const char *name, const Edit &edit) { QTest::newRow(name) << edit; };
    row("rename", [](auto &s, auto &id) { s.renameFolder(id, QStringLiteral("New")); });
    row("colour", [](auto &s, auto &id) { s.setAccentColor(id, QStringLiteral("#112233")); });
    row("symbol", [](auto &s, auto &id) { s.setIconSymbol(id, QStringLiteral("gear")); });
    row("picture", [](auto &s, auto &id) { s.setCustomIcon(id, QByteArrayLiteral("png")); });
    row("columns", [](auto &s, auto &id) { s.setGridColumns(id, 3); });
    row("add items", [](auto &s, auto &id) { s.addItems(id, {FileURL::fromValidText(c)}); });
    row("remove item", [](auto &s, auto &id) {
        const auto folder = s.folder(id);
        s.removeItem(id, folder ? folder->items.first().id : QUuid::createUuid());
    });
    row("move item", [](auto &s, auto &id) {
        const auto folder = s.folder(id);
        s.moveItem(id, folder ? folder->items.first().id : QUuid::createUuid(), 2);
    });
    row("any change", [](auto &s, auto &id) {
        s.updateFolder(id, [](DockFolder &folder) { folder.name += u'!'; });
    });
}

void StoreEditingTest::everyEditIsOneChangeAndOneSave()
{
    QFETCH(Edit, edit);
    loadFolders({folderNamed(QStringLiteral("Work"), {a, b})});
    const QSignalSpy changes(&store(), &CompanionStore::foldersChanged);
    edit(store(), firstID());
    QCOMPARE(changes.count(), 1);
    QCOMPARE(saves(), 1);
    QCOMPARE(m_fixture->savedLibrary()->folders, store().folders());
}

void StoreEditingTest::lockedFoldersRefuseEveryEdit()
{
    QFETCH(Edit, edit);
    loadFolders({folderNamed(QStringLiteral("Work"), {a, b})});
    const QList<DockFolder> before = store().folders();
    CompanionStoreTestAccess::lock(store(), firstID());
    const QSignalSpy changes(&store(), &CompanionStore::foldersChanged);
    edit(store(), firstID());
    store().deleteFolder(firstID());
    QCOMPARE(changes.count(), 0);
    QCOMPARE(saves(), 0);
    QCOMPARE(store().folders(), before);
}

void StoreEditingTest::unknownFoldersRefuseEveryEdit()
{
    QFETCH(Edit, edit);
    loadFolders({folderNamed(QStringLiteral("Work"), {a, b})});
    const QSignalSpy changes(&store(), &CompanionStore::foldersChanged);
    edit(store(), QUuid::createUuid());
    store().deleteFolder(QUuid::createUuid());
    QCOMPARE(changes.count(), 0);
    QCOMPARE(saves(), 0);
    QCOMPARE(store().errorMessage(), QString());
}

void StoreEditingTest::renamingTrims()
{
    loadFolders({folderNamed(QStringLiteral("Work"))});
    store().renameFolder(firstID(), QStringLiteral(" \t Play \n"));
    QCOMPARE(store().folders().first().name, QStringLiteral("Play"));
}

void StoreEditingTest::renamingToBlanksChangesAndSavesNothing()
{
    loadFolders({folderNamed(QStringLiteral("Work"))});
    const QSignalSpy changes(&store(), &CompanionStore::foldersChanged);
    store().renameFolder(firstID(), QStringLiteral("   "));
    QCOMPARE(store().folders().first().name, QStringLiteral("Work"));
    QCOMPARE(changes.count(), 0);
    QCOMPARE(saves(), 0);
}

void StoreEditingTest::addsOnlyURLsThatTheFolderDoesNotHold()
{
    loadFolders({folderNamed(QStringLiteral("Work"), {a})});
    store().addItems(
        firstID(),
        {FileURL::fromValidText(a), FileURL::fromValidText(b), FileURL::fromValidText(a)});
    QCOMPARE(namesOf(store().folders().first().items),
             QStringList({QStringLiteral("a"), QStringLiteral("b")}));
}

void StoreEditingTest::addsAURLTwiceThatIsGivenTwice()
{
    loadFolders({folderNamed(QStringLiteral("Work"))});
    store().addItems(firstID(), {FileURL::fromValidText(b), FileURL::fromValidText(b)});
    const QList<DockFolderItem> items = store().folders().first().items;
    QCOMPARE(namesOf(items), QStringList({QStringLiteral("b"), QStringLiteral("b")}));
    QVERIFY(items.first().id != items.last().id);
}

void StoreEditingTest::addingKnownURLsSavesTheUnchangedLibrary()
{
    loadFolders({folderNamed(QStringLiteral("Work"), {a})});
    const QList<DockFolder> before = store().folders();
    store().addItems(firstID(), {FileURL::fromValidText(a)});
    QCOMPARE(saves(), 1);
    QCOMPARE(store().folders(), before);
}

void StoreEditingTest::addedItemsAreOfTheirKind()
{
    loadFolders({folderNamed(QStringLiteral("Work"))});
    const FileURL folder = m_fixture->directories.at(QStringLiteral("/Documents"));
    m_fixture->files.createDirectories(folder);
    store().addItems(firstID(),
                     {FileURL::fromValidText(QStringLiteral("file:///gone/Foo.APP")), folder,
                      FileURL::fromValidText(QStringLiteral("file:///gone/Notes.txt"))});
    const QList<DockFolderItem> items = store().folders().first().items;
    QCOMPARE(
        namesOf(items),
        QStringList({QStringLiteral("Foo"), QStringLiteral("Documents"), QStringLiteral("Notes")}));
    QCOMPARE(items.at(0).kind, DockFolderItem::Kind::application);
    QCOMPARE(items.at(1).kind, DockFolderItem::Kind::folder);
    QCOMPARE(items.at(2).kind, DockFolderItem::Kind::file);
}

void StoreEditingTest::movesItemsByOffset_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<QStringList>("expected");
    const auto A = QStringLiteral("a");
    const auto B = QStringLiteral("b");
    const auto C = QStringLiteral("c");
    QTest::newRow("to offset 2: the middle") << 2 << QStringList{B, A, C};
    QTest::newRow("to offset 3: the end") << 3 << QStringList{B, C, A};
    QTest::newRow("to offset 99: the end") << 99 << QStringList{B, C, A};
    QTest::newRow("to offset -1: the start") << -1 << QStringList{A, B, C};
}

void StoreEditingTest::movesItemsByOffset()
{
    QFETCH(int, offset);
    QFETCH(QStringList, expected);
    loadFolders({folderNamed(QStringLiteral("Work"), {a, b, c})});
    store().moveItem(firstID(), store().folders().first().items.first().id, offset);
    QCOMPARE(namesOf(store().folders().first().items), expected);
}

void StoreEditingTest::movingAnUnknownItemSavesNothing()
{
    loadFolders({folderNamed(QStringLiteral("Work"), {a, b})});
    store().moveItem(firstID(), QUuid::createUuid(), 0);
    QCOMPARE(saves(), 0);
}

void StoreEditingTest::removesEveryItemWithTheID()
{
    DockFolder folder = folderNamed(QStringLiteral("Work"), {a, b, c});
    folder.items[2].id = folder.items.at(0).id;
    loadFolders({folder});
    store().removeItem(folder.id, folder.items.at(0).id);
    QCOMPARE(namesOf(store().folders().first().items), QStringList{QStringLiteral("b")});
}

void StoreEditingTest::aPictureReplacesTheSymbolAndViceVersa()
{
    loadFolders({folderNamed(QStringLiteral("Work"))});
    store().setIconSymbol(firstID(), QStringLiteral("gear"));
    store().setCustomIcon(firstID(), QByteArrayLiteral("png"));
    QCOMPARE(store().folders().first().iconSymbol, std::nullopt);
    QCOMPARE(store().folders().first().customIconData,
             std::optional<Base64Bytes>(QByteArray("png")));
    store().setIconSymbol(firstID(), QStringLiteral("globe"));
    QCOMPARE(store().folders().first().iconSymbol, QStringLiteral("globe"));
    QCOMPARE(store().folders().first().customIconData, std::nullopt);
}

void StoreEditingTest::noSymbolClearsThePictureToo()
{
    loadFolders({folderNamed(QStringLiteral("Work"))});
    store().setCustomIcon(firstID(), QByteArrayLiteral("png"));
    store().setIconSymbol(firstID(), std::nullopt);
    QCOMPARE(store().folders().first().customIconData, std::nullopt);
}

void StoreEditingTest::foldersMoveByOffsets()
{
    loadFolders({folderNamed(QStringLiteral("1")), folderNamed(QStringLiteral("2")),
                 folderNamed(QStringLiteral("3"))});
    store().moveFolders({2}, 0);
    QCOMPARE(namesOf(store().folders()),
             QStringList({QStringLiteral("3"), QStringLiteral("1"), QStringLiteral("2")}));
    QCOMPARE(saves(), 1);
}

void StoreEditingTest::deletingTheOnlyFolderLeavesANewOne()
{
    loadFolders({folderNamed(QStringLiteral("Work"), {a})});
    const QUuid old = firstID();
    store().deleteFolder(old);
    QCOMPARE(namesOf(store().folders()), QStringList{QStringLiteral("Dock Folder 1")});
    QVERIFY(firstID() != old);
    QVERIFY(store().folders().first().items.isEmpty());
}

void StoreEditingTest::deletingOneOfTwoThenAddingRepeatsItsNumber()
{
    store().start();
    store().addFolder();
    store().deleteFolder(firstID());
    QCOMPARE(store().addFolder().name, QStringLiteral("Dock Folder 2"));
    QCOMPARE(namesOf(store().folders()),
             QStringList({QStringLiteral("Dock Folder 2"), QStringLiteral("Dock Folder 2")}));
}

void StoreEditingTest::theFileNamesTheFirstFolderAsSelected()
{
    loadFolders({folderNamed(QStringLiteral("1")), folderNamed(QStringLiteral("2"))});
    store().moveFolders({1}, 0);
    QCOMPARE(m_fixture->savedLibrary()->selectedFolderID, firstID());
}

void StoreEditingTest::aFailedSaveIsReportedAndKeepsTheFolders()
{
    loadFolders({folderNamed(QStringLiteral("Work"))});
    const QByteArray before = m_fixture->libraryBytes();
    m_fixture->files.fail(Operation::Write, QStringLiteral("Nestlet.json"));
    store().renameFolder(firstID(), QStringLiteral("Play"));
    QVERIFY(store().errorMessage().contains(QStringLiteral("Nestlet.json")));
    QCOMPARE(store().folders().first().name, QStringLiteral("Play"));
    QCOMPARE(m_fixture->libraryBytes(), before);
}

void StoreEditingTest::editsKeepTheTextOfUntouchedURLs()
{
    const QStringList odd{QStringLiteral("file:///a%2fb/Caf%65%CC%81.app/"),
                          QStringLiteral("file://localhost/x/./y/../z.app"),
                          QStringLiteral("file:///plain")};
    loadFolders({folderNamed(QStringLiteral("Work"), odd)});
    store().renameFolder(firstID(), QStringLiteral("Play"));
    const std::optional<DockFolderLibrary> library = m_fixture->savedLibrary();
    QVERIFY(library);
    QStringList saved;
    for (const DockFolderItem &item : library->folders.first().items)
        saved.append(item.url.text());
    QCOMPARE(saved, odd);
}

QTEST_GUILESS_MAIN(StoreEditingTest)
#include "tst_storeediting.moc"
