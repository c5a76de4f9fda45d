#include "model/uuidtext.h"
#include "tests/ui/drags.h"
#include "tests/ui/itemtree.h"
#include "tests/ui/windowfixture.h"
#include "ui/itemdragsource.h"

#include <QDrag>
#include <QSignalSpy>

/// What is dragged over the items of a folder: its own items, and files.
class WindowGridDropsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }
    void theFirstOverTheThirdEndsThereWhileBeingDragged();
    void theOrderFollowsThePointerBackAgain();
    void overItselfNothingMoves();
    void theDraggedCellFadesUntilItIsDropped();
    void textOfAnotherProgramMovesNothing();
    void filesOverACellHighlightTheWholeGrid();
    void filesOverTheHeaderHighlightTheGrid();
    void filesDroppedOnACellAreAddedOnce();
    void filesBetweenTheCellsAreAdded();
    void aCellThatGoesMeanwhileLeavesNoHighlight();
    void anItemHeldStillGoesOnWhileTheGridScrolls();
    void nothingIsHoveredDuringADrag();
    void anEmptyGridInvitesWhileFilesHover();
    void aDropFillsTheEmptyGrid();
    void aLockedFolderDragsNothing();
    void aLockedFolderHasNoRemoveButtonUnderThePointer();
    void pressingAndMovingDragsTheItem();
    void whatIsLetGoAtOnceIsNotDragged();
    void thePointerHoldsThePictureWhereItTookTheItem_data();
    void thePointerHoldsThePictureWhereItTookTheItem();
    void theKeyboardGoesOnWithTheItemThatWasDragged();

private:
    [[nodiscard]] QString order() const
    {
        return namesOf(m_window->store->folder(m_full.id)->items).join(QString());
    }
    [[nodiscard]] QQuickItem *cell(const char *name) const
    {
        return m_window->row(QLatin1StringView(name));
    }
    [[nodiscard]] QPoint centreOf(const char *name) const
    {
        return WindowFixture::centre(cell(name));
    }
    [[nodiscard]] QQuickItem *grid() const { return m_window->named("itemGrid")->parentItem(); }
    [[nodiscard]] bool isHighlighted() const { return grid()->property("isDropTargeted").toBool(); }
    [[nodiscard]] QString draggedID() const { return grid()->property("draggedItemID").toString(); }
    [[nodiscard]] IncomingDrag dragItem(int index);
    /// Takes an item there and moves it until the system drags it, which ends at once here.
    void dragFrom(const QPoint &place);

    const DockFolder m_full
        = folderNamed(QStringLiteral("Full"),
                      {QStringLiteral("file:///a"), QStringLiteral("file:///b"),
                       QStringLiteral("file:///c"), QStringLiteral("file:///d")});
    const DockFolder m_empty = folderNamed(QStringLiteral("Empty"));
    std::unique_ptr<WindowFixture> m_window;
};

void WindowGridDropsTest::init()
{
    failOnWindowWarnings();
    m_window = std::make_unique<WindowFixture>();
    QVERIFY(m_window->open({m_full, m_empty}));
    m_window->click(m_window->row(m_full.name));
}

// As the window is while the system drags the item.
IncomingDrag WindowGridDropsTest::dragItem(int index)
{
    const QString id = uuidText(m_full.items.at(index).id);
    grid()->setProperty("draggedItemID", id);
    return {*m_window->window, id.toLatin1(), QStringLiteral("text/plain")};
}

void WindowGridDropsTest::theFirstOverTheThirdEndsThereWhileBeingDragged()
{
    const QPoint third = centreOf("c");
    IncomingDrag drag = dragItem(0);
    QVERIFY(drag.enter(centreOf("a")));
    QVERIFY(drag.move(third));
    QCOMPARE(order(), QStringLiteral("bcad"));
    QCOMPARE(draggedID(), uuidText(m_full.items.first().id));
    QCOMPARE(centreOf("a"), third);
    drag.drop(third);
    QCOMPARE(draggedID(), QString());
    QCOMPARE(order(), QStringLiteral("bcad"));
    const std::optional<DockFolderLibrary> saved = m_window->savedLibrary();
    QVERIFY(saved);
    QCOMPARE(namesOf(saved->folders.first().items).join(QString()), QStringLiteral("bcad"));
}

void WindowGridDropsTest::theOrderFollowsThePointerBackAgain()
{
    const QList<QPoint> places{centreOf("a"), centreOf("b"), centreOf("c")};
    IncomingDrag drag = dragItem(0);
    drag.enter(places.at(0));
    drag.move(places.at(1));
    QCOMPARE(order(), QStringLiteral("bacd"));
    (void)cell("a"); // the cells take their places
    drag.move(places.at(2));
    QCOMPARE(order(), QStringLiteral("bcad"));
    (void)cell("a");
    drag.move(places.at(0));
    QCOMPARE(order(), QStringLiteral("abcd"));
    drag.drop(places.at(0));
    QCOMPARE(order(), QStringLiteral("abcd"));
}

