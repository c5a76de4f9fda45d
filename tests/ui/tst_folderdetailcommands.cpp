#include "model/uuidtext.h"
#include "tests/ui/detailfixture.h"

#include <QSignalSpy>
#include <QTest>

/// What the controls of the detail do to the items and the look of its folder.
class FolderDetailCommandsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_fixture.reset(); }
    void movesAnItemSoThatItEndsAtAnIndex_data();
    void movesAnItemSoThatItEndsAtAnIndex();
    void sameIndexIsNoMove();
    void whatIsNotThereDoesNotMove();
    void aLockedFolderKeepsItsOrder();
    void choosesASymbolAndNone();
    void aSymbolReplacesThePicture();
    void choosesColumnsAndNone();
    void columnsThatNobodyChoosesAreNotAutomatic_data();
    void columnsThatNobodyChoosesAreNotAutomatic();
    void anEmptyPictureIsNone();
    void thePreviewFollowsTheChoice();
    void commandsGoToTheFolderThatIsShown();

private:
    CompanionStore &store() { return *m_fixture->store; }
    [[nodiscard]] DockFolder stored() { return store().folder(m_folder.id).value_or(DockFolder()); }
    [[nodiscard]] QString idOf(int row) const { return uuidText(m_folder.items.at(row).id); }

    const DockFolder m_folder = folderNamed(
        QStringLiteral("Work"),
        {QStringLiteral("file:///a"), QStringLiteral("file:///b"), QStringLiteral("file:///c")});
    const DockFolder m_other = folderNamed(QStringLiteral("Play"));
    std::unique_ptr<DetailFixture> m_fixture;
    FolderDetailModel *m_model = nullptr; ///< the fixture's
};

void FolderDetailCommandsTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_fixture = std::make_unique<DetailFixture>();
    m_fixture->showFirst({m_folder, m_other});
    m_model = m_fixture->model.get();
}

void FolderDetailCommandsTest::movesAnItemSoThatItEndsAtAnIndex_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("order");
    QTest::newRow("the first over the third") << 0 << 2 << "bca";
    QTest::newRow("the first over the second") << 0 << 1 << "bac";
    QTest::newRow("the third over the first") << 2 << 0 << "cab";
    QTest::newRow("the third over the second") << 2 << 1 << "acb";
    QTest::newRow("past the end") << 0 << 3 << "bca";
    QTest::newRow("far past the end") << 1 << std::numeric_limits<int>::max() << "acb";
    QTest::newRow("before the start") << 2 << -1 << "cab";
}

void FolderDetailCommandsTest::movesAnItemSoThatItEndsAtAnIndex()
{
    QFETCH(int, from);
    QFETCH(int, to);
    m_model->moveItem(idOf(from), to);
    QTEST(namesOf(stored().items).join(QString()), "order");
    QCOMPARE(m_fixture->savedLibrary()->folders.first().items, stored().items);
}

void FolderDetailCommandsTest::sameIndexIsNoMove()
{
    const QSignalSpy changes(&store(), &CompanionStore::foldersChanged);
    m_model->moveItem(idOf(1), 1);
    m_model->moveItem(idOf(0), -4);
    m_model->moveItem(idOf(2), 4);
    QCOMPARE(changes.count(), 0);
}

void FolderDetailCommandsTest::whatIsNotThereDoesNotMove()
{
    m_model->moveItem(uuidText(QUuid::createUuid()), 0);
    m_model->moveItem(QString(), 2);
    m_model->setFolder(m_other.id); // which has no items
    m_model->moveItem(idOf(0), 2);
    QCOMPARE(stored(), m_folder);
    QCOMPARE(store().folder(m_other.id), m_other);
}

void FolderDetailCommandsTest::aLockedFolderKeepsItsOrder()
{
    CompanionStoreTestAccess::lock(store(), m_folder.id);
    QVERIFY(m_model->isLocked());
    m_model->moveItem(idOf(0), 2);
    m_model->removeItem(idOf(0));
    m_model->addItems({QStringLiteral("file:///d")});
    QCOMPARE(stored(), m_folder);
}

void FolderDetailCommandsTest::choosesASymbolAndNone()
{
    m_model->setIconSymbol(QStringLiteral("star.fill"));
    QCOMPARE(stored().iconSymbol, QStringLiteral("star.fill"));
    QCOMPARE(m_model->iconSymbol(), QStringLiteral("star.fill"));
    m_model->setIconSymbol(QString());
    QCOMPARE(stored().iconSymbol, std::nullopt);
    QCOMPARE(m_model->iconSymbol(), QString());
}

void FolderDetailCommandsTest::aSymbolReplacesThePicture()
{
    store().setCustomIcon(m_folder.id, QByteArrayLiteral("picture"));
    QVERIFY(m_model->hasCustomIcon());
    QVERIFY(m_model->pictureSource().startsWith(m_model->folderID() + u'/'));
    m_model->setIconSymbol(QStringLiteral("star.fill"));
    QVERIFY(!m_model->hasCustomIcon());
    QCOMPARE(m_model->pictureSource(), QString());
}

void FolderDetailCommandsTest::choosesColumnsAndNone()
{
    m_model->setGridColumns(4);
    QCOMPARE(stored().gridColumns, 4);
    QCOMPARE(m_model->gridColumns(), 4);
    m_model->setGridColumns(0);
    QCOMPARE(stored().gridColumns, std::nullopt);
    QCOMPARE(m_model->gridColumns(), 0);
    m_model->setGridColumns(-1);
    QCOMPARE(stored().gridColumns, std::nullopt);
}

void FolderDetailCommandsTest::columnsThatNobodyChoosesAreNotAutomatic_data()
{
    QTest::addColumn<qint64>("stored");
    QTest::addColumn<int>("shown");
    QTest::newRow("none at all") << qint64(0) << -1;
    QTest::newRow("less than none") << qint64(-3) << -1;
    QTest::newRow("not offered") << qint64(7) << 7;
    QTest::newRow("two, cut to 32 bits") << (qint64(1) << 32) + 2 << -1;
}

void FolderDetailCommandsTest::columnsThatNobodyChoosesAreNotAutomatic()
{
    QFETCH(qint64, stored);
    store().setGridColumns(m_folder.id, stored);
    QTEST(m_model->gridColumns(), "shown");
}

void FolderDetailCommandsTest::anEmptyPictureIsNone()
{
    store().setCustomIcon(m_folder.id, QByteArray());
    QVERIFY(!m_model->hasCustomIcon());
    QCOMPARE(m_model->pictureSource(), QString());
}

void FolderDetailCommandsTest::thePreviewFollowsTheChoice()
{
    QCOMPARE(m_model->previewColumns(), 2);
    QCOMPARE(m_model->previewURLs().size(), 3);
    m_model->setGridColumns(1);
    QCOMPARE(m_model->previewColumns(), 1);
    QCOMPARE(m_model->previewURLs(), QStringList{QStringLiteral("file:///a")});
    QCOMPARE(m_model->itemURLs().size(), 3);
}

void FolderDetailCommandsTest::commandsGoToTheFolderThatIsShown()
{
    m_model->setFolder(m_other.id);
    m_model->setIconSymbol(QStringLiteral("moon"));
    m_model->setGridColumns(3);
    QCOMPARE(stored(), m_folder);
    QCOMPARE(store().folder(m_other.id)->iconSymbol, QStringLiteral("moon"));
    QCOMPARE(store().folder(m_other.id)->gridColumns, 3);
}

QTEST_GUILESS_MAIN(FolderDetailCommandsTest)
#include "tst_folderdetailcommands.moc"
