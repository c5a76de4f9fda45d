#include "model/uuidtext.h"
#include "tests/fakes/fakeopenpanel.h"
#include "tests/ui/itemtree.h"
#include "tests/ui/windowfixture.h"
#include "ui/systempanels.h"

#include <QDir>
#include <QImage>

/// How a folder's detail fits into the window, and what it outlives.
class WindowDetailTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void pickersWrapBesideAWideSidebar();
    void whatTheKeyboardReachesComesIntoView();
    void whatThePointerReachesStaysWhereItIs();
    void namesWithoutRoomHaveATooltip_data();
    void namesWithoutRoomHaveATooltip();
    void removeButtonsHaveATooltip();
    void aHeldKeyAsksForOnePicture();
    void aPictureIsStoredWhileAnotherKindOfFolderIsShown();

private:
    [[nodiscard]] QRectF place(const QQuickItem *item) const
    {
        return item->mapRectToScene(item->boundingRect());
    }
    [[nodiscard]] bool isToolTip(const QString &text) const;

    DockFolder m_full;
    FakeOpenPanel *m_openPanel = nullptr;
    std::unique_ptr<SystemPanels> m_panels;
    std::unique_ptr<WindowFixture> m_window;
};

void WindowDetailTest::init()
{
    failOnWindowWarnings();
    QStringList urls{QStringLiteral("file:///A%20document%20with%20a%20name%20of%20many%20words")};
    for (int number = 0; number < 100; ++number)
        urls.append(QStringLiteral("file:///item%1").arg(number));
    m_full = folderNamed(QString(QStringLiteral("A folder with a name of many words ")).repeated(4),
                         urls);
    m_window = std::make_unique<WindowFixture>();
    m_window->installNestlet();
    auto openPanel = std::make_unique<FakeOpenPanel>();
    m_openPanel = openPanel.get();
    m_window->platform.openPanel = std::move(openPanel);
    m_panels = std::make_unique<SystemPanels>(m_window->platform);
    QVERIFY(m_window->open({m_full}));
    m_window->window->setProperty("panels", QVariant::fromValue(m_panels.get()));
    m_window->model->setSelection(uuidText(m_full.id));
    QTRY_COMPARE(place(m_window->named("gridPicker")).top(),
                 place(m_window->named("symbolPicker")).top());
}

void WindowDetailTest::cleanup()
{
    m_window.reset();
    m_panels.reset();
}

bool WindowDetailTest::isToolTip(const QString &text) const
{
    const QList<QQuickItem *> layers = m_window->window->contentItem()->childItems();
    return std::ranges::any_of(layers, [&](QQuickItem *layer) {
        return layer->inherits("QQuickOverlay") && shownText(layer, text) != nullptr;
    });
}

void WindowDetailTest::pickersWrapBesideAWideSidebar()
{
    QCOMPARE(m_window->window->width(), 1060);
    const auto top = [this](const char *name) { return place(m_window->named(name)).top(); };
    QQuickItem *const sidebar = m_window->named("folderList")->parentItem();
    QVERIFY(QByteArray(sidebar->metaObject()->className()).startsWith("CompanionSidebar_"));
    sidebar->setWidth(400);
    QTRY_VERIFY(top("gridPicker") > top("symbolPicker"));
    for (const char *name : {"symbolPicker", "colorPicker", "gridPicker"}) {
        QVERIFY2(place(m_window->named(name)).left() >= 400 + 32 + 16, name);
        QVERIFY2(place(m_window->named(name)).right() <= 1060 - 32 - 16, name);
    }
    QTRY_VERIFY(top("addAppsButton") > place(m_window->named("gridPicker")).bottom() + 16);
}

