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
    void aDropGoesToTheFolderThatItFellOn_data();
    void aDropGoesToTheFolderThatItFellOn();
    void aDropIsKeptThoughItsRowIsScrolledAway();
    void theLookTellsOfTheDragAndOfTheDock();
    void scrollingUnderAStillDragTakesTheHighlightAlong();
    void aDropGoesToTheRowThatWasScrolledUnderIt();
    void aRowThatComesUnderAStillDragIsLit();
    void filesHeldAtAnEdgeOfTheListScrollIt();
    void nothingButFilesScrollsTheList_data();
    void nothingButFilesScrollsTheList();
    void aSelectedRowLooksLikeADropTargetToo();
    void nothingTakesDropsUnderADialog();
    void aDialogThatComesDuringADragTakesItAway();

private:
    [[nodiscard]] QStringList itemsOf(const DockFolder &folder)
    {
        return namesOf(m_window->store->folder(folder.id).value_or(DockFolder()).items);
    }
    [[nodiscard]] QPoint rowCentre(const QString &name)
    {
        return WindowFixture::centre(m_window->row(name));
    }

    [[nodiscard]] QString themeColor(const char *role)
    {
        return m_window->evaluate(QStringLiteral("Theme.") + QLatin1StringView(role))
            .value<QColor>()
            .name(QColor::HexArgb);
    }
    [[nodiscard]] QString captionInk(const QString &name)
    {
        return WindowFixture::part(m_window->row(name), "caption")
            ->property("color")
            .value<QColor>()
            .name(QColor::HexArgb);
    }
    [[nodiscard]] QObject *outline(const QString &name)
    {
        const auto *const ground = WindowFixture::part(m_window->row(name), "ground");
        return ground->property("border").value<QObject *>();
    }
    [[nodiscard]] bool hasOutline(const QString &name)
    {
        return outline(name)->property("width").toInt() > 0;
    }
    [[nodiscard]] qreal rowHeight()
    {
        return m_window->evaluate(QStringLiteral("Theme.rowHeight")).toReal();
    }
    /// More than the list has room for, "Folder 0" and so on.
    QList<DockFolder> showManyFolders()
    {
        QList<DockFolder> many;
        for (int number = 0; number < 60; ++number)
            many.append(folderNamed(QStringLiteral("Folder %1").arg(number)));
        m_window->changeFromOutside(many);
        return many;
    }
    [[nodiscard]] qreal listPosition()
    {
        return m_window->named("folderList")->property("contentY").toReal();
    }
    /// Close to the top or the bottom of what is seen of the list.
    [[nodiscard]] QPoint listEdge(bool isBottom)
    {
        const QQuickItem *const list = m_window->named("folderList");
        return list->mapToScene({60, isBottom ? list->height() - 20 : 20}).toPoint();
    }
    /// The rows that look like drop targets, or begin to.
    [[nodiscard]] QStringList highlighted()
    {
        QStringList names;
        for (const QString &name : m_window->rowNames()) {
            if (m_window->row(name)->property("isDropTargeted").toBool() || hasOutline(name))
                names.append(name);
        }
        return names;
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

void WindowDropsTest::aDropGoesToTheFolderThatItFellOn_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<QString>("next");
    for (const char *target : {"detailDropTarget", "headerDropTarget", "itemGrid"}) {
        QTest::addRow("%s, then another folder", target) << QByteArray(target) << m_a.name;
        QTest::addRow("%s, then the App Store folder", target)
            << QByteArray(target) << QStringLiteral("Nestlet");
    }
}

// Files are read after the drop: the detail may show something else by then.
void WindowDropsTest::aDropGoesToTheFolderThatItFellOn()
{
    QFETCH(QByteArray, target);
    QFETCH(QString, next);
    m_window->installNestlet();
    m_window->store->refreshPresence();
    QTRY_VERIFY(m_window->row(QStringLiteral("Nestlet")));
    m_window->click(m_window->row(m_b.name));
    QQuickItem *const item = m_window->named(target.constData());
    const QPoint place = item->mapToScene({30, 20}).toPoint();
    IncomingDrag drag(*m_window->window, "file:///tmp/x");
    QVERIFY(drag.enter(place));
    drag.drop(place);
    m_window->model->setSelection(m_window->model->folders()->folderIDAt(next == m_a.name ? 1 : 0));
    QTRY_COMPARE(itemsOf(m_b), (QStringList{QStringLiteral("b"), QStringLiteral("x")}));
    QCOMPARE(itemsOf(m_a), QStringList());
}

