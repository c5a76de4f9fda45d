#include "model/uuidtext.h"
#include "tests/pictures.h"
#include "tests/ui/itemtree.h"
#include "tests/ui/windowfixture.h"
#include "ui/windowengine.h"

#include <QRandomGenerator>

namespace {

constexpr int rowHeight = 52;

/// Another window on the same store, opened now.
struct NewWindow {
    explicit NewWindow(const WindowFixture &fixture)
        : model(*fixture.store, pictures)
    {
        addPictureProviders(engine, fixture.workspace, pictures);
        addWindowTypes(engine);
        engine.setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&model)}});
        engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Nestlet/Companion/CompanionView.qml")));
        window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
        model.setSelection(fixture.model->selection());
    }

    PictureStore pictures;
    CompanionViewModel model;
    QQmlApplicationEngine engine;
    QQuickWindow *window = nullptr;
};

qreal scrollPosition(const QQuickItem *list)
{
    return list->property("contentY").toReal() - list->property("originY").toReal();
}

void scroll(QQuickItem *list, qreal position)
{
    list->setProperty("contentY", list->property("originY").toReal() + position);
}

// The row that is painted at each place in view; two of them where two are.
QMultiMap<qreal, QString> paintedRows(QQuickItem *list)
{
    QMultiMap<qreal, QString> rows;
    for (QQuickItem *row : list->property("contentItem").value<QQuickItem *>()->childItems()) {
        const qreal top = row->mapToItem(list, QPointF()).y()
            + row->property("shift").toReal(); // as it is seen
        if (row->isVisible() && row->property("caption").isValid() && top > -rowHeight
            && top < list->height())
            rows.insert(top, row->property("name").toString());
    }
    return rows;
}

} // namespace

/// Whatever happened to it, the window looks in the end as if it were opened now.
class WindowLookTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }
    void isThatOfANewWindow_data();
    void isThatOfANewWindow();

private:
    [[nodiscard]] DockFolder newFolder();
    [[nodiscard]] QString newItem();
    [[nodiscard]] int below(qsizetype count) { return m_random.bounded(static_cast<int>(count)); }
    void changeFolders();
    void changeItems();
    void changeSomething();
    void compareWithNewWindow();

    QRandomGenerator m_random;
    int m_folders = 0;
    int m_items = 0;
    std::unique_ptr<WindowFixture> m_window;
};

void WindowLookTest::init()
{
    failOnWindowWarnings();
    m_window = std::make_unique<WindowFixture>();
}

QString WindowLookTest::newItem()
{
    const QString url = QStringLiteral("file:///item%1").arg(m_items++);
    m_window->workspace.icons.insert(*FileURL::fromText(url),
                                     filledImage(QColor::fromHsv(m_items * 47 % 360, 200, 200)));
    return url;
}

DockFolder WindowLookTest::newFolder()
{
    QStringList items;
    for (int count = below(12); count > 0; --count)
        items.append(newItem());
    DockFolder folder = folderNamed(QStringLiteral("Folder %1").arg(m_folders++), items);
    if (below(4) == 0)
        folder.iconSymbol = QStringLiteral("star.fill");
    if (below(4) == 0)
        folder.customIconData = pngOf(QColor::fromHsv(m_folders * 61 % 360, 255, 255));
    return folder;
}

// As another program does it.
void WindowLookTest::changeFolders()
{
    QList<DockFolder> folders = m_window->store->folders();
    const int place = below(folders.size());
    switch (below(6)) {
    case 0:
        std::shuffle(folders.begin(), folders.end(), m_random);
        break;
    case 1:
        folders.move(place, below(folders.size()));
        break;
    case 2:
        folders.insert(place, newFolder());
        break;
    case 3:
        folders.removeAt(place);
        break;
    case 4:
        folders[place].name += QStringLiteral(" and more than there is room for");
        break;
    default:
        folders[place].customIconData = pngOf(QColor::fromHsv(below(360), 255, 255));
    }
    m_window->changeFromOutside(folders);
}

void WindowLookTest::changeItems()
{
    FolderDetailModel *const detail = m_window->model->detail();
    const auto id = uuidFromText(m_window->model->selection());
    const auto folder = id ? m_window->store->folder(*id) : std::nullopt;
    if (!folder)
        return;
    const auto anyItem = [&] { return uuidText(folder->items.at(below(folder->items.size())).id); };
    const int kind = folder->items.size() < 2 ? 2 : below(3);
    if (kind == 0)
        detail->moveItem(anyItem(), below(folder->items.size()));
    else if (kind == 1)
        detail->removeItem(anyItem());
    else
        detail->addItems({newItem(), newItem()});
}

void WindowLookTest::changeSomething()
{
    const QList<DockFolder> &folders = m_window->store->folders();
    switch (below(6)) {
    case 0:
        m_window->model->setSelection(uuidText(folders.at(below(folders.size())).id));
        break;
    case 1:
        scroll(m_window->named("folderList"), below((folders.size() - 15) * rowHeight));
        break;
    case 2:
    case 3:
        changeItems();
        break;
    default:
        changeFolders();
    }
}

// Pixel by pixel where nothing tells which window is the active one; there, by the rows.
void WindowLookTest::compareWithNewWindow()
{
    NewWindow other(*m_window);
    QVERIFY(other.window);
    for (const char *list : {"folderList", "detailScroll"}) {
        QQuickItem *const found = childNamed(other.window->contentItem(), list);
        if (const QQuickItem *const own = m_window->named(list); own && found)
            scroll(found, scrollPosition(own));
    }
    QQuickItem *const sidebar = m_window->named("folderList");
    const auto own = [&] { return m_window->window->grabWindow(); };
    const auto detailOf = [&](const QImage &image) {
        return image.copy(image.rect().adjusted(qRound(sidebar->width()) + 20, 0, 0, 0));
    };
    QTRY_COMPARE(paintedRows(sidebar),
                 paintedRows(childNamed(other.window->contentItem(), "folderList")));
    QTRY_COMPARE(detailOf(own()), detailOf(other.window->grabWindow()));
}

void WindowLookTest::isThatOfANewWindow_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 4; ++seed)
        QTest::addRow("%u", seed) << seed;
}

void WindowLookTest::isThatOfANewWindow()
{
    QFETCH(quint32, seed);
    m_random.seed(seed);
    QList<DockFolder> folders;
    for (int count = 0; count < 30; ++count)
        folders.append(newFolder());
    QVERIFY(m_window->open(folders));
    for (int round = 0; round < 8; ++round) {
        for (int change = 0; change < 4; ++change) {
            changeSomething();
            QTest::qWait(below(150)); // within what moves, or after it
        }
        m_window->finishEverything();
        compareWithNewWindow();
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("round %1").arg(round)));
    }
}

QTEST_MAIN(WindowLookTest)
#include "tst_windowlook.moc"
