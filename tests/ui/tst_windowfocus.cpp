#include "builder/infoplist.h"
#include "tests/ui/windowfixture.h"

/// The way of the focus through the window, its menus and its dialogs, by keyboard alone.
class WindowFocusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }
    void tabGoesThroughEverythingInOrderAndRound();
    void tabBackwardsIsTheSameWayBack();
    void aLockedFolderLeavesOutWhatItLacks();
    void withNothingSelectedTheSidebarIsAll();
    void buttonsActByReturnAndSpace_data();
    void buttonsActByReturnAndSpace();
    void aMenuIsUsedByKeyboard();
    void upBeginsAtTheEndOfAMenu();
    void aMenuSkipsWhatIsDisabled();
    void escapeClosesAMenuAndTheFocusGoesBack();
    void escapeCancelsADialogAndTheFocusGoesBack();
    void returnTakesTheDefaultButton();
    void aDialogKeepsTheFocusInside();
    void theActionIsReachedByTab();
    void theDockButtonGetsTheFocusBackAfterItsWork();
    void theBusyDockButtonIsNotPressedAgain();
    void ringsAreShownToTheKeyboardOnly();
    void theFocusOfADismissedStripGoesToTheList();
    void theSidebarsEdgeIsMovedByKeys_data();
    void theSidebarsEdgeIsMovedByKeys();

private:
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        m_window->press(key, modifiers);
    }
    [[nodiscard]] QString focused() const;
    [[nodiscard]] QStringList stops(Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void focus(QQuickItem *item) { item->forceActiveFocus(Qt::TabFocusReason); }
    [[nodiscard]] bool tabTo(const QString &name);
    [[nodiscard]] bool openRemoveDialog();
    void makeInstallationsWait();

    const DockFolder m_a = folderNamed(QStringLiteral("A"),
                                       {QStringLiteral("file:///x"), QStringLiteral("file:///y")});
    const DockFolder m_b = folderNamed(QStringLiteral("B"));
    std::unique_ptr<WindowFixture> m_window;
};

void WindowFocusTest::init()
{
    failOnWindowWarnings();
    m_window = std::make_unique<WindowFixture>();
    m_window->installNestlet();
    QVERIFY(m_window->open({m_a, m_b}));
    m_window->click(m_window->row(m_a.name));
}

// The name of what has the focus, or of the nearest thing around it that has one.
QString WindowFocusTest::focused() const
{
    for (QQuickItem *item = m_window->window->activeFocusItem(); item; item = item->parentItem()) {
        QAccessibleInterface *const interface = QAccessible::queryAccessibleInterface(item);
        if (interface && !interface->text(QAccessible::Name).isEmpty())
            return interface->text(QAccessible::Name);
    }
    return {};
}

// The names of what the focus visits from here until it is here again.
QStringList WindowFocusTest::stops(Qt::KeyboardModifiers modifiers)
{
    const QQuickItem *const start = m_window->window->activeFocusItem();
    const Qt::Key key = modifiers == Qt::ShiftModifier ? Qt::Key_Backtab : Qt::Key_Tab;
    QStringList names;
    do {
        names.append(focused());
        press(key, modifiers);
    } while (m_window->window->activeFocusItem() != start && names.size() < 50);
    return names;
}

bool WindowFocusTest::tabTo(const QString &name)
{
    for (int presses = 0; presses < 50 && focused() != name; ++presses)
        press(Qt::Key_Tab);
    return focused() == name;
}

// For the clock, so that they can be seen.
void WindowFocusTest::makeInstallationsWait()
{
    m_window->applications.isStubborn = true;
    m_window->applications.launch(proxyBundleIdentifier(m_a.id));
}

bool WindowFocusTest::openRemoveDialog()
{
    if (!m_window->choose(QStringLiteral("Folder Actions"), QStringLiteral("Remove Folder")))
        return false;
    return QTest::qWaitFor([this] { return m_window->isOpen("removeDialog"); });
}

void WindowFocusTest::tabGoesThroughEverythingInOrderAndRound()
{
    const QStringList expected{m_a.name,
                               QStringLiteral("Folder Actions"),
                               QStringLiteral("Folder name"),
                               QStringLiteral("Show in Dock"),
                               QStringLiteral("No symbol (show app grid)"),
                               QStringLiteral("Automatic"),
                               QStringLiteral("Auto"),
                               QStringLiteral("Add Apps"),
                               QStringLiteral("x"), // the first of the items
                               QStringLiteral("Sidebar Width"),
                               QStringLiteral("New Dock Folder"),
                               QStringLiteral("More")};
    focus(m_window->named("folderList"));
    QCOMPARE(stops(), expected);
}

void WindowFocusTest::tabBackwardsIsTheSameWayBack()
{
    focus(m_window->named("folderList"));
    QStringList forwards = stops();
    QStringList backwards = stops(Qt::ShiftModifier);
    forwards.append(forwards.takeFirst());
    std::ranges::reverse(forwards);
    QCOMPARE(backwards, forwards);
}