void WindowDropsTest::aDropIsKeptThoughItsRowIsScrolledAway()
{
    QList<DockFolder> many{m_a, m_b};
    for (int number = 0; number < 60; ++number)
        many.append(folderNamed(QStringLiteral("Folder %1").arg(number)));
    m_window->changeFromOutside(many);
    IncomingDrag drag(*m_window->window, "file:///tmp/x");
    const QPoint place = rowCentre(m_b.name);
    QVERIFY(drag.enter(place));
    drag.drop(place);
    QQuickItem *const list = m_window->named("folderList");
    for (const qreal position : {300.0, 900.0, 1800.0}) { // its row is used for others
        list->setProperty("contentY", position);
        list->ensurePolished();
    }
    QTRY_COMPARE(itemsOf(m_b), (QStringList{QStringLiteral("b"), QStringLiteral("x")}));
    for (const DockFolder &folder : many.sliced(2))
        QCOMPARE(itemsOf(folder), QStringList());
}

void WindowDropsTest::theLookTellsOfTheDragAndOfTheDock()
{
    m_window->installNestlet();
    m_window->store->installProxy(m_b.id);
    m_window->finishEverything();
    CompanionStoreTestAccess::lock(*m_window->store, m_b.id);
    m_window->store->refreshPresence();
    const QString secondary = themeColor("secondary");
    QCOMPARE(captionInk(m_b.name), secondary); // in the Dock, but the App Store's
    QCOMPARE(captionInk(m_a.name), secondary);
    m_window->store->installProxy(m_a.id);
    m_window->finishEverything();
    QCOMPARE(m_window->caption(m_a.name), QStringLiteral("Ready in Dock"));
    QCOMPARE(captionInk(m_a.name), themeColor("blueInk"));
    QVERIFY(!hasOutline(m_a.name));

    QTRY_COMPARE(m_window->row(m_a.name)->y(), rowHeight()); // below the locked one
    IncomingDrag drag(*m_window->window, "file:///tmp/x");
    QVERIFY(drag.enter(rowCentre(m_a.name)));
    QTRY_VERIFY(hasOutline(m_a.name));
    QTRY_COMPARE(outline(m_a.name)->property("color").value<QColor>().name(QColor::HexArgb),
                 themeColor("accent"));
    QCOMPARE(captionInk(m_a.name), themeColor("accentInk"));
    QVERIFY(!hasOutline(m_b.name));
    drag.leave();
    QTRY_VERIFY(!hasOutline(m_a.name));
    QCOMPARE(captionInk(m_a.name), themeColor("blueInk"));
}

void WindowDropsTest::scrollingUnderAStillDragTakesTheHighlightAlong()
{
    showManyFolders();
    IncomingDrag drag(*m_window->window, "file:///tmp/x");
    const QPoint place = rowCentre(QStringLiteral("Folder 3"));
    QVERIFY(drag.enter(place));
    QQuickItem *const list = m_window->named("folderList");
    for (const int rows : {15, 30, 10}) {
        list->setProperty("contentY", rows * rowHeight());
        list->ensurePolished();
        QTRY_COMPARE(highlighted(), QStringList{QStringLiteral("Folder %1").arg(3 + rows)});
    }
    drag.leave();
    QTRY_COMPARE(highlighted(), QStringList());
}

void WindowDropsTest::aDropGoesToTheRowThatWasScrolledUnderIt()
{
    const QList<DockFolder> many = showManyFolders();
    IncomingDrag drag(*m_window->window, "file:///tmp/x");
    const QPoint place = rowCentre(QStringLiteral("Folder 3"));
    QVERIFY(drag.enter(place));
    QQuickItem *const list = m_window->named("folderList");
    list->setProperty("contentY", 2 * rowHeight());
    list->ensurePolished();
    QCOMPARE(drag.drop(place), Qt::CopyAction); // before any frame
    QTRY_COMPARE(itemsOf(many.at(5)), QStringList{QStringLiteral("x")});
    QCOMPARE(itemsOf(many.at(3)), QStringList());
}

void WindowDropsTest::aRowThatComesUnderAStillDragIsLit()
{
    IncomingDrag drag(*m_window->window, "file:///tmp/x");
    const QPoint place = rowCentre(m_a.name) + QPoint(0, 2 * int(rowHeight()));
    static_cast<void>(drag.enter(place)); // on no row yet
    QCOMPARE(highlighted(), QStringList());
    const DockFolder third = folderNamed(QStringLiteral("C"));
    m_window->changeFromOutside({m_a, m_b, third});
    QTRY_COMPARE(highlighted(), QStringList{third.name});
    m_window->changeFromOutside({m_a, m_b});
    QTRY_COMPARE(highlighted(), QStringList());
    drag.leave();
}

