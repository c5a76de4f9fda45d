#include "model/uuidtext.h"
#include "tests/ui/windowfixture.h"

/// The window's left column, by mouse and keyboard.
class WindowSidebarTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }
    void theWindowHasItsLeastSize();
    void nothingIsSelectedAtFirst();
    void clickingARowShowsItsFolder();
    void clickingTheAppStoreFolderShowsThatItIsReadOnly();
    void arrowKeysSelect();
    void theButtonAddsAFolderAndKeepsTheSelection();
    void theShortcutAddsAFolderAndKeepsTheSelection();
    void theMenuAddsAllToTheDock();
    void selectionAndScrollPositionOutliveAnOutsideChange();
    void rowsFollowTheLibrary();
    void rowsSlideToTheirPlaces();
    void aNewRowComesAsTheOthersMakeRoom();
    void theSidebarKeepsItsPlace();
    void theSidebarCannotBeDraggedAway_data();
    void theSidebarCannotBeDraggedAway();
    void assistiveProgramsMoveTheSidebarsEdge();

private:
    CompanionStore &store() { return *m_window->store; }
    [[nodiscard]] QString selectedName() const
    {
        const auto id = uuidFromText(m_window->model->selection());
        const auto folder = id ? m_window->store->folder(*id) : std::nullopt;
        return folder ? folder->name : QString();
    }

    const DockFolder m_a = folderNamed(QStringLiteral("Dock Folder 1"));
    const DockFolder m_b = folderNamed(QStringLiteral("Games"), {QStringLiteral("file:///g")});
    std::unique_ptr<WindowFixture> m_window;
};

void WindowSidebarTest::init()
{
    failOnWindowWarnings();
    m_window = std::make_unique<WindowFixture>();
    QVERIFY(m_window->open({m_a, m_b}));
}

void WindowSidebarTest::theWindowHasItsLeastSize()
{
    QCOMPARE(m_window->window->minimumSize(), QSize(1060, 800));
    QCOMPARE(m_window->window->size(), QSize(1060, 800));
    QCOMPARE(m_window->window->title(), QStringLiteral("Nestlet Companion"));
}

void WindowSidebarTest::nothingIsSelectedAtFirst()
{
    QVERIFY(m_window->control(QAccessible::StaticText, QStringLiteral("Select a Folder")));
    QVERIFY(!m_window->named("nameField"));
    QVERIFY(!m_window->control(QAccessible::ListItem, m_a.name)->state().selected);
}

void WindowSidebarTest::clickingARowShowsItsFolder()
{
    m_window->click(m_window->row(m_b.name));
    QCOMPARE(m_window->nameFieldText(), m_b.name);
    QVERIFY(m_window->control(QAccessible::ListItem, m_b.name)->state().selected);
    QVERIFY(!m_window->control(QAccessible::ListItem, m_a.name)->state().selected);
    QVERIFY(m_window->row(QStringLiteral("g"))); // its item
    m_window->click(m_window->row(m_a.name));
    QCOMPARE(m_window->nameFieldText(), m_a.name);
    QCOMPARE(m_window->named("itemGrid")->property("count").toInt(), 0);
}

void WindowSidebarTest::clickingTheAppStoreFolderShowsThatItIsReadOnly()
{
    m_window->installNestlet();
    store().refreshPresence();
    QTRY_COMPARE(m_window->rowNames().first(), QStringLiteral("Nestlet"));
    m_window->click(m_window->row(QStringLiteral("Nestlet")));
    QCOMPARE(m_window->model->selection(), uuidText(appStoreFolderID()));
    QVERIFY(!m_window->named("nameField"));
    QVERIFY(m_window->button(QStringLiteral("Open Nestlet")));
}

void WindowSidebarTest::arrowKeysSelect()
{
    m_window->press(Qt::Key_Down);
    QCOMPARE(selectedName(), m_a.name);
    m_window->press(Qt::Key_Down);
    QCOMPARE(selectedName(), m_b.name);
    m_window->press(Qt::Key_Down); // the last one stays
    QCOMPARE(selectedName(), m_b.name);
    m_window->press(Qt::Key_Up);
    QCOMPARE(selectedName(), m_a.name);
}

void WindowSidebarTest::theButtonAddsAFolderAndKeepsTheSelection()
{
    m_window->click(m_window->row(m_b.name));
    m_window->click(m_window->button(QStringLiteral("New Dock Folder")));
    QTRY_COMPARE(m_window->rowNames(),
                 (QStringList{m_a.name, m_b.name, QStringLiteral("Dock Folder 3")}));
    QCOMPARE(selectedName(), m_b.name);
}

void WindowSidebarTest::theShortcutAddsAFolderAndKeepsTheSelection()
{
    m_window->click(m_window->row(m_b.name));
    m_window->press(Qt::Key_N, Qt::ControlModifier);
    m_window->click(m_window->named("nameField"));
    m_window->press(Qt::Key_N, Qt::ControlModifier); // also while a name is being typed
    QTRY_COMPARE(m_window->rowNames(),
                 (QStringList{m_a.name, m_b.name, QStringLiteral("Dock Folder 3"),
                              QStringLiteral("Dock Folder 4")}));
    QCOMPARE(selectedName(), m_b.name);
}

