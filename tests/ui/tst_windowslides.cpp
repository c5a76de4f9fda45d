#include "model/uuidtext.h"
#include "tests/fakes/fakeappearance.h"
#include "tests/ui/windowfixture.h"
#include "ui/systemappearance.h"

/// How the items of a folder go to their new places.
class WindowSlidesTest : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void noteShift() { m_shifts.append(sender()->property("shift").toPointF()); }

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }
    void itemsSlideWhenTheirOrderChanges();
    void theOthersStayWhereTheyAre();
    void itemsSlideWhereOneWasTakenOut();
    void itemsSlideFromWhereTheyAreSeen();
    void addedItemsAreThereAtOnce();
    void aDraggedItemMeetsTheOthersAtTheirPlaces();
    void nothingSlidesInAnotherFolder();
    void nothingSlidesWithTheWindow();
    void nothingSlidesWithReducedMotion();

private:
    [[nodiscard]] QQuickItem *cell(const char *name) const
    {
        return m_window->row(QLatin1StringView(name));
    }
    [[nodiscard]] QPointF shift(const char *name) const
    {
        return cell(name)->property("shift").toPointF();
    }
    [[nodiscard]] bool isAtRest(const char *name) const { return shift(name) == QPointF(); }
    void watch(const char *name)
    {
        m_shifts.clear();
        connect(cell(name), SIGNAL(shiftChanged()), this, SLOT(noteShift()));
    }
    void swapFirstTwo() const
    {
        m_window->model->detail()->moveItem(
            uuidText(m_window->store->folder(m_full.id)->items.first().id), 1);
    }

    const DockFolder m_full
        = folderNamed(QStringLiteral("Full"),
                      {QStringLiteral("file:///a"), QStringLiteral("file:///b"),
                       QStringLiteral("file:///c"), QStringLiteral("file:///d")});
    const DockFolder m_other = folderNamed(
        QStringLiteral("Other"), {QStringLiteral("file:///x"), QStringLiteral("file:///y")});
    FakeAppearance m_appearance;
    QList<QPointF> m_shifts; ///< those of the watched cell since then
    std::unique_ptr<WindowFixture> m_window;
};

void WindowSlidesTest::init()
{
    failOnWindowWarnings();
    m_appearance.current = {};
    m_window = std::make_unique<WindowFixture>();
    setAppearance(m_window->engine, m_appearance);
    QVERIFY(m_window->open({m_full, m_other}));
    m_window->click(m_window->row(m_full.name));
    QVERIFY(isAtRest("a"));
}

void WindowSlidesTest::itemsSlideWhenTheirOrderChanges()
{
    const qreal step = cell("b")->mapToScene({}).x() - cell("a")->mapToScene({}).x();
    watch("a");
    const auto isBetween
        = [step](QPointF shift) { return shift.x() < 0 && shift.x() > -step && shift.y() == 0; };
    // On a machine that is busy otherwise a slide may be over before it was seen once.
    for (int attempt = 0; attempt < 5 && std::ranges::none_of(m_shifts, isBetween); ++attempt) {
        swapFirstTwo();
        QCOMPARE(shift("a").x(), -step);
        QCOMPARE(shift("b").x(), step);
        QTRY_VERIFY(isAtRest("a") && isAtRest("b"));
        swapFirstTwo();
        QTRY_VERIFY(isAtRest("a") && isAtRest("b"));
    }
    QVERIFY(std::ranges::any_of(m_shifts, isBetween));
}

// The view passes those behind by a place, and takes them back.
void WindowSlidesTest::theOthersStayWhereTheyAre()
{
    swapFirstTwo();
    QTRY_VERIFY(isAtRest("a") && isAtRest("b"));
    QTest::qWait(50); // what began together ends together, or nearly
    for (const char *name : {"a", "b", "c", "d"})
        QVERIFY2(isAtRest(name), name);
}

void WindowSlidesTest::itemsSlideWhereOneWasTakenOut()
{
    const qreal step = cell("b")->mapToScene({}).x() - cell("a")->mapToScene({}).x();
    m_window->model->detail()->removeItem(uuidText(m_full.items.at(1).id));
    QCOMPARE(shift("c").x(), step);
    QCOMPARE(shift("d").x(), step);
    QCOMPARE(shift("a").x(), 0.0);
    QTRY_VERIFY(isAtRest("c") && isAtRest("d"));
}

void WindowSlidesTest::itemsSlideFromWhereTheyAreSeen()
{
    const qreal step = cell("b")->mapToScene({}).x() - cell("a")->mapToScene({}).x();
    swapFirstTwo();
    QCOMPARE(shift("a").x(), -step);
    swapFirstTwo(); // and back before it has moved
    QVERIFY2(std::abs(shift("a").x()) < step, qPrintable(QString::number(shift("a").x())));
    QTRY_VERIFY(isAtRest("a"));
}

void WindowSlidesTest::addedItemsAreThereAtOnce()
{
    m_window->model->detail()->addItems({QStringLiteral("file:///e")});
    QTRY_VERIFY(cell("e"));
    QVERIFY(isAtRest("e"));
    QTest::qWait(1); // from now on it is as the others
    swapFirstTwo();
    m_window->model->detail()->removeItem(uuidText(m_full.items.first().id));
    QVERIFY(!isAtRest("e"));
    QTRY_VERIFY(isAtRest("e"));
}

void WindowSlidesTest::aDraggedItemMeetsTheOthersAtTheirPlaces()
{
    const QPoint first = WindowFixture::centre(cell("a"));
    const QPoint second = WindowFixture::centre(cell("b"));
    swapFirstTwo();
    QCOMPARE(WindowFixture::centre(cell("a")), second);
    QCOMPARE(WindowFixture::centre(cell("b")), first);
    QVERIFY(!isAtRest("a"));
}

void WindowSlidesTest::nothingSlidesInAnotherFolder()
{
    m_window->model->setSelection(uuidText(m_other.id));
    QVERIFY(isAtRest("x"));
    QVERIFY(isAtRest("y"));
    m_window->model->setSelection(uuidText(m_full.id));
    for (const char *name : {"a", "b", "c", "d"})
        QVERIFY(isAtRest(name));
}

void WindowSlidesTest::nothingSlidesWithTheWindow()
{
    QTest::qWait(1); // what was there at first is over
    const QPointF before = cell("d")->mapToScene({});
    m_window->window->resize(1290, 800);
    QTRY_VERIFY(cell("d")->mapToScene({}) != before);
    QVERIFY(isAtRest("d"));
}

void WindowSlidesTest::nothingSlidesWithReducedMotion()
{
    m_appearance.change({.reducesMotion = true});
    swapFirstTwo();
    QVERIFY(isAtRest("a"));
    QVERIFY(isAtRest("b"));
}

QTEST_MAIN(WindowSlidesTest)
#include "tst_windowslides.moc"
