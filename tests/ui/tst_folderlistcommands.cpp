#include "model/uuidtext.h"
#include "tests/store/storefixture.h"
#include "tests/ui/modelchanges.h"
#include "ui/folderlistmodel.h"
#include "ui/picturestore.h"

#include <QSignalSpy>
#include <QTest>

#include <tuple>

/// What the sidebar asks of its model besides rows: another order, the row of some letters, and
/// what each folder's icon shows.
class FolderListCommandsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void movesAFolderToARow_data();
    void movesAFolderToARow();
    void aMovedFolderIsOneMoveAndOneSave();
    void sameRowIsNoMove();
    void theAppStoreFolderStaysFirst();
    void whatIsNotThereDoesNotMove();
    void theFirstMovableRowFollowsNestlet();
    void anAppStoreFolderOfTheLibraryIsShownOnce();
    void anAppStoreFolderOfTheLibraryMovesAsOthersWithoutNestlet();
    void findsTheNextNameThatBeginsSo_data();
    void findsTheNextNameThatBeginsSo();
    void everyNameBeginsWithNothing();
    void tellsWhatTheIconsShow();
    void aPictureKeepsItsSourceUntilItIsReplaced();

private:
    [[nodiscard]] QStringList names() const { return texts(*m_model, FolderListModel::NameRole); }
    [[nodiscard]] QVariant value(int row, int role) const { return m_model->index(row).data(role); }
    void showNestlet();

    const DockFolder m_a = folderNamed(QStringLiteral("Apples"));
    const DockFolder m_b = folderNamed(QStringLiteral("bananas"));
    const DockFolder m_c = folderNamed(QStringLiteral("Bread"));
    std::unique_ptr<StoreFixture> m_fixture;
    PictureStore m_pictures;
    std::unique_ptr<FolderListModel> m_model;
    std::unique_ptr<ModelChanges> m_changes;
};

void FolderListCommandsTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_fixture = std::make_unique<StoreFixture>();
    m_fixture->startWith({m_a, m_b, m_c});
    m_model = std::make_unique<FolderListModel>(*m_fixture->store, m_pictures);
    m_changes = std::make_unique<ModelChanges>(*m_model);
}

void FolderListCommandsTest::cleanup()
{
    m_changes.reset();
    m_model.reset();
    m_fixture.reset();
}

void FolderListCommandsTest::showNestlet()
{
    m_fixture->installNestlet();
    m_fixture->store->refreshPresence();
    std::ignore = m_changes->take();
}

void FolderListCommandsTest::movesAFolderToARow_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("order");
    QTest::newRow("the first, down by one") << 0 << 1 << "bananas Apples Bread";
    QTest::newRow("the first, to the end") << 0 << 2 << "bananas Bread Apples";
    QTest::newRow("the last, up by one") << 2 << 1 << "Apples Bread bananas";
    QTest::newRow("the last, to the start") << 2 << 0 << "Bread Apples bananas";
    QTest::newRow("past the end") << 0 << 99 << "bananas Bread Apples";
    QTest::newRow("before the start") << 2 << -5 << "Bread Apples bananas";
}

void FolderListCommandsTest::movesAFolderToARow()
{
    QFETCH(int, from);
    QFETCH(int, to);
    m_model->moveFolder(m_model->folderIDAt(from), to);
    QTEST(names().join(u' '), "order");
    QCOMPARE(namesOf(m_fixture->savedLibrary()->folders), names());
}

void FolderListCommandsTest::aMovedFolderIsOneMoveAndOneSave()
{
    const QSignalSpy changes(m_fixture->store, &CompanionStore::foldersChanged);
    m_model->moveFolder(uuidText(m_c.id), 0);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(m_changes->take(), QStringList{QStringLiteral("move 2-0")});
}

void FolderListCommandsTest::sameRowIsNoMove()
{
    const QSignalSpy changes(m_fixture->store, &CompanionStore::foldersChanged);
    m_model->moveFolder(uuidText(m_b.id), 1);
    m_model->moveFolder(uuidText(m_c.id), 7);
    m_model->moveFolder(uuidText(m_a.id), -1);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(m_changes->take(), QStringList());
}

void FolderListCommandsTest::theAppStoreFolderStaysFirst()
{
    showNestlet();
    m_model->moveFolder(uuidText(m_b.id), 0);
    QCOMPARE(names().join(u' '), QStringLiteral("Nestlet bananas Apples Bread"));
    m_model->moveFolder(uuidText(appStoreFolderID()), 2);
    QCOMPARE(names().join(u' '), QStringLiteral("Nestlet bananas Apples Bread"));
    m_model->moveFolder(uuidText(m_b.id), 3);
    QCOMPARE(names().join(u' '), QStringLiteral("Nestlet Apples Bread bananas"));
    QCOMPARE(m_fixture->savedLibrary()->folders.size(), 3);
}

void FolderListCommandsTest::whatIsNotThereDoesNotMove()
{
    m_model->moveFolder(uuidText(QUuid::createUuid()), 0);
    m_model->moveFolder(QString(), 0);
    m_model->moveFolder(QStringLiteral("no id"), 2);
    QCOMPARE(m_changes->take(), QStringList());
}

void FolderListCommandsTest::theFirstMovableRowFollowsNestlet()
{
    const QSignalSpy changed(m_model.get(), &FolderListModel::firstMovableRowChanged);
    QCOMPARE(m_model->firstMovableRow(), 0);
    showNestlet();
    QCOMPARE(m_model->firstMovableRow(), 1);
    m_fixture->files.files.remove(m_fixture->nestletURL());
    m_fixture->store->refreshPresence();
    QCOMPARE(m_model->firstMovableRow(), 0);
    QCOMPARE(changed.count(), 2);
}