void WindowSidebarTest::theMenuAddsAllToTheDock()
{
    m_window->installNestlet();
    QVERIFY(m_window->choose(QStringLiteral("More"), QStringLiteral("Add All to Dock")));
    m_window->finishEverything();
    QCOMPARE(m_window->caption(m_a.name), QStringLiteral("Ready in Dock"));
    QCOMPARE(m_window->caption(m_b.name), QStringLiteral("Ready in Dock"));
}

void WindowSidebarTest::selectionAndScrollPositionOutliveAnOutsideChange()
{
    QList<DockFolder> many;
    for (int number = 0; number < 60; ++number)
        many.append(folderNamed(QStringLiteral("Folder %1").arg(number)));
    m_window->changeFromOutside(many);
    QQuickItem *list = m_window->named("folderList");
    QTRY_COMPARE(list->property("count").toInt(), 60);
    m_window->model->setSelection(uuidText(many.at(30).id));
    list->setProperty("contentY", 1200.0);
    m_window->finishEverything();

    many[31].name = QStringLiteral("Renamed");
    many.removeLast();
    many.append(folderNamed(QStringLiteral("Another")));
    m_window->changeFromOutside(many);
    QVERIFY(m_window->row(QStringLiteral("Renamed")));
    QCOMPARE(list->property("contentY").toReal(), 1200.0);
    QCOMPARE(selectedName(), QStringLiteral("Folder 30"));
}

void WindowSidebarTest::rowsFollowTheLibrary()
{
    DockFolder renamed = m_b;
    renamed.name = QStringLiteral("Toys");
    m_window->changeFromOutside({renamed, m_a});
    QTRY_COMPARE(m_window->rowNames(), (QStringList{renamed.name, m_a.name}));
}

void WindowSidebarTest::rowsSlideToTheirPlaces()
{
    const auto shift = [this](const DockFolder &folder) {
        return m_window->row(folder.name)->property("shift").toReal();
    };
    const qreal step = m_window->row(m_b.name)->y() - m_window->row(m_a.name)->y();
    QCOMPARE(shift(m_b), 0.0);
    m_window->model->folders()->moveFolder(uuidText(m_b.id), 0);
    QCOMPARE(shift(m_a), -step); // seen where it was
    QCOMPARE(shift(m_b), step);
    QTRY_VERIFY(shift(m_a) == 0 && shift(m_b) == 0);
}

// Or one would be printed over the other.
void WindowSidebarTest::aNewRowComesAsTheOthersMakeRoom()
{
    m_window->installNestlet();
    m_window->store->refreshPresence();
    const QQuickItem *const row = m_window->row(QStringLiteral("Nestlet"));
    QVERIFY(row);
    QVERIFY(row->opacity() < 0.5);
    QVERIFY(m_window->row(m_a.name)->property("shift").toReal() < 0);
    QCOMPARE(m_window->row(m_a.name)->opacity(), 1.0);
    QTRY_COMPARE(row->opacity(), 1.0);
    QCOMPARE(m_window->row(m_a.name)->property("shift").toReal(), 0.0);
}

void WindowSidebarTest::theSidebarKeepsItsPlace()
{
    const QQuickItem *list = m_window->named("folderList");
    QCOMPARE(list->mapToScene({}).x(), 0.0);
    QCOMPARE(list->width(), 220.0);
}

void WindowSidebarTest::theSidebarCannotBeDraggedAway_data()
{
    QTest::addColumn<int>("distance");
    QTest::addColumn<double>("width");
    QTest::newRow("a little wider") << 50 << 270.0;
    QTest::newRow("a little narrower") << -30 << 190.0;
    QTest::newRow("to the window's edge") << -220 << 180.0;
    QTest::newRow("out of the window") << -500 << 180.0;
    QTest::newRow("over the detail") << 800 << 400.0;
}

void WindowSidebarTest::theSidebarCannotBeDraggedAway()
{
    QFETCH(int, distance);
    QFETCH(double, width);
    const QPoint from = WindowFixture::centre(
        m_window->item(QAccessible::Slider, QStringLiteral("Sidebar Width")));
    QTest::mousePress(m_window->window, Qt::LeftButton, Qt::NoModifier, from);
    for (int step = 1; step <= 10; ++step) {
        QMouseEvent move(QEvent::MouseMove, from + QPoint(distance * step / 10, 0),
                         m_window->window->mapToGlobal(from + QPoint(distance * step / 10, 0)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window->window, &move); // out of the window too
    }
    QTest::mouseRelease(m_window->window, Qt::LeftButton, Qt::NoModifier, from);
    const QQuickItem *const list = m_window->named("folderList");
    QCOMPARE(list->width(), width);
    QCOMPARE(list->mapToScene({}).x(), 0.0);
}

void WindowSidebarTest::assistiveProgramsMoveTheSidebarsEdge()
{
    const auto edge = [this] {
        return m_window->control(QAccessible::Slider, QStringLiteral("Sidebar Width"))
            ->valueInterface();
    };
    QCOMPARE(edge()->currentValue().toDouble(), 220.0);
    edge()->setCurrentValue(300);
    QCOMPARE(m_window->named("folderList")->width(), 300.0);
    edge()->setCurrentValue(0);
    QCOMPARE(m_window->named("folderList")->width(), 180.0);
    QCOMPARE(edge()->currentValue().toDouble(), 180.0);
}

QTEST_MAIN(WindowSidebarTest)
#include "tst_windowsidebar.moc"
