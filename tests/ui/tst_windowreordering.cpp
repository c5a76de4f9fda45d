#include "model/uuidtext.h"
#include "tests/ui/itemtree.h"
#include "tests/ui/windowfixture.h"

/// A folder in the sidebar that the pointer holds, while another program changes the library.
class WindowReorderingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }
    void theHeldFolderIsMovedThoughAnotherComesAbove();
    void aHeldFolderThatGoesIsHeldNoMore();
    void theAppStoreFolderComingMovesNothingElse();
    void aRowThatWentAboveTheVisibleOnesShiftsNothing();
    void theListScrollsBackToItsShiftedTop();
    void aPressWithoutADragMovesNothing();
    void escapePutsTheHeldFolderBack();
    void aFolderLetGoElsewhereStaysWhereItWas_data();
    void aFolderLetGoElsewhereStaysWhereItWas();
    void aFolderLetGoGoesOnFromTheHand();
    void aHeldLockedFolderKeepsItsBadge();

private:
    [[nodiscard]] static QString nameOf(int number)
    {
        return QStringLiteral("Folder %1").arg(number);
    }
    [[nodiscard]] QQuickItem *list() const { return m_window->named("folderList"); }
    [[nodiscard]] QStringList order() const { return namesOf(m_window->store->folders()); }
    [[nodiscard]] QPoint centreOf(const QString &name) const
    {
        return WindowFixture::centre(m_window->row(name));
    }
    /// Takes a row by its centre and moves it by a distance, small enough that no edge is near.
    void take(const QString &name, int distance);
    void moveTo(const QPoint &place) { QTest::mouseMove(m_window->window, m_pointer = place); }
    void letGo()
    {
        QTest::mouseRelease(m_window->window, Qt::LeftButton, Qt::NoModifier, m_pointer);
    }
    /// Row 0 goes while it is out of view: the list's content no longer begins at 0.
    void shiftTheTop();
    [[nodiscard]] QQuickItem *shown(const char *name) const
    {
        QQuickItem *const item = WindowFixture::part(list(), name);
        return item && item->isVisible() ? item : nullptr;
    }

    QList<DockFolder> m_folders;
    QPoint m_pointer;
    std::unique_ptr<WindowFixture> m_window;
};

void WindowReorderingTest::init()
{
    failOnWindowWarnings();
    m_folders.clear();
    for (int number = 0; number < 40; ++number)
        m_folders.append(folderNamed(nameOf(number)));
    m_window = std::make_unique<WindowFixture>();
    QVERIFY(m_window->open(m_folders));
    m_window->click(m_window->row(nameOf(0)));
}

void WindowReorderingTest::take(const QString &name, int distance)
{
    m_pointer = centreOf(name);
    QTest::mousePress(m_window->window, Qt::LeftButton, Qt::NoModifier, m_pointer);
    for (int step = 1; step <= 4; ++step)
        moveTo(m_pointer + QPoint(0, distance / 4));
}

void WindowReorderingTest::shiftTheTop()
{
    list()->setProperty("contentY", 600.0);
    list()->ensurePolished();
    m_window->click(m_window->row(nameOf(15))); // the selection stays in view
    m_folders.removeFirst();
    m_window->changeFromOutside(m_folders);
    list()->ensurePolished();
    QVERIFY(m_window->row(nameOf(15)));
    QVERIFY(list()->property("originY").toReal() != 0.0); // or the rest would show nothing
}

void WindowReorderingTest::theHeldFolderIsMovedThoughAnotherComesAbove()
{
    take(nameOf(3), 104);
    QVERIFY(shown("heldFolder"));
    m_folders.prepend(folderNamed(QStringLiteral("Newcomer")));
    m_window->changeFromOutside(m_folders);
    QVERIFY(m_window->row(QStringLiteral("Newcomer")));
    QCOMPARE(shown("heldFolder")->property("name").toString(), nameOf(3));
    letGo();
    QCOMPARE(order().first(7),
             (QStringList{QStringLiteral("Newcomer"), nameOf(0), nameOf(1), nameOf(2), nameOf(4),
                          nameOf(3), nameOf(5)}));
    QVERIFY(!shown("heldFolder"));
}

void WindowReorderingTest::aHeldFolderThatGoesIsHeldNoMore()
{
    take(nameOf(3), 104);
    QVERIFY(shown("heldFolder"));
    QVERIFY(shown("dropMarker"));
    m_folders.removeAt(3);
    m_window->changeFromOutside(m_folders);
    QVERIFY(!shown("heldFolder"));
    QVERIFY(!shown("dropMarker"));
    const QStringList before = order();
    moveTo(m_pointer + QPoint(0, 52));
    letGo();
    QCOMPARE(order(), before);
    take(nameOf(1), 52); // the next one is held as ever
    letGo();
    QCOMPARE(order().first(3), (QStringList{nameOf(0), nameOf(2), nameOf(1)}));
}

void WindowReorderingTest::theAppStoreFolderComingMovesNothingElse()
{
    take(nameOf(3), 104);
    m_window->installNestlet();
    m_window->store->refreshPresence();
    QVERIFY(m_window->row(QStringLiteral("Nestlet")));
    letGo();
    QStringList expected = namesOf(m_folders);
    expected.move(3, 4); // the pointer stayed, and all rows went down by one
    QCOMPARE(order(), expected);
}