// No program is to write it there, but one could.
void FolderListCommandsTest::anAppStoreFolderOfTheLibraryIsShownOnce()
{
    showNestlet();
    const DockFolder own{.id = appStoreFolderID(), .name = QStringLiteral("Own")};
    m_fixture->changeFromOutside({m_a, own, m_b, m_c});
    QCOMPARE(names().join(u' '), QStringLiteral("Nestlet Apples bananas Bread"));
    QCOMPARE(m_model->firstMovableRow(), 1);
    m_model->moveFolder(uuidText(m_c.id), 1);
    QCOMPARE(names().join(u' '), QStringLiteral("Nestlet Bread Apples bananas"));
    m_model->moveFolder(uuidText(m_a.id), 3);
    QCOMPARE(names().join(u' '), QStringLiteral("Nestlet Bread bananas Apples"));
    QCOMPARE(m_fixture->savedLibrary()->folders.size(), 4);
}

void FolderListCommandsTest::anAppStoreFolderOfTheLibraryMovesAsOthersWithoutNestlet()
{
    const DockFolder own{.id = appStoreFolderID(), .name = QStringLiteral("Own")};
    m_fixture->changeFromOutside({own, m_a, m_b});
    QCOMPARE(m_model->firstMovableRow(), 0);
    m_model->moveFolder(uuidText(m_a.id), 2);
    QCOMPARE(names().join(u' '), QStringLiteral("Own bananas Apples"));
    m_model->moveFolder(uuidText(m_a.id), 0);
    QCOMPARE(names().join(u' '), QStringLiteral("Apples Own bananas"));
}

void FolderListCommandsTest::findsTheNextNameThatBeginsSo_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("after");
    QTest::addColumn<int>("found");
    QTest::newRow("nothing is selected") << "a" << -1 << 0;
    QTest::newRow("far before the list") << "a" << -9 << 0;
    QTest::newRow("whatever the case") << "B" << 0 << 1;
    QTest::newRow("the next one") << "b" << 1 << 2;
    QTest::newRow("goes round") << "b" << 2 << 1;
    QTest::newRow("the only one, again") << "apples" << 0 << 0;
    QTest::newRow("only the beginning counts") << "read" << 0 << -1;
    QTest::newRow("no such name") << "x" << 0 << -1;
}

void FolderListCommandsTest::findsTheNextNameThatBeginsSo()
{
    QFETCH(QString, text);
    QFETCH(int, after);
    QTEST(m_model->rowStartingWith(text, after), "found");
}

void FolderListCommandsTest::everyNameBeginsWithNothing()
{
    QCOMPARE(m_model->rowStartingWith(QString(), 0), 1);
}

void FolderListCommandsTest::tellsWhatTheIconsShow()
{
    DockFolder folder = folderNamed(m_b.name,
                                    {QStringLiteral("file:///a"), QStringLiteral("file:///b"),
                                     QStringLiteral("file:///c"), QStringLiteral("file:///d"),
                                     QStringLiteral("file:///e")});
    folder.id = m_b.id;
    folder.accentColorHex = QStringLiteral("4f83d3");
    folder.iconSymbol = QStringLiteral("star.fill");
    m_fixture->store->updateFolder(m_b.id, [&](DockFolder &stored) { stored = folder; });
    QCOMPARE(m_changes->take(),
             QStringList{QStringLiteral(
                 "change 1-1 accentColorHex iconSymbol previewColumns previewURLs")});
    QCOMPARE(value(1, FolderListModel::AccentColorRole).toString(), QStringLiteral("#4F83D3"));
    QCOMPARE(value(1, FolderListModel::IconSymbolRole).toString(), QStringLiteral("star.fill"));
    QCOMPARE(value(1, FolderListModel::PreviewColumnsRole).toInt(), 3);
    QCOMPARE(value(1, FolderListModel::PreviewURLsRole).toStringList().size(), 5);
    m_fixture->store->setGridColumns(m_b.id, 2);
    QCOMPARE(value(1, FolderListModel::PreviewColumnsRole).toInt(), 2);
    QCOMPARE(value(1, FolderListModel::PreviewURLsRole).toStringList().size(), 4);
    QCOMPARE(value(0, FolderListModel::AccentColorRole).toString(), QString());
    QCOMPARE(value(0, FolderListModel::IconSymbolRole).toString(), QString());
}

void FolderListCommandsTest::aPictureKeepsItsSourceUntilItIsReplaced()
{
    const auto source = [this] { return value(0, FolderListModel::PictureSourceRole).toString(); };
    QCOMPARE(source(), QString());
    m_fixture->store->setCustomIcon(m_a.id, QByteArrayLiteral("first"));
    const QString first = source();
    QVERIFY(first.startsWith(uuidText(m_a.id) + u'/'));
    m_fixture->store->renameFolder(m_a.id, QStringLiteral("Pears"));
    QCOMPARE(source(), first);
    m_fixture->store->setCustomIcon(m_a.id, QByteArrayLiteral("second"));
    QVERIFY(source() != first);
    m_fixture->store->setIconSymbol(m_a.id, QStringLiteral("star"));
    QCOMPARE(source(), QString());
}

QTEST_GUILESS_MAIN(FolderListCommandsTest)
#include "tst_folderlistcommands.moc"
