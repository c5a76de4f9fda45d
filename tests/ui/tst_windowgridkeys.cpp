#include "tests/ui/windowfixture.h"

/// The items of a folder by keyboard.
class WindowGridKeysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void enteringShowsTheFirstItem();
    void arrowsWalkThroughTheRows();
    void downInTheLastRowStays();
    void homeAndEndGoToTheEnds();
    void pagesGoByAsManyRowsAsAreSeen();
    void altAndAnArrowMoveTheItem();
    void altAndAnArrowStopAtTheEnds();
    void deleteRemovesTheCurrentItem_data();
    void deleteRemovesTheCurrentItem();
    void removingTheLastOneGoesToTheOneBefore();
    void removingTheOnlyOneGoesToAddApps();
    void theFocusIsOnTheItem();
    void keysActWhereAnAssistiveProgramPutTheFocus();
    void aLockedFolderIsReadOnly();
    void theRingFollowsTheKeyboardOnly();
    void theCurrentItemShowsItsRemoveButton();
    void anEmptyGridIsNoStop();
    void arrowsAreMirroredFromRightToLeft();

private:
    void enterGrid();
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        m_window->press(key, modifiers);
    }
    [[nodiscard]] QString currentName() const;
    [[nodiscard]] QStringList order() const
    {
        return namesOf(m_window->store->folder(m_full.id)->items);
    }
    [[nodiscard]] QQuickItem *grid() const { return m_window->named("itemGrid"); }
    [[nodiscard]] QQuickItem *cell(int number) const
    {
        return m_window->row(QString::number(number));
    }

    static constexpr int count = 17;
    DockFolder m_full;
    const DockFolder m_empty = folderNamed(QStringLiteral("Empty"));
    std::unique_ptr<WindowFixture> m_window;
    int m_columns = 0;
};

void WindowGridKeysTest::init()
{
    failOnWindowWarnings();
    QStringList urls;
    for (int number = 0; number < count; ++number)
        urls.append(QStringLiteral("file:///%1").arg(number));
    m_full = folderNamed(QStringLiteral("Full"), urls);
    m_window = std::make_unique<WindowFixture>();
    QVERIFY(m_window->open({m_full, m_empty}));
    m_window->click(m_window->row(m_full.name));
    m_columns = grid()->parentItem()->property("columns").toInt();
    QVERIFY(m_columns > 2);
    QVERIFY(count > 2 * m_columns + 1);
    QVERIFY(count < 3 * m_columns - 1);
}