void WindowGridDropsTest::overItselfNothingMoves()
{
    const QSignalSpy changes(m_window->store, &CompanionStore::foldersChanged);
    IncomingDrag drag = dragItem(1);
    QVERIFY(drag.enter(centreOf("b")));
    QVERIFY(drag.move(centreOf("b") + QPoint(9, 9)));
    drag.drop(centreOf("b"));
    m_window->finishEverything();
    QCOMPARE(changes.count(), 0);
}

void WindowGridDropsTest::theDraggedCellFadesUntilItIsDropped()
{
    IncomingDrag drag = dragItem(1);
    drag.enter(centreOf("b"));
    QTRY_COMPARE(cell("b")->opacity(), 0.35);
    QTRY_COMPARE(cell("b")->scale(), 0.95);
    QCOMPARE(cell("a")->opacity(), 1.0);
    drag.drop(centreOf("b"));
    QTRY_COMPARE(cell("b")->opacity(), 1.0);
    QTRY_COMPARE(cell("b")->scale(), 1.0);
}

void WindowGridDropsTest::textOfAnotherProgramMovesNothing()
{
    IncomingDrag drag(*m_window->window, uuidText(m_full.items.first().id).toLatin1(),
                      QStringLiteral("text/plain"));
    drag.enter(centreOf("c"));
    QVERIFY(!isHighlighted());
    drag.drop(centreOf("c"));
    m_window->finishEverything();
    QCOMPARE(order(), QStringLiteral("abcd"));
}

void WindowGridDropsTest::filesOverACellHighlightTheWholeGrid()
{
    IncomingDrag drag(*m_window->window, "file:///x");
    QVERIFY(!isHighlighted());
    QVERIFY(drag.enter(centreOf("a")));
    QVERIFY(isHighlighted());
    QVERIFY(drag.move(centreOf("c")));
    QVERIFY(isHighlighted());
    drag.leave();
    QVERIFY(!isHighlighted());
}

void WindowGridDropsTest::filesOverTheHeaderHighlightTheGrid()
{
    const QQuickItem *header = m_window->named("headerDropTarget");
    const QPoint place
        = header->mapToScene(QPointF(header->width() - 9, header->height() / 2)).toPoint();
    IncomingDrag drag(*m_window->window, "file:///x");
    QVERIFY(drag.enter(place));
    QVERIFY(header->property("isTargeted").toBool());
    QVERIFY(isHighlighted());
    drag.drop(place);
    QVERIFY(!isHighlighted());
    QTRY_COMPARE(order(), QStringLiteral("abcdx"));
}

void WindowGridDropsTest::filesDroppedOnACellAreAddedOnce()
{
    IncomingDrag drag(*m_window->window, "file:///x\r\nfile:///y\r\n");
    QVERIFY(drag.enter(centreOf("b")));
    QCOMPARE(drag.drop(centreOf("b")), Qt::CopyAction);
    QVERIFY(!isHighlighted());
    QTRY_COMPARE(order(), QStringLiteral("abcdxy"));
    m_window->finishEverything();
    QCOMPARE(order(), QStringLiteral("abcdxy"));
}

void WindowGridDropsTest::filesBetweenTheCellsAreAdded()
{
    const QPoint between = (centreOf("a") + centreOf("b")) / 2;
    IncomingDrag drag(*m_window->window, "file:///x");
    QVERIFY(drag.enter(between));
    QVERIFY(isHighlighted());
    drag.drop(between);
    QTRY_COMPARE(order(), QStringLiteral("abcdx"));
}

void WindowGridDropsTest::aCellThatGoesMeanwhileLeavesNoHighlight()
{
    IncomingDrag drag(*m_window->window, "file:///x");
    QVERIFY(drag.enter(centreOf("d")));
    QVERIFY(isHighlighted());
    DockFolder fewer = m_full;
    fewer.items.removeLast();
    m_window->changeFromOutside({fewer, m_empty});
    QVERIFY(!cell("d"));
    drag.leave();
    QTRY_VERIFY(!isHighlighted());
}

