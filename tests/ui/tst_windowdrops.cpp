#include "tests/ui/drags.h"
#include "tests/ui/windowfixture.h"

/// Files from other programs over the rows and the detail.
class WindowDropsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }
    void aDropOnARowAddsToItsFolder();
    void aHoveringDragReplacesTheCaption();
    void aDragWithoutFilesHighlightsNothing();
    void aDropOnTheDetailAddsToItsFolder();
    void aDropOnTheItemsAddsToo();
    void theAppStoreFolderTakesNoDrops();
    void aLockedFolderTakesNoDrops();

private:
    [[nodiscard]] QStringList itemsOf(const DockFolder &folder)
    {
        return namesOf(m_window->store->folder(folder.id).value_or(DockFolder()).items);
    }
    [[nodiscard]] QPoint rowCentre(const QString &name)
    {
        return WindowFixture::centre(m_window->row(name));
    }

    const DockFolder m_a = folderNamed(QStringLiteral("A"));
    const DockFolder m_b = folderNamed(QStringLiteral("B"), {QStringLiteral("file:///b")});
    std::unique_ptr<WindowFixture> m_window;
};

void WindowDropsTest::init()
{
    failOnWindowWarnings();
    m_window = std::make_unique<WindowFixture>();
    QVERIFY(m_window->open({m_a, m_b}));
}

void WindowDropsTest::aDropOnARowAddsToItsFolder()
{
    IncomingDrag drag(*m_window->window, "file:///tmp/x%20y.txt\r\nfile:///tmp/z\r\n");
    const QPoint target = rowCentre(m_b.name);
    QVERIFY(drag.enter(target));
    QCOMPARE(drag.drop(target), Qt::CopyAction);
    QTRY_COMPARE(itemsOf(m_b),
                 (QStringList{QStringLiteral("b"), QStringLiteral("x y"), QStringLiteral("z")}));
    QCOMPARE(itemsOf(m_a), QStringList());
}

void WindowDropsTest::aHoveringDragReplacesTheCaption()
{
    IncomingDrag drag(*m_window->window, "file:///tmp/x");
    QVERIFY(drag.enter(rowCentre(m_a.name)));
    QCOMPARE(m_window->caption(m_a.name), QStringLiteral("Drop to add"));
    QCOMPARE(m_window->caption(m_b.name), QStringLiteral("Not added yet"));
    QVERIFY(drag.move(rowCentre(m_b.name)));
    QCOMPARE(m_window->caption(m_a.name), QStringLiteral("Not added yet"));
    QCOMPARE(m_window->caption(m_b.name), QStringLiteral("Drop to add"));
    drag.leave();
    QCOMPARE(m_window->caption(m_b.name), QStringLiteral("Not added yet"));
}

void WindowDropsTest::aDragWithoutFilesHighlightsNothing()
{
    IncomingDrag drag(*m_window->window, "https://example.com/");
    QVERIFY(!drag.enter(rowCentre(m_a.name)));
    QCOMPARE(m_window->caption(m_a.name), QStringLiteral("Not added yet"));
}

void WindowDropsTest::aDropOnTheDetailAddsToItsFolder()
{
    m_window->click(m_window->row(m_a.name));
    IncomingDrag drag(*m_window->window, "file:///tmp/x");
    const QPoint header = WindowFixture::centre(m_window->named("nameField")) + QPoint(200, 60);
    QVERIFY(drag.enter(header));
    drag.drop(header);
    QTRY_COMPARE(itemsOf(m_a), QStringList{QStringLiteral("x")});
}

void WindowDropsTest::aDropOnTheItemsAddsToo()
{
    m_window->click(m_window->row(m_b.name));
    IncomingDrag drag(*m_window->window, "file:///tmp/x");
    const QPoint items = WindowFixture::centre(m_window->named("itemGrid"));
    QVERIFY(drag.enter(items));
    drag.drop(items);
    QTRY_COMPARE(itemsOf(m_b), (QStringList{QStringLiteral("b"), QStringLiteral("x")}));
    QTRY_VERIFY(m_window->button(QStringLiteral("Remove x")));
}

void WindowDropsTest::theAppStoreFolderTakesNoDrops()
{
    m_window->installNestlet();
    m_window->store->refreshPresence();
    QTRY_VERIFY(m_window->row(QStringLiteral("Nestlet")));
    QTRY_COMPARE(m_window->row(m_a.name)->y(), m_window->row(m_a.name)->height()); // has made room
    IncomingDrag drag(*m_window->window, "file:///tmp/x");
    QVERIFY(!drag.enter(rowCentre(QStringLiteral("Nestlet"))));
    QCOMPARE(m_window->caption(QStringLiteral("Nestlet")),
             QStringLiteral("Belongs to the App Store app"));
}

void WindowDropsTest::aLockedFolderTakesNoDrops()
{
    m_window->click(m_window->row(m_a.name));
    CompanionStoreTestAccess::lock(*m_window->store, m_a.id);
    IncomingDrag drag(*m_window->window, "file:///tmp/x");
    QVERIFY(!drag.enter(rowCentre(m_a.name)));
    QVERIFY(!drag.move(WindowFixture::centre(m_window->named("itemGrid"))));
}

QTEST_MAIN(WindowDropsTest)
#include "tst_windowdrops.moc"