void WindowFocusTest::aLockedFolderLeavesOutWhatItLacks()
{
    CompanionStoreTestAccess::lock(*m_window->store, m_a.id);
    focus(m_window->named("folderList"));
    QCOMPARE(stops(),
             (QStringList{m_a.name, QStringLiteral("Folder Actions"), QStringLiteral("x"),
                          QStringLiteral("Sidebar Width"), QStringLiteral("New Dock Folder"),
                          QStringLiteral("More")}));
}

void WindowFocusTest::withNothingSelectedTheSidebarIsAll()
{
    m_window->model->setSelection(QString());
    focus(m_window->named("folderList"));
    QCOMPARE(stops().mid(1),
             (QStringList{QStringLiteral("Sidebar Width"), QStringLiteral("New Dock Folder"),
                          QStringLiteral("More")}));
}

void WindowFocusTest::buttonsActByReturnAndSpace_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("return") << Qt::Key_Return;
    QTest::newRow("enter") << Qt::Key_Enter;
    QTest::newRow("space") << Qt::Key_Space;
}

void WindowFocusTest::buttonsActByReturnAndSpace()
{
    QFETCH(Qt::Key, key);
    focus(m_window->button(QStringLiteral("New Dock Folder")));
    press(key);
    QCOMPARE(m_window->store->folders().size(), 3);
    focus(m_window->button(QStringLiteral("Show in Dock")));
    press(key);
    m_window->finishEverything();
    QVERIFY(m_window->store->isInstalled(m_a.id));
    QCOMPARE(m_window->workspace.opened.size(), 1);
}

void WindowFocusTest::aMenuIsUsedByKeyboard()
{
    focus(m_window->button(QStringLiteral("More")));
    press(Qt::Key_Return);
    QTRY_VERIFY(m_window->item(QAccessible::MenuItem, QStringLiteral("Add All to Dock")));
    press(Qt::Key_Down);
    QVERIFY(m_window->item(QAccessible::MenuItem, QStringLiteral("Add All to Dock"))
                ->property("highlighted")
                .toBool());
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    QTRY_VERIFY(m_window->isOpen("resetDialog"));
    QTRY_VERIFY(!m_window->item(QAccessible::MenuItem, QStringLiteral("Add All to Dock")));
}

void WindowFocusTest::upBeginsAtTheEndOfAMenu()
{
    const auto isHighlighted = [this](const char *entry) {
        const QQuickItem *item = m_window->item(QAccessible::MenuItem, QString::fromUtf8(entry));
        return item && item->property("highlighted").toBool();
    };
    focus(m_window->button(QStringLiteral("More")));
    press(Qt::Key_Return);
    QTRY_VERIFY(m_window->item(QAccessible::MenuItem, QStringLiteral("Add All to Dock")));
    press(Qt::Key_Up);
    QTRY_VERIFY(isHighlighted("Reset Companion…"));
    press(Qt::Key_Up);
    QVERIFY(isHighlighted("Add All to Dock"));
    press(Qt::Key_Up); // no further
    QVERIFY(isHighlighted("Add All to Dock"));
}

void WindowFocusTest::aMenuSkipsWhatIsDisabled()
{
    focus(m_window->button(QStringLiteral("Folder Actions")));
    press(Qt::Key_Space);
    QTRY_VERIFY(m_window->item(QAccessible::MenuItem, QStringLiteral("Reveal in Finder")));
    QVERIFY(
        !m_window->item(QAccessible::MenuItem, QStringLiteral("Reveal in Finder"))->isEnabled());
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    QTRY_VERIFY(m_window->isOpen("removeDialog"));
}

void WindowFocusTest::escapeClosesAMenuAndTheFocusGoesBack()
{
    focus(m_window->button(QStringLiteral("More")));
    press(Qt::Key_Return);
    QTRY_VERIFY(m_window->item(QAccessible::MenuItem, QStringLiteral("Add All to Dock")));
    press(Qt::Key_Escape);
    QTRY_VERIFY(!m_window->item(QAccessible::MenuItem, QStringLiteral("Add All to Dock")));
    QTRY_COMPARE(focused(), QStringLiteral("More"));
    QVERIFY(WindowFixture::hasRing(m_window->button(QStringLiteral("More"))));
}

void WindowFocusTest::escapeCancelsADialogAndTheFocusGoesBack()
{
    focus(m_window->named("folderList"));
    QVERIFY(openRemoveDialog());
    const QString opener = QStringLiteral("Folder Actions");
    press(Qt::Key_Escape);
    QTRY_VERIFY(!m_window->isOpen("removeDialog"));
    QCOMPARE(m_window->store->folders().size(), 2);
    QTRY_VERIFY(focused() == opener || focused() == QStringLiteral("Dock Folders"));
}

