#include "tests/ui/itemtree.h"
#include "tests/ui/windowfixture.h"

/// The window in languages that are written from right to left.
class WindowMirroredTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void theSidebarIsOnTheRight();
    void rowsBeginOnTheRight();
    void theDetailIsMirrored();
    void itemsRunFromRightToLeft();
    void removeButtonsAreInTheTrailingCorner();
    void stripsAreMirrored();
    void menusOpenInsideTheWindow_data();
    void menusOpenInsideTheWindow();
    void aMenuBeginsWhereItsButtonDoes();
    void turnsRoundLive();

private:
    [[nodiscard]] QRectF place(const QQuickItem *item) const
    {
        return item->mapRectToScene(item->boundingRect());
    }
    [[nodiscard]] QQuickItem *button(const char *name) const
    {
        return m_window->button(QLatin1StringView(name));
    }

    const DockFolder m_a = folderNamed(QStringLiteral("A"),
                                       {QStringLiteral("file:///x"), QStringLiteral("file:///y")});
    std::unique_ptr<WindowFixture> m_window;
};

void WindowMirroredTest::init()
{
    failOnWindowWarnings();
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    m_window = std::make_unique<WindowFixture>();
    QVERIFY(m_window->open({m_a}));
    m_window->click(m_window->row(m_a.name));
}

void WindowMirroredTest::cleanup()
{
    m_window.reset();
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

void WindowMirroredTest::theSidebarIsOnTheRight()
{
    const QRectF list = place(m_window->named("folderList"));
    QCOMPARE(list.right(), qreal(m_window->window->width()));
    QCOMPARE(list.width(), 220.0);
    QVERIFY(place(m_window->named("detailScroll")).right() <= list.left());
    QVERIFY(place(button("More")).right() < place(button("New Dock Folder")).left() + 1);
}

void WindowMirroredTest::rowsBeginOnTheRight()
{
    QQuickItem *const row = m_window->row(m_a.name);
    const QQuickItem *const picture = descendant(row, [](const QQuickItem *item) {
        return QByteArray(item->metaObject()->className()).startsWith("SidebarFolderThumbnail");
    });
    const QQuickItem *const text = shownText(row, m_a.name);
    QVERIFY(picture && text);
    const QRectF thumbnail = place(picture);
    const QRectF name = place(text);
    QCOMPARE(thumbnail.size(), QSizeF(36, 36));
    QCOMPARE(thumbnail.right(), place(row).right() - 18);
    QCOMPARE(name.right(), thumbnail.left() - 8);
}

void WindowMirroredTest::theDetailIsMirrored()
{
    const QRectF detail = place(m_window->named("detailScroll"));
    QVERIFY(place(button("Folder Actions")).left() < detail.left() + 60);
    QVERIFY(place(m_window->named("nameField")).left() > detail.center().x());
    QVERIFY(place(m_window->named("dockButton")).right() < detail.center().x());
    QCOMPARE(place(m_window->named("addAppsButton")).left(), detail.left() + 32);
}

void WindowMirroredTest::itemsRunFromRightToLeft()
{
    const QRectF first = place(m_window->row(QStringLiteral("x")));
    const QRectF second = place(m_window->row(QStringLiteral("y")));
    QVERIFY(second.right() <= first.left());
    QCOMPARE(second.top(), first.top());
    const QRectF area = place(m_window->named("itemGrid")->parentItem());
    const qreal gap = area.right() - first.right();
    QVERIFY2(gap <= 20, qPrintable(QString::number(gap)));
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    const auto gapBefore = [this] {
        return place(m_window->row(QStringLiteral("x"))).left()
            - place(m_window->named("itemGrid")->parentItem()).left();
    };
    QTRY_COMPARE(gapBefore(), gap);
}

void WindowMirroredTest::removeButtonsAreInTheTrailingCorner()
{
    const QRectF cell = place(m_window->row(QStringLiteral("x")));
    QCOMPARE(place(button("Remove x")).topLeft(), cell.topLeft());
}

void WindowMirroredTest::stripsAreMirrored()
{
    const QQuickItem *const strip
        = m_window->item(QAccessible::Grouping, QStringLiteral("Nestlet not found"));
    QVERIFY(strip);
    for (const QQuickItem *child : strip->childItems()) {
        if (child->inherits("SymbolItem"))
            QCOMPARE(place(child).right(), place(strip).right() - 16);
    }
}

void WindowMirroredTest::menusOpenInsideTheWindow_data()
{
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("entry");
    QTest::newRow("more") << QStringLiteral("More") << QStringLiteral("Add All to Dock");
    QTest::newRow("actions") << QStringLiteral("Folder Actions") << QStringLiteral("Remove Folder");
}

void WindowMirroredTest::menusOpenInsideTheWindow()
{
    QFETCH(QString, menu);
    QFETCH(QString, entry);
    m_window->click(m_window->button(menu));
    QTRY_VERIFY(m_window->item(QAccessible::MenuItem, entry));
    const QRectF shown = place(m_window->item(QAccessible::MenuItem, entry));
    QVERIFY(QRectF(QPointF(), m_window->window->size()).contains(shown));
}

void WindowMirroredTest::aMenuBeginsWhereItsButtonDoes()
{
    const QQuickItem *const actions = m_window->button(QStringLiteral("Folder Actions"));
    m_window->click(actions);
    const QString entry = QStringLiteral("Remove Folder");
    QTRY_VERIFY(m_window->item(QAccessible::MenuItem, entry));
    constexpr int padding = 5;
    QCOMPARE(place(m_window->item(QAccessible::MenuItem, entry)).left(),
             place(actions).left() + padding);
}

void WindowMirroredTest::turnsRoundLive()
{
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    QTRY_COMPARE(place(m_window->named("folderList")).left(), 0.0);
    QTRY_VERIFY(place(m_window->row(QStringLiteral("x"))).right()
                <= place(m_window->row(QStringLiteral("y"))).left());
}

QTEST_MAIN(WindowMirroredTest)
#include "tst_windowmirrored.moc"
