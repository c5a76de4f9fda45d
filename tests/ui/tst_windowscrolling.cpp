#include "model/uuidtext.h"
#include "tests/ui/windowfixture.h"

#include <QElapsedTimer>
#include <QWheelEvent>

/// Content that is larger than the window: scrolled by the wheel, and by nothing that is dragged.
class WindowScrollingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }
    void theWheelScrolls_data();
    void theWheelScrolls();
    void draggingTheContentDoesNotScroll_data();
    void draggingTheContentDoesNotScroll();
    void aDraggedRowIsReordered();
    void theAppStoreFolderIsNotDragged();
    void anotherFolderIsShownFromItsTop();
    void aKeypadScrolls();
    void theGridFollowsWhenItGetsShorter_data();
    void theGridFollowsWhenItGetsShorter();
    void theColorPanelStaysWithItsSwatch();
    void theKeyboardRevealsItemsOutOfView();
    void largerWindowsShowMoreColumns();

private:
    void wheel(const QQuickItem *item, int steps);
    void drag(const QPoint &from, const QPoint &to);
    [[nodiscard]] QQuickItem *target() const
    {
        QFETCH(QByteArray, name);
        return m_window->named(name.constData());
    }
    static qreal position(const QQuickItem *item) { return item->property("contentY").toReal(); }

    QList<DockFolder> m_folders;
    QElapsedTimer m_time;
    std::unique_ptr<WindowFixture> m_window;
};

void WindowScrollingTest::init()
{
    failOnWindowWarnings();
    m_time.start();
    QStringList urls;
    for (int number = 0; number < 200; ++number)
        urls.append(QStringLiteral("file:///item%1").arg(number));
    m_folders.clear();
    for (int number = 0; number < 40; ++number)
        m_folders.append(folderNamed(QStringLiteral("Folder %1").arg(number), urls));
    m_window = std::make_unique<WindowFixture>();
    QVERIFY(m_window->open(m_folders));
    m_window->click(m_window->row(QStringLiteral("Folder 0")));
}

void WindowScrollingTest::wheel(const QQuickItem *item, int steps)
{
    const QPoint place = WindowFixture::centre(item);
    QWheelEvent event(place, m_window->window->mapToGlobal(place), QPoint(), QPoint(0, steps * 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    event.setTimestamp(ulong(m_time.elapsed()));
    QCoreApplication::sendEvent(m_window->window, &event);
}

void WindowScrollingTest::drag(const QPoint &from, const QPoint &to)
{
    QTest::mousePress(m_window->window, Qt::LeftButton, Qt::NoModifier, from);
    for (int step = 1; step <= 10; ++step)
        QTest::mouseMove(m_window->window, from + (to - from) * step / 10);
    QTest::mouseRelease(m_window->window, Qt::LeftButton, Qt::NoModifier, to);
}

void WindowScrollingTest::theWheelScrolls_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("the sidebar") << QByteArray("folderList");
    QTest::newRow("the detail") << QByteArray("detailScroll");
}

void WindowScrollingTest::theWheelScrolls()
{
    const QQuickItem *const scrolled = target();
    wheel(scrolled, -3);
    QTRY_VERIFY(position(scrolled) > 50);
    QTRY_VERIFY(!scrolled->property("moving").toBool());
    const qreal reached = position(scrolled);
    wheel(scrolled, 1);
    QTRY_VERIFY(position(scrolled) < reached);
}

void WindowScrollingTest::draggingTheContentDoesNotScroll_data()
{
    theWheelScrolls_data();
}

void WindowScrollingTest::draggingTheContentDoesNotScroll()
{
    QQuickItem *const scrolled = target();
    scrolled->setProperty("contentY", 300.0);
    const QPoint edge = scrolled->mapToScene(QPointF(8, 300)).toPoint(); // away from the bar
    drag(edge, edge - QPoint(0, 200));
    m_window->finishEverything();
    QCOMPARE(position(scrolled), 300.0);
}

void WindowScrollingTest::aDraggedRowIsReordered()
{
    const QPoint from = WindowFixture::centre(m_window->row(QStringLiteral("Folder 0")));
    const QPoint to = WindowFixture::centre(m_window->row(QStringLiteral("Folder 2")));
    drag(from, to);
    QCOMPARE(namesOf(m_window->store->folders()).first(4),
             (QStringList{QStringLiteral("Folder 1"), QStringLiteral("Folder 2"),
                          QStringLiteral("Folder 0"), QStringLiteral("Folder 3")}));
    QCOMPARE(m_window->savedLibrary()->folders.at(2).id, m_folders.first().id);
    QCOMPARE(m_window->model->selection(), uuidText(m_folders.first().id));
    QCOMPARE(position(m_window->named("folderList")), -4.0);
}

void WindowScrollingTest::theAppStoreFolderIsNotDragged()
{
    m_window->installNestlet();
    m_window->store->refreshPresence();
    QTRY_VERIFY(m_window->row(QStringLiteral("Nestlet")));
    QTRY_COMPARE(m_window->row(QStringLiteral("Folder 0"))->property("shift").toReal(), 0.0);
    QCOMPARE(m_window->row(QStringLiteral("Folder 0"))->y(), 52.0); // has made room
    const QPoint first = WindowFixture::centre(m_window->row(QStringLiteral("Nestlet")));
    const QPoint third = WindowFixture::centre(m_window->row(QStringLiteral("Folder 1")));
    const QStringList before = namesOf(m_window->store->folders());
    drag(first, third);
    QCOMPARE(namesOf(m_window->store->folders()), before);
    drag(third, first - QPoint(0, 20)); // goes to the first place that is free to take
    QCOMPARE(m_window->store->folders().first().name, QStringLiteral("Folder 1"));
    QTRY_COMPARE(m_window->rowNames().first(2).join(u' '), QStringLiteral("Nestlet Folder 1"));
}

void WindowScrollingTest::anotherFolderIsShownFromItsTop()
{
    QQuickItem *const detail = m_window->named("detailScroll");
    detail->setProperty("contentY", 700.0);
    m_window->press(Qt::Key_Down);
    QCOMPARE(position(detail), 0.0);
}

// On a Mac all arrows belong to it.
void WindowScrollingTest::aKeypadScrolls()
{
    QQuickItem *const detail = m_window->named("detailScroll");
    detail->forceActiveFocus();
    m_window->press(Qt::Key_Down, Qt::KeypadModifier);
    QCOMPARE(position(detail), 40.0);
    m_window->press(Qt::Key_Down, Qt::ControlModifier | Qt::KeypadModifier);
    QCOMPARE(position(detail), 40.0);
    m_window->press(Qt::Key_Up, Qt::KeypadModifier);
    QCOMPARE(position(detail), 0.0);
}

void WindowScrollingTest::theGridFollowsWhenItGetsShorter_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("isAnotherFolder");
    for (const int count : {0, 6, 30}) {
        QTest::addRow("another folder of %d", count) << count << true;
        QTest::addRow("the same folder with %d left", count) << count << false;
    }
}