void WindowGridKeysTest::cleanup()
{
    m_window.reset();
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

void WindowGridKeysTest::enterGrid()
{
    grid()->forceActiveFocus(Qt::TabFocusReason);
}

// The one that the ring is around.
QString WindowGridKeysTest::currentName() const
{
    const QList<DockFolderItem> items = m_window->store->folder(m_full.id)->items;
    for (const DockFolderItem &item : items) {
        const QQuickItem *const found = m_window->row(item.name);
        if (found && found->property("showsFocusRing").toBool())
            return item.name;
    }
    return {};
}

void WindowGridKeysTest::enteringShowsTheFirstItem()
{
    m_window->button(QStringLiteral("Add Apps"))->forceActiveFocus(Qt::TabFocusReason);
    press(Qt::Key_Tab);
    QVERIFY(grid()->hasActiveFocus());
    QCOMPARE(currentName(), QStringLiteral("0"));
    QVERIFY(m_window->control(QAccessible::ListItem, QStringLiteral("0"))->state().focused);
    QVERIFY(!m_window->control(QAccessible::ListItem, QStringLiteral("1"))->state().focused);
}

void WindowGridKeysTest::arrowsWalkThroughTheRows()
{
    enterGrid();
    press(Qt::Key_Right);
    QCOMPARE(currentName(), QStringLiteral("1"));
    press(Qt::Key_Down);
    QCOMPARE(currentName(), QString::number(1 + m_columns));
    press(Qt::Key_Left);
    QCOMPARE(currentName(), QString::number(m_columns));
    press(Qt::Key_Left); // to the row before
    QCOMPARE(currentName(), QString::number(m_columns - 1));
    press(Qt::Key_Up);
    QCOMPARE(currentName(), QString::number(m_columns - 1));
    press(Qt::Key_Home);
    press(Qt::Key_Left);
    QCOMPARE(currentName(), QStringLiteral("0"));
}

void WindowGridKeysTest::downInTheLastRowStays()
{
    enterGrid();
    for (int presses = 0; presses < 4; ++presses)
        press(Qt::Key_Down);
    QCOMPARE(currentName(), QString::number(2 * m_columns));
    // Over the gap at the end of the last row, what is nearest to it.
    press(Qt::Key_Up);
    for (int presses = 1; presses < m_columns; ++presses)
        press(Qt::Key_Right);
    QCOMPARE(currentName(), QString::number(2 * m_columns - 1));
    press(Qt::Key_Down);
    QCOMPARE(currentName(), QString::number(count - 1));
}

void WindowGridKeysTest::homeAndEndGoToTheEnds()
{
    enterGrid();
    press(Qt::Key_End);
    QCOMPARE(currentName(), QString::number(count - 1));
    press(Qt::Key_Right);
    QCOMPARE(currentName(), QString::number(count - 1));
    press(Qt::Key_Home);
    QCOMPARE(currentName(), QStringLiteral("0"));
}

void WindowGridKeysTest::pagesGoByAsManyRowsAsAreSeen()
{
    const auto lines = int(m_window->named("detailScroll")->height()) / 102;
    QVERIFY(lines >= 3); // more than there are
    enterGrid();
    press(Qt::Key_Right);
    press(Qt::Key_PageDown);
    QCOMPARE(currentName(), QString::number(1 + 2 * m_columns));
    press(Qt::Key_PageUp);
    QCOMPARE(currentName(), QStringLiteral("1"));
    press(Qt::Key_PageDown, Qt::AltModifier);
    QCOMPARE(order().indexOf(QStringLiteral("1")), 1 + 2 * m_columns);
}

void WindowGridKeysTest::altAndAnArrowMoveTheItem()
{
    enterGrid();
    press(Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(order().first(3).join(u' '), QStringLiteral("1 0 2"));
    QCOMPARE(currentName(), QStringLiteral("0"));
    press(Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(order().first(3).join(u' '), QStringLiteral("1 2 0"));
    press(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(order().first(3).join(u' '), QStringLiteral("1 0 2"));
    press(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(order().indexOf(QStringLiteral("0")), 1 + m_columns);
    QCOMPARE(currentName(), QStringLiteral("0"));
    press(Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(order().indexOf(QStringLiteral("0")), 1);
    QCOMPARE(namesOf(m_window->savedLibrary()->folders.first().items), order());
}

void WindowGridKeysTest::altAndAnArrowStopAtTheEnds()
{
    enterGrid();
    const QStringList before = order();
    press(Qt::Key_Left, Qt::AltModifier);
    press(Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(order(), before);
    press(Qt::Key_End, Qt::AltModifier);
    QCOMPARE(order().last(), QStringLiteral("0"));
    press(Qt::Key_Right, Qt::AltModifier);
    press(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(order().last(), QStringLiteral("0"));
    press(Qt::Key_Home, Qt::AltModifier);
    QCOMPARE(order(), before);
}

void WindowGridKeysTest::deleteRemovesTheCurrentItem_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("delete") << Qt::Key_Delete;
    QTest::newRow("backspace") << Qt::Key_Backspace;
}

void WindowGridKeysTest::deleteRemovesTheCurrentItem()
{
    QFETCH(Qt::Key, key);
    enterGrid();
    press(Qt::Key_Right);
    press(key);
    QCOMPARE(order().first(2).join(u' '), QStringLiteral("0 2"));
    QCOMPARE(order().size(), count - 1);
    QCOMPARE(currentName(), QStringLiteral("2"));
    QVERIFY(grid()->hasActiveFocus());
    m_window->hold(key);
    QCOMPARE(order().size(), count - 1);
}

void WindowGridKeysTest::removingTheLastOneGoesToTheOneBefore()
{
    enterGrid();
    press(Qt::Key_End);
    press(Qt::Key_Delete);
    QCOMPARE(order().last(), QString::number(count - 2));
    QCOMPARE(currentName(), QString::number(count - 2));
}

void WindowGridKeysTest::removingTheOnlyOneGoesToAddApps()
{
    DockFolder single = m_full;
    single.items = single.items.first(1);
    m_window->changeFromOutside({single, m_empty});
    enterGrid();
    press(Qt::Key_Delete);
    QCOMPARE(order(), QStringList());
    QTRY_VERIFY(m_window->button(QStringLiteral("Add Apps"))->hasActiveFocus());
    press(Qt::Key_Tab);
    QVERIFY(!grid() || !grid()->hasActiveFocus());
}

void WindowGridKeysTest::theFocusIsOnTheItem()
{
    const auto focused = [this] {
        QObject *const object = m_window->window->focusObject();
        QAccessibleInterface *const found = QAccessible::queryAccessibleInterface(object);
        return found && found->role() == QAccessible::ListItem ? found->text(QAccessible::Name)
                                                               : QString();
    };
    enterGrid();
    QCOMPARE(focused(), QStringLiteral("0"));
    press(Qt::Key_Right);
    QCOMPARE(focused(), QStringLiteral("1"));
    press(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(focused(), QStringLiteral("1"));
    press(Qt::Key_Delete);
    QCOMPARE(focused(), currentName());
    QVERIFY(focused() != QStringLiteral("1"));
}

void WindowGridKeysTest::keysActWhereAnAssistiveProgramPutTheFocus()
{
    enterGrid();
    QAccessibleInterface *const second
        = m_window->control(QAccessible::ListItem, QStringLiteral("1"));
    QVERIFY(second->actionInterface()->actionNames().contains(
        QAccessibleActionInterface::setFocusAction()));
    second->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    QVERIFY(second->state().focused);
    press(Qt::Key_Delete);
    QCOMPARE(order().first(2).join(u' '), QStringLiteral("0 2"));
}

void WindowGridKeysTest::aLockedFolderIsReadOnly()
{
    CompanionStoreTestAccess::lock(*m_window->store, m_full.id);
    const QStringList before = order();
    enterGrid();
    press(Qt::Key_Right);
    QCOMPARE(currentName(), QStringLiteral("1"));
    press(Qt::Key_Right, Qt::AltModifier);
    press(Qt::Key_Delete);
    QCOMPARE(order(), before);
}

void WindowGridKeysTest::theRingFollowsTheKeyboardOnly()
{
    m_window->click(cell(1));
    QVERIFY(grid()->hasActiveFocus());
    QCOMPARE(currentName(), QString());
    press(Qt::Key_Right);
    QCOMPARE(currentName(), QStringLiteral("2"));
    m_window->click(cell(0));
    QCOMPARE(currentName(), QString());
    press(Qt::Key_Right);
    QCOMPARE(currentName(), QStringLiteral("1"));
    m_window->click(m_window->named("nameField"));
    press(Qt::Key_End);
    QCOMPARE(currentName(), QString()); // the focus is elsewhere
}

void WindowGridKeysTest::theCurrentItemShowsItsRemoveButton()
{
    enterGrid();
    press(Qt::Key_Right);
    const auto isShown = [this](int number) {
        return m_window->button(QStringLiteral("Remove %1").arg(number))
            ->property("isShown")
            .toBool();
    };
    QVERIFY(isShown(1));
    QVERIFY(!isShown(0));
    press(Qt::Key_Left);
    QVERIFY(!isShown(1));
}

void WindowGridKeysTest::anEmptyGridIsNoStop()
{
    m_window->click(m_window->row(m_empty.name));
    m_window->button(QStringLiteral("Add Apps"))->forceActiveFocus(Qt::TabFocusReason);
    press(Qt::Key_Tab);
    QVERIFY(m_window->window->activeFocusItem());
    QVERIFY(m_window->window->activeFocusItem()->objectName() != QStringLiteral("itemGrid"));
    QVERIFY(m_window->window->activeFocusItem()->height() > 0);
}

void WindowGridKeysTest::arrowsAreMirroredFromRightToLeft()
{
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    QTRY_VERIFY(cell(0)->mapToScene({}).x() > cell(1)->mapToScene({}).x());
    enterGrid();
    press(Qt::Key_Left);
    QCOMPARE(currentName(), QStringLiteral("1"));
    press(Qt::Key_Right);
    QCOMPARE(currentName(), QStringLiteral("0"));
    press(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(order().first(2).join(u' '), QStringLiteral("1 0"));
    press(Qt::Key_Down);
    QCOMPARE(currentName(), QString::number(1 + m_columns));
}

QTEST_MAIN(WindowGridKeysTest)
#include "tst_windowgridkeys.moc"