// Near the lower edge of the window, so that it scrolls by itself.
void WindowGridDropsTest::anItemHeldStillGoesOnWhileTheGridScrolls()
{
    DockFolder many = m_full;
    for (int number = 0; number < 60; ++number)
        many.items.append({.id = QUuid::createUuid(),
                           .name = QString::number(number),
                           .url = FileURL::file(QStringLiteral("/%1").arg(number))});
    m_window->changeFromOutside({many, m_empty});
    QQuickItem *const scroll = m_window->named("detailScroll");
    scroll->setProperty("contentY", 300);
    const QPoint start = centreOf("a");
    const QPoint edge(start.x(), m_window->window->height() - 20);
    IncomingDrag drag = dragItem(0);
    QVERIFY(drag.enter(start));
    QVERIFY(drag.move(edge));
    const auto place
        = [&] { return m_window->store->folder(m_full.id)->items.indexOf(many.items.first()); };
    const auto first = place();
    QVERIFY(first > 0);
    QTRY_VERIFY_WITH_TIMEOUT(scroll->property("atYEnd").toBool(), 20'000);
    const int columns = grid()->property("columns").toInt();
    QTRY_VERIFY(place() > first + qsizetype{2} * columns);
    drag.leave();
}

// The pointer is where the drag is: what it was over before is hovered no more, nor what is
// scrolled there.
void WindowGridDropsTest::nothingIsHoveredDuringADrag()
{
    const auto hovered = [this] {
        QStringList names;
        for (const DockFolderItem &item : m_full.items) {
            if (m_window->row(item.name)->property("isHovered").toBool())
                names.append(item.name);
        }
        return names;
    };
    QTest::mouseMove(m_window->window, centreOf("b"));
    QTRY_COMPARE(hovered(), QStringList{QStringLiteral("b")});
    IncomingDrag drag(*m_window->window, "file:///x");
    QVERIFY(drag.enter(centreOf("d")));
    QTRY_COMPARE(hovered(), QStringList());
    const QSignalSpy frames(m_window->window, &QQuickWindow::afterAnimating);
    for (int step = 1; step <= 3; ++step) {
        m_window->named("detailScroll")->setProperty("contentY", 10 * step);
        QTRY_VERIFY(frames.count() >= step);
        QCOMPARE(hovered(), QStringList());
    }
    drag.leave();
    QTest::mouseMove(m_window->window, centreOf("c"));
    QTRY_COMPARE(hovered(), QStringList{QStringLiteral("c")});
}

void WindowGridDropsTest::anEmptyGridInvitesWhileFilesHover()
{
    m_window->click(m_window->row(m_empty.name));
    QQuickItem *const state = m_window->named("emptyState");
    const auto line
        = [state] { return QAccessible::queryAccessibleInterface(state)->text(QAccessible::Name); };
    QCOMPARE(line(), QStringLiteral("No items yet"));
    QVERIFY(shownSymbol(state, QStringLiteral("tray")));
    IncomingDrag drag(*m_window->window, "file:///x");
    QVERIFY(drag.enter(WindowFixture::centre(state)));
    QCOMPARE(line(), QStringLiteral("Release to Add"));
    const QQuickItem *const arrow = shownSymbol(state, QStringLiteral("arrow.down.circle.fill"));
    QVERIFY(arrow);
    QCOMPARE(arrow->property("color").value<QColor>(), QColor(0x00, 0x7A, 0xFF));
    drag.leave();
    QCOMPARE(line(), QStringLiteral("No items yet"));
    QVERIFY(shownSymbol(state, QStringLiteral("tray")));
    QCOMPARE(QAccessible::queryAccessibleInterface(state)->text(QAccessible::Description),
             QStringLiteral("Click \"Add Apps\" or drag apps here."));
}

void WindowGridDropsTest::aDropFillsTheEmptyGrid()
{
    m_window->click(m_window->row(m_empty.name));
    const QPoint place = WindowFixture::centre(m_window->named("emptyState"));
    IncomingDrag drag(*m_window->window, "file:///x");
    QVERIFY(drag.enter(place));
    drag.drop(place);
    QTRY_VERIFY(cell("x"));
    QVERIFY(!m_window->named("emptyState"));
    QVERIFY(!isHighlighted());
}

void WindowGridDropsTest::aLockedFolderDragsNothing()
{
    CompanionStoreTestAccess::lock(*m_window->store, m_full.id);
    IncomingDrag drag = dragItem(0);
    QVERIFY(!drag.enter(centreOf("c")));
    QVERIFY(!drag.move(centreOf("b")));
    grid()->setProperty("draggedItemID", QString());
    const QPoint from = centreOf("a");
    QTest::mousePress(m_window->window, Qt::LeftButton, Qt::NoModifier, from);
    for (int step = 1; step <= 5; ++step)
        QTest::mouseMove(m_window->window, from + QPoint(step * 10, 0));
    m_window->finishEverything();
    QCOMPARE(draggedID(), QString());
    QTest::mouseRelease(m_window->window, Qt::LeftButton, Qt::NoModifier, from);
    QCOMPARE(order(), QStringLiteral("abcd"));
}

void WindowGridDropsTest::aLockedFolderHasNoRemoveButtonUnderThePointer()
{
    QTest::mouseMove(m_window->window, centreOf("b"));
    QTRY_VERIFY(cell("b")->property("isHovered").toBool());
    const QQuickItem *const remove = m_window->button(QStringLiteral("Remove b"));
    QVERIFY(remove->property("isShown").toBool());
    QVERIFY(!m_window->button(QStringLiteral("Remove a"))->property("isShown").toBool());
    CompanionStoreTestAccess::lock(*m_window->store, m_full.id);
    QTest::mouseMove(m_window->window, centreOf("b") + QPoint(3, 3));
    QTRY_VERIFY(cell("b")->property("isHovered").toBool());
    QVERIFY(!remove->isVisible());
    QVERIFY(!m_window->button(QStringLiteral("Remove b")));
}

void WindowGridDropsTest::pressingAndMovingDragsTheItem()
{
    const QSignalSpy dragged(grid(), SIGNAL(draggedItemIDChanged()));
    const QPoint from = centreOf("a");
    QTest::mousePress(m_window->window, Qt::LeftButton, Qt::NoModifier, from);
    QTest::mouseMove(m_window->window, from + QPoint(3, 0)); // a shaky hand drags nothing
    m_window->finishEverything();
    QCOMPARE(dragged.count(), 0);
    for (int step = 1; step <= 3; ++step)
        QTest::mouseMove(m_window->window, from + QPoint(step * 10, 0));
    // This platform ends a drag where it began.
    QTRY_COMPARE(dragged.count(), 2);
    QCOMPARE(draggedID(), QString());
    QTest::mouseRelease(m_window->window, Qt::LeftButton, Qt::NoModifier, from);
    QCOMPARE(order(), QStringLiteral("abcd"));
}

// The picture of the item comes with the frame after the first movement: here all is over by then.
void WindowGridDropsTest::whatIsLetGoAtOnceIsNotDragged()
{
    const QSignalSpy dragged(grid(), SIGNAL(draggedItemIDChanged()));
    const QPointF from = centreOf("a");
    const auto send = [&](QEvent::Type type, const QPointF &place, Qt::MouseButtons held) {
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, place, m_window->window->mapToGlobal(place), button, held,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(m_window->window, &event);
    };
    send(QEvent::MouseButtonPress, from, Qt::LeftButton);
    for (int step = 1; step <= 3; ++step)
        send(QEvent::MouseMove, from + QPointF(step * 10, 0), Qt::LeftButton);
    QVERIFY(cell("a")->property("isHeld").toBool());
    send(QEvent::MouseButtonRelease, from + QPointF(30, 0), Qt::NoButton);
    QTest::qWait(200);
    QCOMPARE(dragged.count(), 0);
}

void WindowGridDropsTest::dragFrom(const QPoint &place)
{
    const QSignalSpy ends(grid()->findChild<ItemDragSource *>(), &ItemDragSource::ended);
    QTest::mousePress(m_window->window, Qt::LeftButton, Qt::NoModifier, place);
    for (int step = 1; step <= 3; ++step)
        QTest::mouseMove(m_window->window, place + QPoint(step * 10, 0));
    QTRY_COMPARE(ends.count(), 1);
    QTest::mouseRelease(m_window->window, Qt::LeftButton, Qt::NoModifier, place);
}

void WindowGridDropsTest::thePointerHoldsThePictureWhereItTookTheItem_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::newRow("at its icon") << QPoint(40, 20);
    QTest::newRow("at its name") << QPoint(48, 76);
    QTest::newRow("at its corner") << QPoint(5, 85);
}

