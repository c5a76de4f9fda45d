#include "model/dockfolder.h"
#include "platform/workspace.h"
#include "tests/pictures.h"
#include "ui/icongrid.h"
#include "ui/itemicongrid.h"
#include "ui/loadedpicture.h"
#include "ui/picturestore.h"
#include "ui/windowengine.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QSemaphore>
#include <QTest>
#include <QThread>

#include <atomic>
#include <memory>
#include <vector>

namespace {

/// Makes one-coloured icons, at the pace of the test.
struct SlowWorkspace final : Workspace {
    mutable QSemaphore pace{};
    mutable std::atomic<int> made{};
    mutable std::atomic<int> lastSide{};
    std::atomic<Qt::GlobalColor> onlyColor{Qt::color0}; ///< color0: as the file is called

    [[nodiscard]] std::optional<FileURL>
    applicationWithBundleIdentifier(const QString &) const override
    {
        return std::nullopt;
    }
    void openApplication(const FileURL &, Activation, OpenCompletion) override { }
    void openURL(const QUrl &) override { }
    void reveal(const QList<FileURL> &) override { }
    [[nodiscard]] QImage icon(const FileURL &url, int side) const override
    {
        pace.acquire();
        ++made;
        lastSide = side;
        QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
        const Qt::GlobalColor color = onlyColor;
        image.fill(color == Qt::color0 ? QColor(url.displayName()) : QColor(color));
        return url.pathExtension() == u"none" ? QImage() : image;
    }
};

QString urlOf(const char *name)
{
    return QStringLiteral("file:///icons/%1.app").arg(QLatin1StringView(name));
}

const QColor background = Qt::white;

} // namespace

class FileIconTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void aPlaceholderHoldsThePlaceUntilTheIconComes();
    void theIconFillsItsSquareAtTheScreensPixels();
    void aRememberedIconShowsAtOnce();
    void anotherFileNeverShowsTheFormerIcon();
    void aRefreshedIconStaysInViewUntilItsSuccessorComes();
    void aRefreshedGridThatIsTheSameIsNotReplaced();
    void noURLShowsThePlaceholder();
    void anIconThatCannotBeMadeLeavesThePlaceholder();
    void hiddenIconsAreNotLoaded();
    void iconsThatGoAwayAreNotLoaded();
    void oneGridIsOnePicture();
    void cellsPastTheLastItemAreFaint();
    void aChangedGridStaysInViewWhileItLoads();
    void aFoldersPictureIsShownAndItsSuccessor();
    void aDamagedPictureIsBroken();
    void gridsAreOfWholePixels_data();
    void gridsAreOfWholePixels();
    void itemsWithoutProvidersShowTheirPlaceholder();
    void nothingIsLeftToDoWhenTheEngineGoes();

private:
    template <typename Item = LoadedPicture> Item *create(const QByteArray &qml);
    [[nodiscard]] QColor colorAt(int x, int y) const
    {
        return m_window->grabWindow().pixelColor(x, y);
    }

    SlowWorkspace m_workspace;
    PictureStore m_pictures;
    std::unique_ptr<QQuickWindow> m_window;
    std::unique_ptr<QQmlEngine> m_engine;
};

void FileIconTest::initTestCase()
{
    qputenv("QT_QUICK_BACKEND", "software");
}

void FileIconTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_engine = std::make_unique<QQmlEngine>();
    addWindowTypes(*m_engine);
    addPictureProviders(*m_engine, m_workspace, m_pictures);
    m_window = std::make_unique<QQuickWindow>();
    m_window->setColor(background);
    m_window->resize(200, 200);
    m_window->show();
    m_workspace.made = 0;
    m_workspace.onlyColor = Qt::color0;
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void FileIconTest::cleanup()
{
    m_workspace.pace.release(10'000);
    m_window.reset();
    m_engine.reset();
    m_workspace.pace.acquire(m_workspace.pace.available());
}

template <typename Item> Item *FileIconTest::create(const QByteArray &qml)
{
    QQmlComponent component(m_engine.get());
    component.setData("import QtQuick\nimport Nestlet.Companion\n" + qml, {});
    auto *const item = qobject_cast<Item *>(component.create());
    if (item == nullptr)
        qWarning("%s", qPrintable(component.errorString()));
    else
        item->setParentItem(m_window->contentItem());
    if (item != nullptr)
        static_cast<QObject *>(item)->setParent(m_window.get());
    return item;
}

void FileIconTest::aPlaceholderHoldsThePlaceUntilTheIconComes()
{
    auto *const icon = create(R"(FileIcon { url: "file:///icons/red.app"; size: 56 })");
    QTRY_VERIFY(colorAt(28, 28) != background);
    const QColor placeholder = colorAt(28, 28);
    QCOMPARE(placeholder.red(), placeholder.blue()); // grey
    QCOMPARE(colorAt(0, 0), background); // rounded
    QCOMPARE(icon->size(), QSizeF(56, 56));
    QVERIFY(!icon->isLoaded());
    m_workspace.pace.release();
    QTRY_VERIFY(icon->isLoaded());
    QTRY_COMPARE(colorAt(28, 28), QColor(Qt::red));
    QCOMPARE(icon->size(), QSizeF(56, 56));
}

void FileIconTest::theIconFillsItsSquareAtTheScreensPixels()
{
    m_workspace.pace.release(100);
    auto *const icon
        = create(R"(FileIcon { url: "file:///icons/red.app"; x: 10; y: 20; size: 48 })");
    QTRY_COMPARE(colorAt(10, 20), QColor(Qt::red));
    QCOMPARE(colorAt(57, 67), QColor(Qt::red));
    for (const QPoint &outside : {QPoint(9, 20), QPoint(10, 19), QPoint(58, 67), QPoint(57, 68)})
        QCOMPARE(colorAt(outside.x(), outside.y()), background);
    QCOMPARE(m_workspace.lastSide.load(), qRound(48 * m_window->effectiveDevicePixelRatio()));
    icon->setProperty("size", 72);
    QTRY_COMPARE(colorAt(81, 91), QColor(Qt::red));
    QCOMPARE(m_workspace.lastSide.load(), qRound(72 * m_window->effectiveDevicePixelRatio()));
}

void FileIconTest::aRememberedIconShowsAtOnce()
{
    m_workspace.pace.release(100);
    std::unique_ptr<LoadedPicture> first(
        create(R"(FileIcon { url: "file:///icons/red.app"; size: 56 })"));
    QTRY_VERIFY(first->isLoaded());
    first.reset();
    auto *const second = create(R"(FileIcon { url: "file:///icons/red.app"; size: 56 })");
    second->ensurePolished(); // in its very first frame
    QVERIFY(second->isLoaded());
    QCOMPARE(colorAt(28, 28), QColor(Qt::red));
    QCOMPARE(m_workspace.made.load(), 1);
}

void FileIconTest::anotherFileNeverShowsTheFormerIcon()
{
    m_workspace.pace.release();
    auto *const icon = create(R"(FileIcon { url: "file:///icons/red.app"; size: 56 })");
    QTRY_VERIFY(icon->isLoaded());
    icon->setProperty("url", urlOf("blue"));
    icon->ensurePolished();
    QVERIFY(!icon->isLoaded());
    QVERIFY(colorAt(28, 28) != QColor(Qt::red));
    m_workspace.pace.release();
    QTRY_COMPARE(colorAt(28, 28), QColor(Qt::blue));
    icon->setProperty("url", urlOf("red"));
    icon->ensurePolished();
    QVERIFY(icon->isLoaded());
    QCOMPARE(colorAt(28, 28), QColor(Qt::red));
}

void FileIconTest::aRefreshedIconStaysInViewUntilItsSuccessorComes()
{
    m_workspace.pace.release();
    auto *const icon = create(R"(FileIcon { url: "file:///icons/red.app"; size: 56 })");
    QTRY_VERIFY(icon->isLoaded());
    m_workspace.onlyColor = Qt::blue; // as if the app had been updated
    refreshIcons(*m_engine);
    icon->ensurePolished();
    QCOMPARE(colorAt(28, 28), QColor(Qt::red));
    QVERIFY(icon->isLoaded());
    m_workspace.pace.release();
    QTRY_COMPARE(colorAt(28, 28), QColor(Qt::blue));
    QVERIFY(icon->isLoaded());
    QCOMPARE(m_workspace.made.load(), 2);
}

void FileIconTest::aRefreshedGridThatIsTheSameIsNotReplaced()
{
    m_workspace.pace.release(100);
    auto *const grid = create(R"(ItemIconGrid {
        width: 30; height: 30; rows: 1; columns: 1; folderID: "A"; urls: ["file:///icons/red.app"]
    })");
    QTRY_VERIFY(grid->isLoaded());
    int replaced = 0; // what is replaced fades
    connect(static_cast<ItemIconGrid *>(grid), &ItemIconGrid::replaced, this, [&] { ++replaced; });
    refreshIcons(*m_engine);
    QTRY_COMPARE(m_workspace.made.load(), 2);
    QTest::qWait(20);
    QCOMPARE(replaced, 0);
    m_workspace.onlyColor = Qt::blue;
    refreshIcons(*m_engine);
    QTRY_COMPARE(replaced, 1);
    QCOMPARE(colorAt(15, 15), QColor(Qt::blue));
}

void FileIconTest::noURLShowsThePlaceholder()
{
    auto *const icon = create(R"(FileIcon { size: 56 })");
    QTRY_VERIFY(colorAt(28, 28) != background);
    QVERIFY(!icon->isLoaded());
    QCOMPARE(m_workspace.made.load(), 0);
}

void FileIconTest::anIconThatCannotBeMadeLeavesThePlaceholder()
{
    m_workspace.pace.release(100);
    auto *const icon = create(R"(FileIcon { url: "file:///icons/red.none"; size: 56 })");
    QTRY_COMPARE(m_workspace.made.load(), 1);
    QTest::qWait(10);
    QVERIFY(colorAt(28, 28) != background);
    QVERIFY(!icon->isLoaded());
}

void FileIconTest::hiddenIconsAreNotLoaded()
{
    m_workspace.pace.release(100);
    auto *const icon
        = create(R"(FileIcon { url: "file:///icons/red.app"; size: 56; visible: false })");
    QTest::qWait(50);
    QCOMPARE(m_workspace.made.load(), 0);
    icon->setVisible(true);
    QTRY_VERIFY(icon->isLoaded());
}

void FileIconTest::iconsThatGoAwayAreNotLoaded()
{
    constexpr int count = 100;
    std::vector<std::unique_ptr<LoadedPicture>> icons;
    icons.reserve(count);
    for (int i = 0; i < count; ++i)
        icons.emplace_back(create(QByteArray(R"(FileIcon { size: 56; url: "file:///icons/)")
                                  + QByteArray::number(i) + R"(.app" })"));
    m_window->grabWindow(); // all of them are asked for
    icons.clear();
    auto *const last = create(R"(FileIcon { url: "file:///icons/red.app"; size: 56 })");
    m_window->grabWindow();
    m_workspace.pace.release(1000);
    QTRY_VERIFY(last->isLoaded());
    QVERIFY2(m_workspace.made <= 5, qPrintable(QString::number(m_workspace.made)));
}

void FileIconTest::oneGridIsOnePicture()
{
    m_workspace.pace.release(100);
    auto *const grid = create(R"(ItemIconGrid {
        width: 62; height: 62; rows: 2; columns: 2; spacing: 2
        urls: ["file:///icons/red.app", "file:///icons/lime.app", "file:///icons/blue.app",
               "file:///icons/black.app", "file:///icons/yellow.app"]
    })");
    QTRY_VERIFY(grid->isLoaded());
    QTRY_COMPARE(colorAt(15, 15), QColor(Qt::red));
    QCOMPARE(colorAt(47, 15), QColor(Qt::green)); // "lime" of the web
    QCOMPARE(colorAt(15, 47), QColor(Qt::blue));
    QCOMPARE(colorAt(47, 47), QColor(Qt::black));
    QCOMPARE(colorAt(31, 31), background); // between the cells
    QCOMPARE(m_workspace.made.load(), 4); // the fifth is not in the grid
    QCOMPARE(m_workspace.lastSide.load(), 30);
}

void FileIconTest::cellsPastTheLastItemAreFaint()
{
    m_window->setColor(Qt::black);
    m_workspace.pace.release(100);
    auto *const grid = create(R"(ItemIconGrid {
        width: 62; height: 62; rows: 2; columns: 2; spacing: 2; urls: ["file:///icons/red.app"]
    })");
    QTRY_VERIFY(grid->isLoaded());
    QTRY_COMPARE(colorAt(15, 15), QColor(Qt::red));
    for (const QPoint &cell : {QPoint(47, 15), QPoint(15, 47), QPoint(47, 47)})
        QCOMPARE(colorAt(cell.x(), cell.y()).red(), qRound(0.15 * 255));
}

void FileIconTest::aChangedGridStaysInViewWhileItLoads()
{
    m_window->setColor(Qt::black);
    m_workspace.pace.release();
    auto *const grid = create(R"(ItemIconGrid {
        width: 30; height: 30; rows: 1; columns: 1; folderID: "A"; urls: ["file:///icons/red.app"]
    })");
    QTRY_VERIFY(grid->isLoaded());
    grid->setProperty("urls", QStringList{urlOf("blue")});
    grid->ensurePolished();
    QCOMPARE(colorAt(15, 15), QColor(Qt::red));
    m_workspace.pace.release();
    QTRY_COMPARE(colorAt(15, 15), QColor(Qt::blue));
    grid->setProperty("folderID", QStringLiteral("B"));
    grid->setProperty("urls", QStringList{urlOf("yellow")});
    grid->ensurePolished();
    QCOMPARE(colorAt(15, 15).red(), qRound(0.15 * 255)); // nothing of another folder
    m_workspace.pace.release();
    QTRY_COMPARE(colorAt(15, 15), QColor(Qt::yellow));
}

void FileIconTest::aFoldersPictureIsShownAndItsSuccessor()
{
    DockFolder folder{.id = QUuid::createUuid(), .customIconData = pngOf(Qt::red)};
    auto *const shown = create(R"(FolderPicture { width: 36; height: 36; radius: 8 })");
    shown->setProperty("source", m_pictures.pictureSource(folder));
    QTRY_COMPARE(colorAt(18, 18), QColor(Qt::red));
    QCOMPARE(colorAt(0, 0), background); // round
    folder.customIconData = pngOf(Qt::blue);
    shown->setProperty("source", m_pictures.pictureSource(folder));
    QTRY_COMPARE(colorAt(18, 18), QColor(Qt::blue));
    QVERIFY(shown->isLoaded());
    QVERIFY(!shown->isBroken());
    shown->setProperty("source", QString());
    QTRY_COMPARE(colorAt(18, 18), background);
}

void FileIconTest::aDamagedPictureIsBroken()
{
    DockFolder folder{.id = QUuid::createUuid(), .customIconData = QByteArray("noise")};
    auto *const shown = create(R"(FolderPicture { width: 36; height: 36 })");
    shown->setProperty("source", m_pictures.pictureSource(folder));
    QTRY_VERIFY(shown->isBroken());
    QVERIFY(!shown->isLoaded());
    folder.customIconData = pngOf(Qt::blue);
    shown->setProperty("source", m_pictures.pictureSource(folder));
    QTRY_VERIFY(shown->isLoaded());
    QVERIFY(!shown->isBroken());
}

void FileIconTest::gridsAreOfWholePixels_data()
{
    QTest::addColumn<IconGrid>("grid");
    QTest::addColumn<int>("side");
    QTest::addColumn<QRect>("bounds");
    const auto row = [](const char *name, const IconGrid &grid, int side, const QRect &bounds) {
        QTest::newRow(name) << grid << side << bounds;
    };
    row("that fit", {.rows = 3, .columns = 3, .spacing = 2, .size = {28, 28}}, 8, {0, 0, 28, 28});
    row("with a rest", {.rows = 3, .columns = 3, .spacing = 2, .size = {30, 30}}, 8,
        {1, 1, 28, 28});
    row("of one row", {.rows = 1, .columns = 3, .spacing = 2, .size = {28, 28}}, 8, {0, 10, 28, 8});
    row("without a cell", {.rows = 0, .columns = 0, .spacing = 2, .size = {28, 28}}, 0, {});
    row("too small", {.rows = 4, .columns = 4, .spacing = 2, .size = {5, 5}}, 0, {});
}

void FileIconTest::gridsAreOfWholePixels()
{
    QFETCH(IconGrid, grid);
    QTEST(grid.cellSide(), "side");
    QRect bounds;
    for (const QRect &cell : grid.cells())
        bounds |= cell;
    QTEST(bounds, "bounds");
    QCOMPARE(drawnIconGrid(grid, {}).size(), grid.size);
}

void FileIconTest::itemsWithoutProvidersShowTheirPlaceholder()
{
    m_engine = std::make_unique<QQmlEngine>();
    addWindowTypes(*m_engine);
    auto *const icon = create(R"(FileIcon { url: "file:///icons/red.app"; size: 56 })");
    QTRY_VERIFY(colorAt(28, 28) != background);
    QVERIFY(!icon->isLoaded());
}

void FileIconTest::nothingIsLeftToDoWhenTheEngineGoes()
{
    for (int i = 0; i < 100; ++i)
        create(QByteArray(R"(FileIcon { size: 56; url: "file:///icons/)") + QByteArray::number(i)
               + R"(.app" })");
    m_window->grabWindow();
    // What has begun ends, but slowly.
    std::atomic<bool> isOver = false;
    const std::unique_ptr<QThread> pacemaker(QThread::create([&] {
        for (; !isOver; QThread::msleep(5))
            m_workspace.pace.release();
    }));
    pacemaker->start();
    m_engine.reset(); // before its items: they must not reach for what is gone
    isOver = true;
    pacemaker->wait();
    m_window->grabWindow();
    QVERIFY(m_workspace.made < 100);
}

QTEST_MAIN(FileIconTest)
#include "tst_fileicon.moc"