// From its end, which comes nearer while the grid is placed. Bindings that run in a circle warn.
void WindowScrollingTest::theGridFollowsWhenItGetsShorter()
{
    QFETCH(int, count);
    QFETCH(bool, isAnotherFolder);
    DockFolder &shorter = m_folders[isAnotherFolder ? 1 : 0];
    shorter.items.resize(count);
    if (isAnotherFolder)
        m_window->changeFromOutside(m_folders);
    QQuickItem *const detail = m_window->named("detailScroll");
    const auto end
        = [&] { return qMax(0.0, detail->property("contentHeight").toReal() - detail->height()); };
    detail->setProperty("contentY", end());
    QVERIFY(m_window->row(QStringLiteral("item199")));
    if (isAnotherFolder)
        m_window->click(m_window->row(shorter.name));
    else
        m_window->changeFromOutside(m_folders);
    QTRY_COMPARE(position(detail), isAnotherFolder ? 0.0 : end());
    QVERIFY(!m_window->row(QStringLiteral("item199")));
    QCOMPARE(m_window->named("emptyState") != nullptr, count == 0);
    if (count > 0) {
        const auto &shown = position(detail) > 0 ? shorter.items.last() : shorter.items.first();
        QVERIFY(m_window->row(shown.name));
    }
}

void WindowScrollingTest::theColorPanelStaysWithItsSwatch()
{
    const auto isOpen
        = [this] { return m_window->item(QAccessible::Slider, QStringLiteral("Hue")) != nullptr; };
    const QQuickItem *const swatch
        = m_window->item(QAccessible::RadioButton, QStringLiteral("Custom Color…"));
    QVERIFY(swatch);
    QQuickItem *const detail = m_window->named("detailScroll");
    m_window->click(swatch);
    QTRY_VERIFY(isOpen());
    detail->setProperty("contentY", 40.0);
    m_window->finishEverything();
    QVERIFY(isOpen());
    detail->setProperty("contentY", swatch->mapToItem(detail, QPointF()).y() + 60);
    QTRY_VERIFY(!isOpen());
}

void WindowScrollingTest::theKeyboardRevealsItemsOutOfView()
{
    const QQuickItem *const detail = m_window->named("detailScroll");
    m_window->named("itemGrid")->forceActiveFocus(Qt::TabFocusReason);
    m_window->press(Qt::Key_End);
    const QQuickItem *const last = m_window->row(QStringLiteral("item199"));
    QVERIFY(last);
    const qreal top = last->mapToItem(detail, {}).y();
    QVERIFY(top >= 0);
    QVERIFY(top + last->height() <= detail->height());
    QVERIFY(last->property("showsFocusRing").toBool());
    m_window->press(Qt::Key_Home);
    QVERIFY(m_window->row(QStringLiteral("item0"))->mapToItem(detail, {}).y() >= 0);
}

void WindowScrollingTest::largerWindowsShowMoreColumns()
{
    const auto columns
        = [this] { return m_window->named("itemGrid")->parentItem()->property("columns").toInt(); };
    QCOMPARE(columns(), 7);
    m_window->window->resize(1360, 800);
    QTRY_COMPARE(columns(), 10);
    const auto y = [this](int item) {
        return m_window->row(QStringLiteral("item%1").arg(item))->mapToScene({}).y();
    };
    QTRY_COMPARE(y(9), y(0));
    QCOMPARE(y(10), y(0) + 102);
}

QTEST_MAIN(WindowScrollingTest)
#include "tst_windowscrolling.moc"