void WindowGridDropsTest::thePointerHoldsThePictureWhereItTookTheItem()
{
    QFETCH(QPoint, place);
    QList<QPoint> held;
    QList<QSize> sizes;
    connect(grid()->findChild<ItemDragSource *>(), &ItemDragSource::ended, this, [&] {
        const auto *const drag = m_window->window->findChild<QDrag *>();
        held.append(drag->hotSpot());
        sizes.append(drag->pixmap().deviceIndependentSize().toSize());
    });
    dragFrom(cell("b")->mapToScene(place).toPoint());
    QCOMPARE(held, QList<QPoint>{place});
    QCOMPARE(sizes, QList<QSize>{cell("b")->size().toSize()});
}

void WindowGridDropsTest::theKeyboardGoesOnWithTheItemThatWasDragged()
{
    m_window->click(m_window->row(m_full.name));
    QVERIFY(m_window->named("folderList")->hasActiveFocus());
    dragFrom(centreOf("b"));
    QVERIFY(cell("b")->hasActiveFocus());
    m_window->press(Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(order(), QStringLiteral("acbd"));
    m_window->press(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(namesOf(m_window->store->folders()), (QStringList{m_full.name, m_empty.name}));
}

QTEST_MAIN(WindowGridDropsTest)
#include "tst_windowgriddrops.moc"
