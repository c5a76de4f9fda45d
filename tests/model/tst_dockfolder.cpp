#include "model/dockfolder.h"
#include "model/uuidtext.h"

#include <QRegularExpression>
#include <QTest>

class DockFolderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void theAppStoreFolderHasItsFixedID();
    void theFallbackFolderIsAlwaysTheSame();
    void equalityComparesEveryField_data();
    void equalityComparesEveryField();
    void absentEqualsAbsentOnly();
};

namespace {

DockFolder sampleFolder()
{
    const DockFolderItem item{.id = QUuid(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11),
                              .name = QStringLiteral("Notes"),
                              .url = FileURL::file(QStringLiteral("/Notes.txt")),
                              .bookmarkData = QByteArray("bookmark"),
                              .kind = DockFolderItem::Kind::file};
    return {.id = QUuid(2, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11),
            .name = QStringLiteral("Work"),
            .items = {item},
            .accentColorHex = QStringLiteral("#4F83D3"),
            .iconSymbol = QStringLiteral("star"),
            .customIconData = QByteArray("picture"),
            .gridColumns = 4};
}

using Change = void (*)(DockFolder &);

} // namespace
Q_DECLARE_METATYPE(Change)

void DockFolderTest::theAppStoreFolderHasItsFixedID()
{
    QCOMPARE(uuidText(appStoreFolderID()), QStringLiteral("EE000000-EEEE-EEEE-EEEE-EEEEEEEEEEEE"));
}

void DockFolderTest::theFallbackFolderIsAlwaysTheSame()
{
    const DockFolder &folder = fallbackFolder();
    QVERIFY(!folder.id.isNull());
    QCOMPARE(folder, (DockFolder{.id = folder.id, .name = QStringLiteral("Nestlet")}));
    QCOMPARE(fallbackFolder().id, folder.id);
}

void DockFolderTest::equalityComparesEveryField_data()
{
    QTest::addColumn<Change>("change");
    const auto row = [](const char *name, Change change) { QTest::newRow(name) << change; };
    row("id", [](DockFolder &folder) { folder.id = QUuid(); });
    row("name", [](DockFolder &folder) { folder.name += u'x'; });
    row("items", [](DockFolder &folder) { folder.items.clear(); });
    row("colour", [](DockFolder &folder) { folder.accentColorHex->append(u'x'); });
    row("symbol", [](DockFolder &folder) { folder.iconSymbol->append(u'x'); });
    row("picture of the same size",
        [](DockFolder &folder) { folder.customIconData = QByteArray("xicture"); });
    row("picture cut short",
        [](DockFolder &folder) { folder.customIconData = QByteArray("pictur"); });
    row("columns", [](DockFolder &folder) { folder.gridColumns = 5; });
    row("item id", [](DockFolder &folder) { folder.items[0].id = QUuid(); });
    row("item name", [](DockFolder &folder) { folder.items[0].name += u'x'; });
    row("item URL", [](DockFolder &folder) { folder.items[0].url = FileURL(); });
    row("bookmark", [](DockFolder &folder) { (*folder.items[0].bookmarkData)[0] = 'x'; });
    row("kind", [](DockFolder &folder) { folder.items[0].kind = DockFolderItem::Kind::folder; });
}

void DockFolderTest::equalityComparesEveryField()
{
    QFETCH(Change, change);
    const DockFolder folder = sampleFolder();
    QCOMPARE(folder, sampleFolder()); // no shared data
    DockFolder changed = folder;
    QCOMPARE(changed, folder); // all data shared
    change(changed);
    QVERIFY(changed != folder);
}

void DockFolderTest::absentEqualsAbsentOnly()
{
    DockFolder empty{
        .accentColorHex = QString(), .iconSymbol = QString(), .customIconData = QByteArray()};
    QVERIFY(empty != DockFolder());
    empty.accentColorHex.reset();
    empty.iconSymbol.reset();
    QVERIFY(empty != DockFolder());
    empty.customIconData.reset();
    QCOMPARE(empty, DockFolder());
    QVERIFY((DockFolder{.gridColumns = 0}) != DockFolder());
}

QTEST_APPLESS_MAIN(DockFolderTest)
#include "tst_dockfolder.moc"
