#include "tests/store/storefixture.h"
#include "tests/ui/modelchanges.h"
#include "ui/itemlistmodel.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

class ItemListModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void showsNamesAndPaths();
    void changesOnlyTheRowsThatDiffer_data();
    void changesOnlyTheRowsThatDiffer();
    void aNewNameChangesItsRowOnly();
    void anIDThatIsThereTwiceIsTwoRows();
    void followsAnyChangeWithoutAReset();
    void answersNothingOutsideTheList();
};

namespace {

const QList<DockFolderItem> &abcd()
{
    static const QList<DockFolderItem> items
        = folderNamed(QStringLiteral("F"),
                      {QStringLiteral("file:///Applications/A.app/"), QStringLiteral("file:///B"),
                       QStringLiteral("file:///C%20D.txt"), QStringLiteral("file:///D")})
              .items;
    return items;
}

QList<DockFolderItem> picked(const QList<int> &order)
{
    QList<DockFolderItem> items;
    for (const int index : order)
        items.append(abcd().at(index));
    return items;
}

} // namespace

void ItemListModelTest::showsNamesAndPaths()
{
    ItemListModel model;
    const ModelChanges changes(model);
    model.setItems(picked({0, 2}));
    QCOMPARE(texts(model, ItemListModel::NameRole),
             (QStringList{QStringLiteral("A"), QStringLiteral("C D")}));
    QCOMPARE(texts(model, ItemListModel::PathRole),
             (QStringList{QStringLiteral("/Applications/A.app"), QStringLiteral("/C D.txt")}));
}

void ItemListModelTest::changesOnlyTheRowsThatDiffer_data()
{
    QTest::addColumn<QList<int>>("order");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("nothing") << QList{0, 1, 2, 3} << QStringList();
    QTest::newRow("removal") << QList{0, 2, 3} << QStringList{QStringLiteral("remove 1-1")};
    QTest::newRow("move to the front")
        << QList{3, 0, 1, 2} << QStringList{QStringLiteral("move 3-0")};
    QTest::newRow("move to the end")
        << QList{1, 2, 3, 0} << QStringList{QStringLiteral("move 0-4")};
    QTest::newRow("two neighbours exchanged")
        << QList{0, 2, 1, 3} << QStringList{QStringLiteral("move 1-3")};
    QTest::newRow("two runs removed")
        << QList{2} << QStringList{QStringLiteral("remove 3-3"), QStringLiteral("remove 0-1")};
    QTest::newRow("none left") << QList<int>() << QStringList{QStringLiteral("remove 0-3")};
}

void ItemListModelTest::changesOnlyTheRowsThatDiffer()
{
    QFETCH(QList<int>, order);
    QFETCH(QStringList, expected);
    ItemListModel model;
    model.setItems(abcd());
    ModelChanges changes(model);
    model.setItems(picked(order));
    QCOMPARE(changes.take(), expected);
    QCOMPARE(texts(model, ItemListModel::NameRole), namesOf(picked(order)));
}

void ItemListModelTest::aNewNameChangesItsRowOnly()
{
    ItemListModel model;
    model.setItems(abcd());
    ModelChanges changes(model);
    QList<DockFolderItem> renamed = abcd();
    renamed[2].name = QStringLiteral("Renamed");
    model.setItems(renamed);
    QCOMPARE(changes.take(), QStringList{QStringLiteral("change 2-2 name")});
}

// A library that another program damaged; the next one may well be whole again.
void ItemListModelTest::anIDThatIsThereTwiceIsTwoRows()
{
    ItemListModel model;
    ModelChanges changes(model);
    QList<DockFolderItem> twice = picked({0, 1, 2});
    twice[2].id = twice[0].id;
    model.setItems(twice);
    QCOMPARE(texts(model, ItemListModel::NameRole), namesOf(twice));
    model.setItems(picked({1, 0}));
    QCOMPARE(texts(model, ItemListModel::NameRole), namesOf(picked({1, 0})));
    model.setItems(twice);
    QCOMPARE(texts(model, ItemListModel::NameRole), namesOf(twice));
    QVERIFY(!changes.take().contains(QStringLiteral("reset")));
}

void ItemListModelTest::followsAnyChangeWithoutAReset()
{
    QRandomGenerator random(4711);
    QStringList urls;
    for (int number = 0; number < 12; ++number)
        urls.append(QStringLiteral("file:///%1").arg(number));
    const QList<DockFolderItem> all = folderNamed(QStringLiteral("F"), urls).items;
    ItemListModel model;
    ModelChanges changes(model);
    for (int round = 0; round < 300; ++round) {
        QList<DockFolderItem> next = all;
        std::shuffle(next.begin(), next.end(), random);
        next.resize(random.bounded(static_cast<int>(all.size()) + 1));
        model.setItems(next);
        QCOMPARE(texts(model, ItemListModel::NameRole), namesOf(next));
    }
    QVERIFY(!changes.take().contains(QStringLiteral("reset")));
}

void ItemListModelTest::answersNothingOutsideTheList()
{
    ItemListModel model;
    model.setItems(abcd());
    QVERIFY(!model.data(model.index(0), Qt::DecorationRole).isValid());
    QCOMPARE(model.rowCount(model.index(0)), 0);
}

QTEST_GUILESS_MAIN(ItemListModelTest)
#include "tst_itemlistmodel.moc"