void WindowFocusTest::returnTakesTheDefaultButton()
{
    QVERIFY(openRemoveDialog());
    QTRY_COMPARE(focused(), QStringLiteral("Cancel"));
    press(Qt::Key_Return);
    QTRY_VERIFY(!m_window->isOpen("removeDialog"));
    QCOMPARE(m_window->store->folders().size(), 2);
}

void WindowFocusTest::aDialogKeepsTheFocusInside()
{
    QVERIFY(openRemoveDialog());
    QTRY_COMPARE(focused(), QStringLiteral("Cancel"));
    QStringList names = stops();
    names.sort();
    QCOMPARE(names, (QStringList{QStringLiteral("Cancel"), QStringLiteral("Remove Folder")}));
}

void WindowFocusTest::theActionIsReachedByTab()
{
    QVERIFY(openRemoveDialog());
    QTRY_COMPARE(focused(), QStringLiteral("Cancel"));
    QVERIFY(tabTo(QStringLiteral("Remove Folder")));
    press(Qt::Key_Return);
    QTRY_COMPARE(namesOf(m_window->store->folders()), QStringList{m_b.name});
    QTRY_COMPARE(focused(), QStringLiteral("Folder Actions"));
}

void WindowFocusTest::theDockButtonGetsTheFocusBackAfterItsWork()
{
    makeInstallationsWait();
    focus(m_window->button(QStringLiteral("Show in Dock")));
    press(Qt::Key_Return);
    QVERIFY(m_window->button(QStringLiteral("Adding to Dock")));
    QVERIFY(focused() != QStringLiteral("Adding to Dock"));
    m_window->finishEverything();
    QCOMPARE(focused(), QStringLiteral("Update Dock"));
    m_window->hold(Qt::Key_Return);
    QVERIFY(m_window->button(QStringLiteral("Update Dock")));
    makeInstallationsWait();
    press(Qt::Key_Return);
    QVERIFY(m_window->button(QStringLiteral("Updating Dock")));
    focus(m_window->named("nameField"));
    m_window->finishEverything();
    QCOMPARE(focused(), QStringLiteral("Folder name")); // whoever is elsewhere stays there
}

void WindowFocusTest::theBusyDockButtonIsNotPressedAgain()
{
    makeInstallationsWait();
    QQuickItem *const button = m_window->named("dockButton");
    focus(button);
    press(Qt::Key_Return);
    QVERIFY(!button->isEnabled());
    press(Qt::Key_Return);
    press(Qt::Key_Space);
    m_window->click(button);
    m_window->control(QAccessible::Button, QStringLiteral("Adding to Dock"))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    m_window->finishEverything();
    QCOMPARE(m_window->workspace.opened.size(), 1);
}

void WindowFocusTest::ringsAreShownToTheKeyboardOnly()
{
    QQuickItem *const button = m_window->button(QStringLiteral("New Dock Folder"));
    m_window->click(button);
    QVERIFY(!WindowFixture::hasRing(button));
    focus(m_window->named("folderList"));
    QVERIFY(tabTo(QStringLiteral("New Dock Folder")));
    QVERIFY(WindowFixture::hasRing(button));
}

void WindowFocusTest::theFocusOfADismissedStripGoesToTheList()
{
    m_window->network.body
        = QByteArray(R"({"build":42,"version":"4.2","url":"https://nestlet.example/42"})");
    m_window->clock.advance(std::chrono::hours(2));
    m_window->store->applicationBecameActive();
    m_window->finishEverything();
    QTRY_VERIFY(m_window->button(QStringLiteral("Dismiss")));
    focus(m_window->button(QStringLiteral("Dismiss")));
    press(Qt::Key_Space);
    QVERIFY(!m_window->button(QStringLiteral("Dismiss")));
    QVERIFY(m_window->named("folderList")->hasActiveFocus());
    press(Qt::Key_Down);
    QCOMPARE(m_window->model->selection(), m_window->model->folders()->folderIDAt(2));
}

void WindowFocusTest::theSidebarsEdgeIsMovedByKeys_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("times");
    QTest::addColumn<double>("width");
    QTest::newRow("wider") << Qt::Key_Right << 1 << 230.0;
    QTest::newRow("narrower") << Qt::Key_Left << 2 << 200.0;
    QTest::newRow("the most") << Qt::Key_End << 1 << 400.0;
    QTest::newRow("the least") << Qt::Key_Home << 1 << 180.0;
    QTest::newRow("no more than the most") << Qt::Key_Right << 30 << 400.0;
    QTest::newRow("no less than the least") << Qt::Key_Left << 30 << 180.0;
}

void WindowFocusTest::theSidebarsEdgeIsMovedByKeys()
{
    QFETCH(Qt::Key, key);
    QFETCH(int, times);
    QFETCH(double, width);
    focus(m_window->named("folderList"));
    QVERIFY(tabTo(QStringLiteral("Sidebar Width")));
    for (int time = 0; time < times; ++time)
        press(key);
    QCOMPARE(m_window->named("folderList")->width(), width);
}

QTEST_MAIN(WindowFocusTest)
#include "tst_windowfocus.moc"
