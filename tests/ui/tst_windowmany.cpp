#include "model/uuidtext.h"
#include "tests/ui/itemtree.h"
#include "tests/ui/windowfixture.h"

/// More folders and items than a window can show.
class WindowManyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { m_window.reset(); }
    void onlyVisibleCellsExist();
    void onlyVisibleRowsExist();
    void theEndShowsTheLastCell();
    void theEndShowsTheLastRow();
    void aRowThatGoesOutOfViewLeavesNothingBehind();
    void scrollingThroughLeavesNoCellBehind();
    void theNumberOfItemsIsWrittenByTheLocale();
    void theKeyboardReachesTheLastItem();

private:
    [[nodiscard]] qsizetype count(const char *delegate) const;
    [[nodiscard]] QString item(int number) const { return QStringLiteral("i%1").arg(number); }
    void scrollTo(qreal position);

    static constexpr int items = 2000;
    static constexpr int folders = 1000;
    static constexpr qsizetype mostCells = 70;
    QList<DockFolder> m_folders;
    std::unique_ptr<WindowFixture> m_window;
};

void WindowManyTest::initTestCase()
{
    QStringList urls;
    for (int number = 0; number < items; ++number)
        urls.append(QStringLiteral("file:///i%1").arg(number));
    m_folders.append(folderNamed(QStringLiteral("Folder 0"), urls));
    for (int number = 1; number < folders; ++number)
        m_folders.append(folderNamed(QStringLiteral("Folder %1").arg(number)));
}

void WindowManyTest::init()
{
    failOnWindowWarnings();
    m_window = std::make_unique<WindowFixture>();
    QVERIFY(m_window->open(m_folders));
    m_window->click(m_window->row(QStringLiteral("Folder 0")));
    QVERIFY(m_window->row(item(0)));
}

// How many items of a QML type are in the window.
qsizetype WindowManyTest::count(const char *delegate) const
{
    return descendants(m_window->window->contentItem(),
                       [delegate](const QQuickItem *item) {
                           return QByteArray(item->metaObject()->className()).startsWith(delegate);
                       })
        .size();
}

void WindowManyTest::scrollTo(qreal position)
{
    m_window->named("detailScroll")->setProperty("contentY", position);
    (void)m_window->row(QString()); // the cells take their places
}

void WindowManyTest::onlyVisibleCellsExist()
{
    const qsizetype cells = count("FolderItemGridCell_");
    QVERIFY(cells >= 7);
    QVERIFY2(cells <= mostCells, qPrintable(QString::number(cells)));
    QCOMPARE(m_window->named("itemGrid")->property("count").toInt(), items);
}

void WindowManyTest::onlyVisibleRowsExist()
{
    const qsizetype rows = count("CompanionFolderRow_");
    QVERIFY(rows >= 10);
    QVERIFY2(rows <= 40, qPrintable(QString::number(rows)));
    QCOMPARE(m_window->named("folderList")->property("count").toInt(), folders);
}

void WindowManyTest::theEndShowsTheLastCell()
{
    const QQuickItem *const detail = m_window->named("detailScroll");
    scrollTo(detail->property("contentHeight").toReal() - detail->height());
    const QQuickItem *const last = m_window->row(item(items - 1));
    QVERIFY(last);
    const qreal top = last->mapToItem(detail, {}).y();
    QVERIFY(top > 0);
    QCOMPARE(top + last->height(), detail->height() - 48 - 10); // the insets of page and grid
    QVERIFY(!m_window->row(item(30)));
}

void WindowManyTest::theEndShowsTheLastRow()
{
    QQuickItem *const list = m_window->named("folderList");
    QMetaObject::invokeMethod(list, "positionViewAtEnd");
    const QQuickItem *const last = m_window->row(QStringLiteral("Folder 999"));
    QVERIFY(last);
    QVERIFY(last->mapToItem(list, {}).y() + last->height() <= list->height());
    QVERIFY(count("CompanionFolderRow_") <= 40);
}

void WindowManyTest::aRowThatGoesOutOfViewLeavesNothingBehind()
{
    QList<DockFolder> changed = m_folders;
    changed.swapItemsAt(2, 30);
    m_window->changeFromOutside(changed);
    QVERIFY(m_window->row(QStringLiteral("Folder 30")));
    const QList<QQuickItem *> shown
        = descendants(m_window->named("folderList"), [](const QQuickItem *item) {
              return item->isVisible()
                  && item->property("name").toString() == QStringLiteral("Folder 2");
          });
    QVERIFY(shown.isEmpty());
}

void WindowManyTest::scrollingThroughLeavesNoCellBehind()
{
    const QQuickItem *const detail = m_window->named("detailScroll");
    const qreal last = detail->property("contentHeight").toReal() - detail->height();
    for (int step = 0; step <= 50; ++step) {
        scrollTo(last * step / 50);
        QVERIFY(count("FolderItemGridCell_") <= mostCells);
    }
    scrollTo(0);
    QVERIFY(m_window->row(item(0)));
    QVERIFY(!m_window->row(item(items - 1)));
}

void WindowManyTest::theNumberOfItemsIsWrittenByTheLocale()
{
    QVERIFY(shownText(m_window->window->contentItem(), QLocale().toString(items)));
}

void WindowManyTest::theKeyboardReachesTheLastItem()
{
    m_window->named("itemGrid")->forceActiveFocus(Qt::TabFocusReason);
    m_window->press(Qt::Key_End);
    QVERIFY(m_window->row(item(items - 1)));
    QVERIFY(m_window->row(item(items - 1))->property("showsFocusRing").toBool());
    m_window->press(Qt::Key_Home, Qt::AltModifier);
    const QString first = m_window->store->folder(m_folders.first().id)->items.first().name;
    QCOMPARE(first, item(items - 1));
    QVERIFY(m_window->row(first));
    QVERIFY(m_window->row(first)->property("showsFocusRing").toBool());
}

QTEST_MAIN(WindowManyTest)
#include "tst_windowmany.moc"