void WindowDetailTest::whatTheKeyboardReachesComesIntoView()
{
    const QQuickItem *const detail = m_window->named("detailScroll");
    const auto isInView = [&](const QQuickItem *item) {
        return place(detail).contains(place(item).adjusted(0, -3, 0, 3)); // with its ring
    };
    m_window->named("itemGrid")->forceActiveFocus(Qt::TabFocusReason);
    m_window->press(Qt::Key_End);
    QQuickItem *const addApps = m_window->named("addAppsButton");
    QVERIFY(!isInView(addApps));
    m_window->press(Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(addApps->hasActiveFocus());
    QVERIFY(isInView(addApps));
    m_window->named("detailScroll")->setProperty("contentY", 600.0);
    m_window->press(Qt::Key_Tab);
    QVERIFY(isInView(m_window->row(QStringLiteral("item99"))));
}

void WindowDetailTest::whatThePointerReachesStaysWhereItIs()
{
    QQuickItem *const detail = m_window->named("detailScroll");
    QQuickItem *const addApps = m_window->named("addAppsButton");
    const qreal top = addApps->mapToItem(detail, {}).y();
    const qreal position = top + addApps->height() - 4; // a strip of it is left
    detail->setProperty("contentY", position);
    QTest::mousePress(m_window->window, Qt::LeftButton, Qt::NoModifier,
                      addApps->mapToScene(QPointF(20, addApps->height() - 2)).toPoint());
    QVERIFY(addApps->property("pressed").toBool());
    QCOMPARE(detail->property("contentY").toReal(), position);
    QTest::mouseRelease(m_window->window, Qt::LeftButton, Qt::NoModifier, QPoint(0, 0));
}

void WindowDetailTest::namesWithoutRoomHaveATooltip_data()
{
    QTest::addColumn<QString>("where");
    for (const char *where : {"item", "header", "locked name"})
        QTest::newRow(where) << QString::fromLatin1(where);
}

void WindowDetailTest::namesWithoutRoomHaveATooltip()
{
    QFETCH(QString, where);
    const DockFolder shown = m_window->store->folder(m_full.id).value_or(DockFolder());
    QString name = shown.name;
    QQuickItem *target = nullptr;
    if (where == QStringLiteral("item")) {
        name = shown.items.first().name;
        target = m_window->row(name);
    } else if (where == QStringLiteral("header")) {
        target = m_window->item(QAccessible::Heading, name);
    } else {
        CompanionStoreTestAccess::lock(*m_window->store, m_full.id);
        target = shownText(m_window->named("detailScroll"), name);
    }
    QVERIFY(target);
    QTest::mouseMove(m_window->window, QPoint(5, 790));
    QTest::mouseMove(m_window->window, WindowFixture::centre(target));
    QTRY_VERIFY(isToolTip(name));
    if (where != QStringLiteral("item"))
        return;
    QTest::mouseMove(m_window->window,
                     WindowFixture::centre(m_window->row(QStringLiteral("item1"))));
    QTRY_VERIFY(!isToolTip(name));
    QVERIFY(!isToolTip(QStringLiteral("item1"))); // has all the room it needs
}

void WindowDetailTest::removeButtonsHaveATooltip()
{
    const QString name = QStringLiteral("Remove item1");
    QTest::mouseMove(m_window->window,
                     WindowFixture::centre(m_window->row(QStringLiteral("item1"))));
    QTRY_VERIFY(m_window->button(name)->property("isShown").toBool());
    QVERIFY(!isToolTip(name));
    QTest::mouseMove(m_window->window, WindowFixture::centre(m_window->button(name)));
    QTRY_VERIFY(isToolTip(name));
}

void WindowDetailTest::aHeldKeyAsksForOnePicture()
{
    QQuickItem *const cell
        = m_window->item(QAccessible::RadioButton, QStringLiteral("Load custom image…"));
    cell->forceActiveFocus(Qt::TabFocusReason);
    m_window->press(Qt::Key_Space);
    QVERIFY(m_openPanel->completion);
    m_openPanel->completion = nullptr;
    m_window->hold(Qt::Key_Space);
    QVERIFY(!m_openPanel->completion);
}

void WindowDetailTest::aPictureIsStoredWhileAnotherKindOfFolderIsShown()
{
    QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("a.png"));
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(path));
    m_window->click(m_window->item(QAccessible::RadioButton, QStringLiteral("Load custom image…")));
    QVERIFY(m_openPanel->completion);
    m_window->click(m_window->row(QStringLiteral("Nestlet")));
    QTRY_VERIFY(m_window->button(QStringLiteral("Open Nestlet")));
    QVERIFY(!m_window->named("symbolPicker"));
    m_openPanel->completion(FileURL::file(path));
    QTRY_VERIFY(m_window->store->folder(m_full.id)->customIconData);
}

QTEST_MAIN(WindowDetailTest)
#include "tst_windowdetail.moc"
