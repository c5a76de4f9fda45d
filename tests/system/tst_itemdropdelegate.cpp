#include "system/itemdropdelegate.h"

#include "tests/fakes/fakedropinfo.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

class ItemDropDelegateTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void takesFilesAndPlainText();
    void dragAcrossCellsMovesTheItemOncePerCell();
    void dragOverTheItemsOwnCellMovesNothing();
    void dragFromOutsideMovesNothing();
    void dropEndsAReorderAndAddsNothing();
    void dropOfFilesAddsThem();
    void plainTextFromOutsideAddsNothing();

private:
    CompanionItemDropDelegate cell(qsizetype index);

    std::optional<QUuid> m_dragged;
    QList<std::pair<QUuid, qsizetype>> m_moves;
    QList<QList<FileURL>> m_additions;
    QList<DockFolderItem> m_items;
};

void ItemDropDelegateTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    m_dragged.reset();
    m_moves.clear();
    m_additions.clear();
    m_items.clear();
    for (int i = 0; i < 4; ++i)
        m_items.append({.id = QUuid::createUuid()});
}

CompanionItemDropDelegate ItemDropDelegateTest::cell(qsizetype index)
{
    return {.targetIndex = index,
            .targetItem = m_items.at(index),
            .draggedItemID = {.get = [this] { return m_dragged; },
                              .set = [this](const auto &id) { m_dragged = id; }},
            .onMove =
                [this](const QUuid &id, qsizetype to) {
                    m_moves.append({id, to});
                },
            .onAdd = [this](const QList<FileURL> &urls) { m_additions.append(urls); }};
}

void ItemDropDelegateTest::takesFilesAndPlainText()
{
    QVERIFY(cell(0).validateDrop(FakeDropInfo::withFiles(1)));
    QVERIFY(cell(0).validateDrop(FakeDropInfo::withPlainText()));
    QVERIFY(!cell(0).validateDrop(FakeDropInfo()));
}

void ItemDropDelegateTest::dragAcrossCellsMovesTheItemOncePerCell()
{
    const QUuid id = m_items.at(0).id;
    m_dragged = id;
    for (qsizetype index : {1, 2, 3, 2})
        cell(index).dropEntered(FakeDropInfo::withPlainText());
    QCOMPARE(m_moves, (QList<std::pair<QUuid, qsizetype>>{{id, 1}, {id, 2}, {id, 3}, {id, 2}}));
    QCOMPARE(m_dragged, id); // the drag goes on
}

void ItemDropDelegateTest::dragOverTheItemsOwnCellMovesNothing()
{
    m_dragged = m_items.at(1).id;
    cell(1).dropEntered(FakeDropInfo::withPlainText());
    QVERIFY(m_moves.isEmpty());
}

void ItemDropDelegateTest::dragFromOutsideMovesNothing()
{
    cell(1).dropEntered(FakeDropInfo::withFiles(1));
    QVERIFY(m_moves.isEmpty());
}

void ItemDropDelegateTest::dropEndsAReorderAndAddsNothing()
{
    m_dragged = m_items.at(0).id;
    const auto drop = FakeDropInfo::withFiles(1);
    QVERIFY(cell(2).performDrop(drop));
    QCOMPARE(m_dragged, std::nullopt);
    QVERIFY(!drop.items.at(0)->completion); // was not even asked
    QVERIFY(m_moves.isEmpty());
    QVERIFY(m_additions.isEmpty());
}

void ItemDropDelegateTest::dropOfFilesAddsThem()
{
    const auto drop = FakeDropInfo::withFiles(1);
    QVERIFY(cell(2).performDrop(drop));
    drop.items.at(0)->finish("file:///Applications/Chess.app/");
    QTRY_COMPARE(m_additions.size(), 1);
    QCOMPARE(m_additions.at(0),
             QList{FileURL::fromValidText(u"file:///Applications/Chess.app/"_s)});
}

void ItemDropDelegateTest::plainTextFromOutsideAddsNothing()
{
    const auto drop = FakeDropInfo::withPlainText();
    QVERIFY(cell(0).validateDrop(drop));
    QVERIFY(cell(0).performDrop(drop));
    QCoreApplication::processEvents();
    QVERIFY(m_additions.isEmpty());
}

QTEST_GUILESS_MAIN(ItemDropDelegateTest)
#include "tst_itemdropdelegate.moc"
