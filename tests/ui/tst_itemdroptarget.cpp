#include "model/uuidtext.h"
#include "tests/ui/drags.h"
#include "ui/itemdroptarget.h"

#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

/// Two cells side by side, over which items of their folder and files are dragged.
class ItemDropTargetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }
    void asksForTheMoveOncePerEnteredCell();
    void overItsOwnCellNothingIsAsked();
    void ownItemsDoNotHighlight();
    void performingEndsTheDrag();
    void leavingAsksForNothing();
    void takesFilesOfOtherPrograms();
    void textFromElsewhereAddsNothing();
    void refusesWhatIsNeitherFileNorText();
    void takesNothingWhileDisabled();

private:
    static constexpr QPoint inFirst{50, 50};
    static constexpr QPoint inSecond{150, 50};
    static constexpr QPoint outside{250, 50};

    struct Cell {
        ItemDropTarget *target = nullptr;
        std::unique_ptr<QSignalSpy> moves{};
        std::unique_ptr<QSignalSpy> ends{};
    };

    Cell makeCell(int index, const QString &itemID);
    void dragItem(const QString &itemID);
    [[nodiscard]] IncomingDrag ownDrag(const QString &itemID)
    {
        dragItem(itemID);
        return {*m_window, itemID.toLatin1(), QStringLiteral("text/plain")};
    }

    const QString m_folderID = uuidText(QUuid::createUuid());
    const QString m_firstID = uuidText(QUuid::createUuid());
    const QString m_secondID = uuidText(QUuid::createUuid());
    NotingReceiver m_receiver;
    std::unique_ptr<QQuickWindow> m_window;
    Cell m_first;
    Cell m_second;
};

ItemDropTargetTest::Cell ItemDropTargetTest::makeCell(int index, const QString &itemID)
{
    auto *const target = new ItemDropTarget(m_window->contentItem()); // owned by it
    target->setPosition({index * 100.0, 0});
    target->setSize({100, 100});
    target->setReceiver(&m_receiver);
    target->setProperty("folderID", m_folderID);
    target->setProperty("targetIndex", index);
    target->setProperty("itemID", itemID);
    return {.target = target,
            .moves = std::make_unique<QSignalSpy>(target, &ItemDropTarget::moveRequested),
            .ends = std::make_unique<QSignalSpy>(target, &ItemDropTarget::itemDropped)};
}

void ItemDropTargetTest::dragItem(const QString &itemID)
{
    for (const Cell *cell : {&m_first, &m_second})
        cell->target->setProperty("draggedItemID", itemID);
}

void ItemDropTargetTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_receiver.drops.clear();
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(300, 100);
    m_first = makeCell(0, m_firstID);
    m_second = makeCell(1, m_secondID);
}

void ItemDropTargetTest::asksForTheMoveOncePerEnteredCell()
{
    IncomingDrag drag = ownDrag(m_firstID);
    QVERIFY(drag.enter(inFirst));
    QVERIFY(drag.move(inSecond));
    QVERIFY(drag.move(inSecond + QPoint(9, 9)));
    QVERIFY(drag.move(inSecond - QPoint(9, 9)));
    QCOMPARE(m_second.moves->count(), 1);
    QCOMPARE(m_second.moves->first(), (QVariantList{m_firstID, 1}));
    QVERIFY(drag.move(inFirst));
    QVERIFY(drag.move(inSecond));
    QCOMPARE(m_second.moves->count(), 2);
}

void ItemDropTargetTest::overItsOwnCellNothingIsAsked()
{
    IncomingDrag drag = ownDrag(m_firstID);
    QVERIFY(drag.enter(inFirst));
    QVERIFY(drag.move(inFirst + QPoint(9, 9)));
    drag.drop(inFirst);
    QCOMPARE(m_first.moves->count(), 0);
}

void ItemDropTargetTest::ownItemsDoNotHighlight()
{
    IncomingDrag drag = ownDrag(m_firstID);
    QVERIFY(drag.enter(inSecond));
    QVERIFY(!m_second.target->isTargeted());
}

void ItemDropTargetTest::performingEndsTheDrag()
{
    IncomingDrag drag = ownDrag(m_firstID);
    QVERIFY(drag.enter(inSecond));
    drag.drop(inSecond);
    QCOMPARE(m_second.ends->count(), 1);
    QCOMPARE(m_first.ends->count(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(m_receiver.drops.size(), 0);
    QCOMPARE(m_second.moves->count(), 1); // which it did on the way
}

void ItemDropTargetTest::leavingAsksForNothing()
{
    IncomingDrag drag = ownDrag(m_firstID);
    QVERIFY(drag.enter(inSecond));
    QVERIFY(!drag.move(outside));
    drag.leave();
    QCOMPARE(m_second.moves->count(), 1);
    QCOMPARE(m_second.ends->count(), 0);
}

void ItemDropTargetTest::takesFilesOfOtherPrograms()
{
    IncomingDrag drag(*m_window, "file:///tmp/a\r\nfile:///tmp/b\r\n");
    QVERIFY(drag.enter(inFirst));
    QVERIFY(m_first.target->isTargeted());
    QVERIFY(drag.move(inSecond));
    QVERIFY(!m_first.target->isTargeted());
    QVERIFY(m_second.target->isTargeted());
    QCOMPARE(drag.drop(inSecond), Qt::CopyAction);
    QVERIFY(!m_second.target->isTargeted());
    QTRY_COMPARE(m_receiver.drops,
                 QStringList{m_folderID + QStringLiteral(" file:///tmp/a file:///tmp/b")});
    QCOMPARE(m_second.moves->count(), 0);
}

void ItemDropTargetTest::textFromElsewhereAddsNothing()
{
    IncomingDrag drag(*m_window, m_firstID.toLatin1(), QStringLiteral("text/plain"));
    QVERIFY(drag.enter(inSecond));
    QVERIFY(!m_second.target->isTargeted());
    drag.drop(inSecond);
    QCoreApplication::processEvents();
    QCOMPARE(m_second.moves->count(), 0);
    QCOMPARE(m_receiver.drops.size(), 0);
}

void ItemDropTargetTest::refusesWhatIsNeitherFileNorText()
{
    IncomingDrag picture(*m_window, "\x89PNG", QStringLiteral("image/png"));
    QVERIFY(!picture.enter(inFirst));
    QVERIFY(!m_first.target->isTargeted());
}

void ItemDropTargetTest::takesNothingWhileDisabled()
{
    m_second.target->setEnabled(false);
    IncomingDrag drag = ownDrag(m_firstID);
    QVERIFY(!drag.enter(inSecond));
    QCOMPARE(m_second.moves->count(), 0);
}

QTEST_MAIN(ItemDropTargetTest)
#include "tst_itemdroptarget.moc"
