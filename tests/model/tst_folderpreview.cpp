#include "model/folderpreview.h"

#include <QTest>

/// What a folder's icon shows of it, wherever it is shown.
class FolderPreviewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsColoursLeniently_data();
    void readsColoursLeniently();
    void columnsFollowTheItems_data();
    void columnsFollowTheItems();
    void chosenColumnsCount_data();
    void chosenColumnsCount();
    void showsNoMoreItemsThanThereAreCells_data();
    void showsNoMoreItemsThanThereAreCells();
    void keepsTheTextsAndOrderOfTheItems();
};

namespace {

DockFolder folderOf(const QStringList &urls)
{
    DockFolder folder;
    for (const QString &url : urls)
        folder.items.append({.url = FileURL::fromValidText(url)});
    return folder;
}

DockFolder folderOfItems(int count)
{
    QStringList urls;
    for (int number = 0; number < count; ++number)
        urls.append(QStringLiteral("file:///item%1").arg(number));
    return folderOf(urls);
}

} // namespace

void FolderPreviewTest::readsColoursLeniently_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the usual form") << "#4F83D3"
                                    << "#4F83D3";
    QTest::newRow("small letters, no hash") << "4f83d3"
                                            << "#4F83D3";
    QTest::newRow("hashes on both ends") << "#4F83D3#"
                                         << "#4F83D3";
    QTest::newRow("too short") << "#4F83D"
                               << "";
    QTest::newRow("empty") << ""
                           << "";
}

void FolderPreviewTest::readsColoursLeniently()
{
    QFETCH(QString, stored);
    DockFolder folder;
    QCOMPARE(previewColor(folder), QString());
    folder.accentColorHex = stored;
    QTEST(previewColor(folder), "expected");
}

void FolderPreviewTest::columnsFollowTheItems_data()
{
    QTest::addColumn<int>("items");
    QTest::addColumn<int>("columns");
    QTest::newRow("none") << 0 << 2;
    QTest::newRow("one") << 1 << 2;
    QTest::newRow("two columns are full") << 4 << 2;
    QTest::newRow("one more") << 5 << 3;
    QTest::newRow("three columns are full") << 9 << 3;
    QTest::newRow("one more than that") << 10 << 4;
    QTest::newRow("more than any grid holds") << 2000 << 4;
}

void FolderPreviewTest::columnsFollowTheItems()
{
    QFETCH(int, items);
    QTEST(previewColumns(folderOfItems(items)), "columns");
}

void FolderPreviewTest::chosenColumnsCount_data()
{
    QTest::addColumn<qint64>("chosen");
    QTest::addColumn<int>("columns");
    QTest::newRow("one") << qint64(1) << 1;
    QTest::newRow("three, though one item is there") << qint64(3) << 3;
    QTest::newRow("more than fit into an icon") << qint64(8) << 4;
    QTest::newRow("none at all") << qint64(0) << 1;
    QTest::newRow("less than none") << qint64(-7) << 1;
    QTest::newRow("more than any int") << std::numeric_limits<qint64>::max() << 4;
}

void FolderPreviewTest::chosenColumnsCount()
{
    QFETCH(qint64, chosen);
    DockFolder folder = folderOfItems(1);
    folder.gridColumns = chosen;
    QTEST(previewColumns(folder), "columns");
}

void FolderPreviewTest::showsNoMoreItemsThanThereAreCells_data()
{
    QTest::addColumn<int>("items");
    QTest::addColumn<int>("shown");
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("fewer than cells") << 3 << 3;
    QTest::newRow("all cells are full") << 16 << 16;
    QTest::newRow("more than cells") << 17 << 16;
}

void FolderPreviewTest::showsNoMoreItemsThanThereAreCells()
{
    QFETCH(int, items);
    QTEST(int(previewURLs(folderOfItems(items)).size()), "shown");
}

void FolderPreviewTest::keepsTheTextsAndOrderOfTheItems()
{
    const QStringList urls{QStringLiteral("file:///b%20c/"), QStringLiteral("file:///a")};
    DockFolder folder = folderOf(urls);
    QCOMPARE(previewURLs(folder), urls);
    folder.gridColumns = 1;
    QCOMPARE(previewURLs(folder), urls.first(1));
}

QTEST_APPLESS_MAIN(FolderPreviewTest)
#include "tst_folderpreview.moc"
