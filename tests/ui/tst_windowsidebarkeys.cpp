#include "model/uuidtext.h"
#include "tests/ui/windowfixture.h"

/// The sidebar's rows by keyboard.
class WindowSidebarKeysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }
    void homeAndEndSelectTheFirstAndTheLast();
    void pageKeysGoAScreenfulOn();
    void selectingRevealsTheRow();
    void altAndAnArrowMoveTheFolder();
    void altAndAnArrowStopAtTheEnds();
    void theAppStoreFolderStaysFirst();
    void lettersSelectTheNextNameThatBeginsSo();
    void theSameLetterGoesOnToTheNext();
    void lettersAfterAPauseBeginAnew();
    void lettersThatNothingBeginsWithKeepTheSelection();
    void shortcutsAreNoLetters();
    void keysThatTypeNothingSeenAreNoLetters();
    void theRingFollowsTheKeyboardOnly();
    void theListIsFocusedFirst();
    void withoutASelectionTheFirstRowHasTheRing();
    void aKeyThatActsSelectsTheFirstRow_data();
    void aKeyThatActsSelectsTheFirstRow();
    void aHeldReturnPressesOnce();
    void aHeldShortcutActsOnce();
    void theFirstAndTheLastRowsRingsAreWhole();
    void selectingElsewhereRevealsTheRow();
    void aNewFolderIsRevealed();
    void aFolderFromOutsideDoesNotScroll();

private:
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        m_window->press(key, modifiers);
    }
    [[nodiscard]] QString selected() const
    {
        const auto id = uuidFromText(m_window->model->selection());
        if (id == appStoreFolderID())
            return QStringLiteral("Nestlet");
        const auto folder = id ? m_window->store->folder(*id) : std::nullopt;
        return folder ? folder->name : QString();
    }
    [[nodiscard]] QStringList order() const { return namesOf(m_window->store->folders()); }
    void fillWith(int count);
    [[nodiscard]] bool hasRing(const QString &name) const
    {
        return WindowFixture::hasRing(m_window->row(name));
    }

    const DockFolder m_a = folderNamed(QStringLiteral("Apples"));
    const DockFolder m_b = folderNamed(QStringLiteral("bananas"));
    const DockFolder m_c = folderNamed(QStringLiteral("Bread"));
    const DockFolder m_d = folderNamed(QStringLiteral("Old Bread"));
    std::unique_ptr<WindowFixture> m_window;
};

void WindowSidebarKeysTest::init()
{
    failOnWindowWarnings();
    m_window = std::make_unique<WindowFixture>();
    QVERIFY(m_window->open({m_a, m_b, m_c, m_d}));
}

void WindowSidebarKeysTest::fillWith(int count)
{
    QList<DockFolder> many;
    for (int number = 0; number < count; ++number)
        many.append(folderNamed(QStringLiteral("Folder %1").arg(number)));
    m_window->changeFromOutside(many);
}

void WindowSidebarKeysTest::homeAndEndSelectTheFirstAndTheLast()
{
    press(Qt::Key_End);
    QCOMPARE(selected(), m_d.name);
    press(Qt::Key_Home);
    QCOMPARE(selected(), m_a.name);
}

void WindowSidebarKeysTest::pageKeysGoAScreenfulOn()
{
    fillWith(100);
    const int page = int(m_window->named("folderList")->height()) / 52;
    press(Qt::Key_Home);
    press(Qt::Key_PageDown);
    QCOMPARE(selected(), QStringLiteral("Folder %1").arg(page));
    press(Qt::Key_PageUp);
    press(Qt::Key_PageUp);
    QCOMPARE(selected(), QStringLiteral("Folder 0"));
    press(Qt::Key_End);
    press(Qt::Key_PageDown);
    QCOMPARE(selected(), QStringLiteral("Folder 99"));
}

void WindowSidebarKeysTest::selectingRevealsTheRow()
{
    fillWith(100);
    press(Qt::Key_End);
    const QQuickItem *list = m_window->named("folderList");
    const QQuickItem *last = m_window->row(QStringLiteral("Folder 99"));
    QVERIFY(last);
    const qreal top = last->mapToItem(list, {}).y();
    QVERIFY(top > 0);
    QVERIFY(top + last->height() <= list->height());
    press(Qt::Key_Home);
    QVERIFY(m_window->row(QStringLiteral("Folder 0")));
    QCOMPARE(m_window->row(QStringLiteral("Folder 0"))->mapToItem(list, {}).y(), 4.0);
}