void WindowReorderingTest::aRowThatWentAboveTheVisibleOnesShiftsNothing()
{
    shiftTheTop();
    const QString held = nameOf(18);
    const QPoint from = centreOf(held);
    take(held, 104);
    QVERIFY(shown("heldFolder"));
    QCOMPARE(shown("heldFolder")->property("name").toString(), held);
    QCOMPARE(WindowFixture::centre(shown("heldFolder")), from + QPoint(0, 104));
    QQuickItem *const marker = shown("dropMarker");
    QVERIFY(marker);
    QCOMPARE(marker->mapToItem(list(), {}).y() + 1, // between the rows 20 and 21
             m_window->row(nameOf(21))->mapToItem(list(), {}).y());
    letGo();
    QStringList expected = namesOf(m_folders);
    expected.move(17, 19);
    QCOMPARE(order(), expected);
}

void WindowReorderingTest::theListScrollsBackToItsShiftedTop()
{
    shiftTheTop();
    take(nameOf(18), -52);
    moveTo(list()->mapToScene({50, 10}).toPoint());
    QTRY_COMPARE_WITH_TIMEOUT(list()->property("contentY").toReal(),
                              list()->property("originY").toReal() - 4, 10000);
    QCOMPARE(m_window->row(nameOf(1))->mapToItem(list(), {}).y(), 4.0);
    letGo();
    QCOMPARE(order().first(), nameOf(18));
}

void WindowReorderingTest::aPressWithoutADragMovesNothing()
{
    const QStringList before = order();
    take(nameOf(3), 4);
    QVERIFY(!shown("heldFolder"));
    letGo();
    QCOMPARE(order(), before);
}

void WindowReorderingTest::aFolderLetGoElsewhereStaysWhereItWas_data()
{
    QTest::addColumn<QPoint>("place"); // in the list
    QTest::addColumn<bool>("isMoved");
    QTest::newRow("over the detail") << QPoint(300, 330) << false;
    QTest::newRow("left of the window") << QPoint(-10, 330) << false;
    QTest::newRow("far above") << QPoint(100, -60) << false;
    QTest::newRow("a little above") << QPoint(100, -20) << true;
}

void WindowReorderingTest::aFolderLetGoElsewhereStaysWhereItWas()
{
    QFETCH(QPoint, place);
    QFETCH(bool, isMoved);
    take(nameOf(3), 104);
    QVERIFY(shown("dropMarker"));
    moveTo(list()->mapToScene(place).toPoint());
    QCOMPARE(shown("dropMarker") != nullptr, isMoved);
    QVERIFY(shown("heldFolder"));
    letGo();
    QVERIFY(!shown("heldFolder"));
    QCOMPARE(order() != namesOf(m_folders), isMoved);
}

void WindowReorderingTest::aFolderLetGoGoesOnFromTheHand()
{
    const auto shift
        = [this](int number) { return m_window->row(nameOf(number))->property("shift").toReal(); };
    take(nameOf(3), 120); // 16 below the place that it will have
    letGo();
    QCOMPARE(order().at(5), nameOf(3));
    QCOMPARE(shift(3), 16.0);
    QCOMPARE(shift(4), 52.0); // makes room
    QTRY_VERIFY(shift(3) == 0 && shift(4) == 0);
    take(nameOf(3), 12); // not far enough
    letGo();
    QCOMPARE(order().at(5), nameOf(3));
    QCOMPARE(shift(3), 12.0);
    QTRY_COMPARE(shift(3), 0.0);
}

void WindowReorderingTest::escapePutsTheHeldFolderBack()
{
    const QStringList before = order();
    take(nameOf(3), 104);
    QVERIFY(shown("heldFolder"));
    m_window->press(Qt::Key_Escape);
    QVERIFY(!shown("heldFolder"));
    QVERIFY(!shown("dropMarker"));
    moveTo(m_pointer + QPoint(0, 52));
    QVERIFY(!shown("heldFolder"));
    letGo();
    QCOMPARE(order(), before);
    take(nameOf(1), 52); // the next one is held as ever
    letGo();
    QCOMPARE(order().first(3), (QStringList{nameOf(0), nameOf(2), nameOf(1)}));
}

void WindowReorderingTest::aHeldLockedFolderKeepsItsBadge()
{
    const QString lock = QStringLiteral("lock.fill");
    CompanionStoreTestAccess::lock(*m_window->store, m_folders.at(3).id);
    take(nameOf(3), 104);
    QVERIFY(shown("heldFolder"));
    QVERIFY(shownSymbol(shown("heldFolder"), lock));
    letGo();
    QCOMPARE(order().at(5), nameOf(3));
    take(nameOf(1), 52);
    QVERIFY(shown("heldFolder"));
    QVERIFY(!shownSymbol(shown("heldFolder"), lock));
    letGo();
}

QTEST_MAIN(WindowReorderingTest)
#include "tst_windowreordering.moc"