void WindowDropsTest::filesHeldAtAnEdgeOfTheListScrollIt()
{
    const QList<DockFolder> many = showManyFolders();
    QQuickItem *const list = m_window->named("folderList");
    const qreal top = listPosition();
    IncomingDrag drag(*m_window->window, "file:///tmp/x");
    list->setProperty("contentY", 38 * rowHeight());
    QVERIFY(!list->property("atYEnd").toBool());
    QVERIFY(drag.enter(listEdge(true)));
    QTRY_VERIFY_WITH_TIMEOUT(list->property("atYEnd").toBool(), 20'000);
    QTRY_COMPARE(highlighted(), QStringList{many.last().name});
    const qreal end = listPosition();
    QVERIFY(drag.move(WindowFixture::centre(list)));
    QTest::qWait(100);
    QCOMPARE(listPosition(), end);
    list->setProperty("contentY", 5 * rowHeight());
    QVERIFY(drag.move(listEdge(false)));
    QTRY_COMPARE_WITH_TIMEOUT(listPosition(), top, 20'000);
    QCOMPARE(drag.drop(listEdge(false)), Qt::CopyAction);
    QTRY_COMPARE(itemsOf(many.first()), QStringList{QStringLiteral("x")});
}

void WindowDropsTest::nothingButFilesScrollsTheList_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("isOverList");
    const QString urls = QStringLiteral("text/uri-list");
    QTest::newRow("an item of a folder") << QByteArray("b") << QStringLiteral("text/plain") << true;
    QTest::newRow("a web page") << QByteArray("https://example.com/") << urls << true;
    QTest::newRow("files beside the list") << QByteArray("file:///tmp/x") << urls << false;
}

void WindowDropsTest::nothingButFilesScrollsTheList()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, format);
    QFETCH(bool, isOverList);
    showManyFolders();
    const qreal before = listPosition();
    IncomingDrag drag(*m_window->window, content, format);
    const int width = qRound(m_window->named("folderList")->width());
    drag.enter(listEdge(true) + QPoint(isOverList ? 0 : width, 0));
    QTest::qWait(100);
    QCOMPARE(listPosition(), before);
    drag.leave();
}

void WindowDropsTest::aSelectedRowLooksLikeADropTargetToo()
{
    m_window->click(m_window->row(m_a.name));
    const auto ground = [this] {
        return WindowFixture::part(m_window->row(m_a.name), "ground")
            ->property("color")
            .value<QColor>()
            .name(QColor::HexArgb);
    };
    QCOMPARE(ground(), themeColor("accentFill"));
    IncomingDrag drag(*m_window->window, "file:///tmp/x");
    QVERIFY(drag.enter(rowCentre(m_a.name)));
    QTRY_COMPARE(ground(), themeColor("selectedRow")); // the outline is in the accent
    QTRY_COMPARE(captionInk(m_a.name), themeColor("accentInk"));
    QVERIFY(hasOutline(m_a.name));
    drag.leave();
    QTRY_COMPARE(ground(), themeColor("accentFill"));
    QCOMPARE(captionInk(m_a.name), themeColor("accentText"));
    QVERIFY(!hasOutline(m_a.name));
}

void WindowDropsTest::nothingTakesDropsUnderADialog()
{
    m_window->click(m_window->row(m_a.name));
    QVERIFY(m_window->choose(QStringLiteral("Folder Actions"), QStringLiteral("Remove Folder")));
    QTRY_VERIFY(m_window->isOpen("removeDialog"));
    IncomingDrag drag(*m_window->window, "file:///tmp/x");
    const QPoint row = rowCentre(m_b.name);
    QVERIFY(!drag.enter(row));
    QVERIFY(!drag.move(WindowFixture::centre(m_window->named("emptyState"))));
    QVERIFY(!drag.move(row));
    QCOMPARE(highlighted(), QStringList());
    QCOMPARE(drag.drop(row), Qt::IgnoreAction);
    m_window->press(Qt::Key_Escape);
    QTRY_VERIFY(drag.enter(row)); // once it has faded away
    QCOMPARE(drag.drop(row), Qt::CopyAction);
    QTRY_COMPARE(itemsOf(m_b), (QStringList{QStringLiteral("b"), QStringLiteral("x")}));
    QCOMPARE(itemsOf(m_a), QStringList());
}

void WindowDropsTest::aDialogThatComesDuringADragTakesItAway()
{
    IncomingDrag drag(*m_window->window, "file:///tmp/x");
    const QPoint row = rowCentre(m_b.name);
    QVERIFY(drag.enter(row));
    QCOMPARE(highlighted(), QStringList{m_b.name});
    Q_EMIT m_window->proxies.launchFailed(QStringLiteral("No."));
    QTRY_VERIFY(m_window->isOpen("errorAlert"));
    QTRY_COMPARE(highlighted(), QStringList());
    QCOMPARE(drag.drop(row), Qt::IgnoreAction);
    QCOMPARE(itemsOf(m_b), QStringList{QStringLiteral("b")});
}

QTEST_MAIN(WindowDropsTest)
#include "tst_windowdrops.moc"