void WindowSidebarKeysTest::altAndAnArrowMoveTheFolder()
{
    press(Qt::Key_Down);
    press(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(order(), (QStringList{m_b.name, m_a.name, m_c.name, m_d.name}));
    press(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(order(), (QStringList{m_b.name, m_c.name, m_a.name, m_d.name}));
    QCOMPARE(selected(), m_a.name);
    press(Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(order(), (QStringList{m_b.name, m_a.name, m_c.name, m_d.name}));
    press(Qt::Key_End, Qt::AltModifier);
    QCOMPARE(order().last(), m_a.name);
    QCOMPARE(namesOf(m_window->savedLibrary()->folders), order());
    QTRY_COMPARE(m_window->rowNames(), order());
}

void WindowSidebarKeysTest::altAndAnArrowStopAtTheEnds()
{
    const QStringList before = order();
    press(Qt::Key_Home);
    press(Qt::Key_Up, Qt::AltModifier);
    press(Qt::Key_End);
    press(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(order(), before);
    QCOMPARE(selected(), m_d.name);
}

void WindowSidebarKeysTest::theAppStoreFolderStaysFirst()
{
    m_window->installNestlet();
    m_window->store->refreshPresence();
    const QStringList before = order();
    press(Qt::Key_Home);
    QCOMPARE(selected(), QStringLiteral("Nestlet"));
    press(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(order(), before);
    press(Qt::Key_Down);
    QCOMPARE(selected(), m_a.name);
    press(Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(order(), before);
    QTRY_COMPARE(m_window->rowNames().first(), QStringLiteral("Nestlet"));
}

void WindowSidebarKeysTest::lettersSelectTheNextNameThatBeginsSo()
{
    press(Qt::Key_Down);
    m_window->type(QStringLiteral("br"));
    QCOMPARE(selected(), m_c.name);
}

void WindowSidebarKeysTest::theSameLetterGoesOnToTheNext()
{
    m_window->type(QStringLiteral("b"));
    QCOMPARE(selected(), m_b.name);
    m_window->type(QStringLiteral("b"));
    QCOMPARE(selected(), m_c.name);
    m_window->type(QStringLiteral("b"));
    QCOMPARE(selected(), m_b.name);
}

void WindowSidebarKeysTest::lettersAfterAPauseBeginAnew()
{
    m_window->type(QStringLiteral("old b")); // the blank is one of them
    QCOMPARE(selected(), m_d.name);
    const QObject *const typeAhead
        = m_window->window->findChild<QObject *>(QStringLiteral("typeAhead"));
    QTRY_COMPARE(typeAhead->property("typedText").toString(), QString());
    m_window->type(QStringLiteral("a"));
    QCOMPARE(selected(), m_a.name);
}

void WindowSidebarKeysTest::lettersThatNothingBeginsWithKeepTheSelection()
{
    m_window->type(QStringLiteral("b"));
    m_window->type(QStringLiteral("x"));
    QCOMPARE(selected(), m_b.name);
}

void WindowSidebarKeysTest::keysThatTypeNothingSeenAreNoLetters()
{
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Backspace, Qt::Key_Delete}) {
        press(Qt::Key_Home);
        press(key);
        m_window->type(QStringLiteral("b"));
        QCOMPARE(selected(), m_b.name);
        const QObject *const typeAhead
            = m_window->window->findChild<QObject *>(QStringLiteral("typeAhead"));
        QTRY_COMPARE(typeAhead->property("typedText").toString(), QString());
    }
}

void WindowSidebarKeysTest::shortcutsAreNoLetters()
{
    press(Qt::Key_Down);
    press(Qt::Key_O, Qt::ControlModifier);
    press(Qt::Key_O, Qt::AltModifier);
    press(Qt::Key_Space);
    QCOMPARE(selected(), m_a.name);
}

void WindowSidebarKeysTest::theRingFollowsTheKeyboardOnly()
{
    m_window->click(m_window->row(m_b.name));
    QVERIFY(!hasRing(m_b.name));
    press(Qt::Key_Down);
    QVERIFY(hasRing(m_c.name));
    QVERIFY(!hasRing(m_b.name));
    press(Qt::Key_Tab); // the list has the focus no more
    QVERIFY(!hasRing(m_c.name));
    m_window->click(m_window->row(m_a.name));
    QVERIFY(!hasRing(m_a.name));
}

void WindowSidebarKeysTest::theListIsFocusedFirst()
{
    QVERIFY(m_window->named("folderList")->hasActiveFocus());
}

void WindowSidebarKeysTest::withoutASelectionTheFirstRowHasTheRing()
{
    QVERIFY(!hasRing(m_a.name)); // the keyboard has not been used
    for (int stop = 0; stop < 4; ++stop)
        press(Qt::Key_Tab);
    for (int stop = 0; stop < 4 && !m_window->named("folderList")->hasActiveFocus(); ++stop)
        press(Qt::Key_Tab);
    QCOMPARE(selected(), QString());
    QVERIFY(m_window->named("folderList")->hasActiveFocus());
    QVERIFY(hasRing(m_a.name));
    QVERIFY(!hasRing(m_b.name));
    QVERIFY(m_window->control(QAccessible::ListItem, m_a.name)->state().focused);
    press(Qt::Key_Tab);
    QVERIFY(!hasRing(m_a.name));
}

void WindowSidebarKeysTest::theFirstAndTheLastRowsRingsAreWhole()
{
    fillWith(40);
    const QQuickItem *const list = m_window->named("folderList");
    const auto ringOf = [&](int number) {
        QQuickItem *const row = m_window->row(QStringLiteral("Folder %1").arg(number));
        return row->mapRectToItem(list, QRectF(0, 0, row->width(), row->height()))
            .adjusted(10 - 3, -3, 3 - 10, 3);
    };
    const QRectF shown(0, 0, list->width(), list->height());
    QVERIFY(shown.contains(ringOf(0)));
    press(Qt::Key_End);
    QVERIFY(shown.contains(ringOf(39)));
    press(Qt::Key_Home);
    QVERIFY(shown.contains(ringOf(0)));
    press(Qt::Key_PageDown);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    QVERIFY(shown.contains(ringOf(int(list->height()) / 52 + 2)));
}

void WindowSidebarKeysTest::selectingElsewhereRevealsTheRow()
{
    fillWith(100);
    press(Qt::Key_End);
    m_window->model->detail()->removeFolder(); // the first is selected then
    QCOMPARE(selected(), QStringLiteral("Folder 0"));
    const QQuickItem *const list = m_window->named("folderList");
    QVERIFY(m_window->row(QStringLiteral("Folder 0")));
    QCOMPARE(m_window->row(QStringLiteral("Folder 0"))->mapToItem(list, {}).y(), 4.0);
}

void WindowSidebarKeysTest::aNewFolderIsRevealed()
{
    fillWith(100);
    press(Qt::Key_Home);
    press(Qt::Key_N, Qt::ControlModifier);
    const QQuickItem *const list = m_window->named("folderList");
    const QQuickItem *const added = m_window->row(QStringLiteral("Dock Folder 101"));
    QVERIFY(added);
    QVERIFY(added->mapToItem(list, {}).y() + added->height() <= list->height());
    QCOMPARE(selected(), QStringLiteral("Folder 0"));
}

void WindowSidebarKeysTest::aFolderFromOutsideDoesNotScroll()
{
    fillWith(100);
    press(Qt::Key_Home);
    const QQuickItem *const list = m_window->named("folderList");
    const qreal place = list->property("contentY").toReal();
    QList<DockFolder> more = m_window->store->folders();
    more.append(folderNamed(QStringLiteral("More")));
    m_window->changeFromOutside(more);
    QVERIFY(m_window->row(QStringLiteral("Folder 0")));
    QCOMPARE(list->property("contentY").toReal(), place);
}

void WindowSidebarKeysTest::aKeyThatActsSelectsTheFirstRow_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Space") << Qt::Key_Space;
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Enter") << Qt::Key_Enter;
}

void WindowSidebarKeysTest::aKeyThatActsSelectsTheFirstRow()
{
    QFETCH(const Qt::Key, key);
    QCOMPARE(selected(), QString());
    press(key);
    QCOMPARE(selected(), m_a.name); // which has the ring
    press(Qt::Key_Down);
    press(key);
    QCOMPARE(selected(), m_b.name);
}

void WindowSidebarKeysTest::aHeldReturnPressesOnce()
{
    m_window->button(QStringLiteral("New Dock Folder"))->forceActiveFocus(Qt::TabFocusReason);
    press(Qt::Key_Return);
    m_window->hold(Qt::Key_Return);
    QCOMPARE(order().size(), 5);
    press(Qt::Key_Return);
    QCOMPARE(order().size(), 6);
}

void WindowSidebarKeysTest::aHeldShortcutActsOnce()
{
    press(Qt::Key_N, Qt::ControlModifier);
    m_window->hold(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(order().size(), 5);
}

QTEST_MAIN(WindowSidebarKeysTest)
#include "tst_windowsidebarkeys.moc"
