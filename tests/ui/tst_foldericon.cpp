#include "tests/fakes/fakeappearance.h"
#include "tests/fakes/fakeworkspace.h"
#include "tests/pictures.h"
#include "tests/store/storefixture.h"
#include "tests/ui/itemtree.h"
#include "ui/picturestore.h"
#include "ui/systemappearance.h"
#include "ui/windowengine.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

namespace {

constexpr auto scene = R"(
import QtQuick
import Nestlet.Companion

Window {
    id: root

    property string kind
    property string folder: "F"
    property string tint
    property string symbol
    property string picture
    property var urls: []
    property int columns: 2
    property bool isLocked: false

    width: 300
    height: 300
    visible: true
    color: "#FF00FF"

    Component {
        id: thumbnail
        SidebarFolderThumbnail {
            size: 200
            radius: 20
            folderID: root.folder
            accentColorHex: root.tint
            iconSymbol: root.symbol
            pictureSource: root.picture
            previewURLs: root.urls
            previewColumns: root.columns
            isLocked: root.isLocked
        }
    }
    Component {
        id: preview
        DockIconPreview {
            size: 200
            folderID: root.folder
            accentColorHex: root.tint
            iconSymbol: root.symbol
            pictureSource: root.picture
            previewURLs: root.urls
            previewColumns: root.columns
        }
    }
    Loader {
        objectName: "icon"
        x: 20
        y: 20
        sourceComponent: root.kind === "preview" ? preview : thumbnail
    }
}
)";

} // namespace

/// The pixels of a folder's icon, in the sidebar and in the detail.
class FolderIconTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void withoutAColourTheGreyIsThatOfTheAppearance_data();
    void withoutAColourTheGreyIsThatOfTheAppearance();
    void theGreyFollowsTheAppearanceLive();
    void aColourGoesDownToADarkerOne_data();
    void aColourGoesDownToADarkerOne();
    void theAppearanceDoesNotChangeAColour();
    void theShapeIsRound();
    void anEmptyFolderShowsAFolder_data();
    void anEmptyFolderShowsAFolder();
    void theSymbolGoesBeforeTheItems();
    void itemsAreShownInAGrid();
    void changedItemsFade_data();
    void changedItemsFade();
    void theFolderOfAnEmptyOneFadesIntoItsFirstItemAndBack();
    void theFolderOfAnEmptyOneWaitsForTheFirstIcon();
    void anEmptyFolderAfterAnotherFadesToo();
    void nothingFadesFromOrToNoItems_data();
    void nothingFadesFromOrToNoItems();
    void nothingFadesUnderASymbolOrFromIt();
    void nothingFades_data();
    void nothingFades();
    void nothingFadesInTheSidebar();
    void fadingEndsWhenSomethingElseIsShown_data();
    void fadingEndsWhenSomethingElseIsShown();
    void missingItemsAreFaintSquares();
    void thePictureGoesBeforeTheSymbol();
    void aBrokenPictureFallsBack_data();
    void aBrokenPictureFallsBack();
    void theNextPictureIsTriedAgain();
    void lockedFoldersHaveABadge();

private:
    [[nodiscard]] bool show(const QString &kind, const QVariantMap &properties = {});
    void set(const char *name, const QVariant &value) { m_window->setProperty(name, value); }
    [[nodiscard]] QQuickItem *icon() const;
    [[nodiscard]] QQuickItem *symbol(const QString &name) const;
    [[nodiscard]] QQuickItem *itemGrid() const;
    /// Of the icon, whose own measure is 200 by 200.
    [[nodiscard]] QColor pixel(int x, int y) const;
    [[nodiscard]] bool isGrey(int y, double level) const;
    [[nodiscard]] QString pictureOf(const QByteArray &bytes);
    void addIcon(const QString &url, Qt::GlobalColor color);
    /// What fades away over the icon; null: there never is.
    [[nodiscard]] QQuickItem *formerLook() const;
    [[nodiscard]] bool isFading() const { return formerLook()->property("active").toBool(); }
    /// Notes that pixel's colour at each step of a fade but the first and the last ones.
    void watchFading(int x, int y, QList<QColor> &colors);

    FakeAppearance m_appearance;
    FakeWorkspace m_workspace;
    PictureStore m_pictures;
    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQuickWindow> m_window;
};

void FolderIconTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    qputenv("QT_QUICK_BACKEND", "software");
    m_appearance.current = {};
    m_engine = std::make_unique<QQmlEngine>();
    setAppearance(*m_engine, m_appearance);
    addPictureProviders(*m_engine, m_workspace, m_pictures);
    addWindowTypes(*m_engine);
}

void FolderIconTest::cleanup()
{
    m_window.reset();
    m_engine.reset();
    m_workspace.icons.clear();
}

bool FolderIconTest::show(const QString &kind, const QVariantMap &properties)
{
    QQmlComponent component(m_engine.get());
    component.setData(scene, QUrl(QStringLiteral("qrc:/scene.qml")));
    QVariantMap all = properties;
    all.insert(QStringLiteral("kind"), kind);
    m_window.reset(qobject_cast<QQuickWindow *>(component.createWithInitialProperties(all)));
    if (!m_window)
        qInfo() << component.errorString();
    return m_window && QTest::qWaitForWindowExposed(m_window.get());
}

QQuickItem *FolderIconTest::icon() const
{
    return m_window->findChild<QQuickItem *>(QStringLiteral("icon"))->childItems().first();
}

QQuickItem *FolderIconTest::symbol(const QString &name) const
{
    return shownSymbol(icon(), name);
}

QQuickItem *FolderIconTest::itemGrid() const
{
    return descendant(icon(), [](const QQuickItem *item) {
        return item->isVisible() && item->inherits("ItemIconGrid");
    });
}

QColor FolderIconTest::pixel(int x, int y) const
{
    return m_window->grabWindow().pixelColor(20 + x, 20 + y);
}

bool FolderIconTest::isGrey(int y, double level) const
{
    const QColor found = pixel(100, y);
    const int expected = qRound(level * 255);
    const bool fits = found.red() == found.green() && found.green() == found.blue()
        && std::abs(found.red() - expected) <= 2;
    if (!fits)
        qInfo() << "at" << y << "is" << found << "not" << expected;
    return fits;
}

QString FolderIconTest::pictureOf(const QByteArray &bytes)
{
    DockFolder folder = folderNamed(QStringLiteral("F"));
    folder.customIconData = bytes;
    return m_pictures.pictureSource(folder);
}

void FolderIconTest::withoutAColourTheGreyIsThatOfTheAppearance_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("isDark");
    QTest::addColumn<double>("top");
    QTest::addColumn<double>("bottom");
    QTest::newRow("sidebar, light") << QStringLiteral("thumbnail") << false << 0.68 << 0.48;
    QTest::newRow("sidebar, dark") << QStringLiteral("thumbnail") << true << 0.22 << 0.12;
    QTest::newRow("detail, light") << QStringLiteral("preview") << false << 0.70 << 0.46;
    QTest::newRow("detail, dark") << QStringLiteral("preview") << true << 0.14 << 0.08;
}

void FolderIconTest::withoutAColourTheGreyIsThatOfTheAppearance()
{
    QFETCH(QString, kind);
    QFETCH(bool, isDark);
    QFETCH(double, top);
    QFETCH(double, bottom);
    m_appearance.current = {.isDark = isDark};
    QVERIFY(show(kind));
    QVERIFY(isGrey(1, top));
    QVERIFY(isGrey(198, bottom));
}

void FolderIconTest::theGreyFollowsTheAppearanceLive()
{
    QVERIFY(show(QStringLiteral("thumbnail")));
    QVERIFY(isGrey(1, 0.68));
    m_appearance.change({.isDark = true});
    QVERIFY(isGrey(1, 0.22));
    QVERIFY(isGrey(198, 0.12));
    m_appearance.change({.isDark = false});
    QVERIFY(isGrey(198, 0.48));
}

void FolderIconTest::aColourGoesDownToADarkerOne_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("sidebar") << QStringLiteral("thumbnail");
    QTest::newRow("detail") << QStringLiteral("preview");
}

void FolderIconTest::aColourGoesDownToADarkerOne()
{
    QFETCH(QString, kind);
    QVERIFY(show(kind, {{QStringLiteral("tint"), QStringLiteral("#C86432")}}));
    const QColor top = pixel(100, 1);
    const QColor bottom = pixel(100, 198);
    const auto isNear = [](const QColor &found, double red, double green, double blue) {
        return std::abs(found.red() - red) <= 2 && std::abs(found.green() - green) <= 2
            && std::abs(found.blue() - blue) <= 2;
    };
    QVERIFY2(isNear(top, 200, 100, 50), qPrintable(top.name()));
    QVERIFY2(isNear(bottom, 130, 65, 32.5), qPrintable(bottom.name())); // 35 % nearer to black
}

void FolderIconTest::theAppearanceDoesNotChangeAColour()
{
    QVERIFY(show(QStringLiteral("preview"), {{QStringLiteral("tint"), QStringLiteral("#C86432")}}));
    const QColor before = pixel(100, 198);
    m_appearance.change({.isDark = true});
    QCOMPARE(pixel(100, 198), before);
}

void FolderIconTest::theShapeIsRound()
{
    const QColor behind(0xFF, 0x00, 0xFF);
    QVERIFY(show(QStringLiteral("preview")));
    QCOMPARE(icon()->property("radius").toReal(), 44.0);
    for (const QPoint corner : {QPoint(3, 3), QPoint(196, 3), QPoint(3, 196), QPoint(196, 196)})
        QCOMPARE(pixel(corner.x(), corner.y()), behind);
    QVERIFY(pixel(1, 100) != behind);
}

void FolderIconTest::anEmptyFolderShowsAFolder_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<double>("opacity");
    QTest::newRow("sidebar") << QStringLiteral("thumbnail") << 1.0;
    QTest::newRow("detail") << QStringLiteral("preview") << 0.65;
}

void FolderIconTest::anEmptyFolderShowsAFolder()
{
    QFETCH(QString, kind);
    QVERIFY(show(kind));
    const QQuickItem *const folder = symbol(QStringLiteral("folder.fill"));
    QVERIFY(folder);
    QTEST(folder->opacity(), "opacity");
    QCOMPARE(folder->property("color").value<QColor>(), QColor(Qt::white));
    QVERIFY(!itemGrid());
}

void FolderIconTest::theSymbolGoesBeforeTheItems()
{
    QVERIFY(show(QStringLiteral("preview"),
                 {{QStringLiteral("symbol"), QStringLiteral("star.fill")},
                  {QStringLiteral("urls"), QStringList{QStringLiteral("file:///a")}}}));
    QVERIFY(symbol(QStringLiteral("star.fill")));
    QCOMPARE(symbol(QStringLiteral("star.fill"))->opacity(), 1.0);
    QVERIFY(!itemGrid());
    set("symbol", QString());
    QVERIFY(itemGrid());
    QVERIFY(!symbol(QStringLiteral("folder.fill")));
}

void FolderIconTest::itemsAreShownInAGrid()
{
    QImage red(64, 64, QImage::Format_ARGB32_Premultiplied);
    red.fill(Qt::red);
    m_workspace.icons.insert(FileURL::fromValidText(QStringLiteral("file:///a")), red);
    QVERIFY(show(QStringLiteral("thumbnail"),
                 {{QStringLiteral("urls"), QStringList{QStringLiteral("file:///a")}}}));
    QTRY_COMPARE(pixel(60, 60), QColor(Qt::red)); // the first of two by two
    QVERIFY(pixel(140, 60) != QColor(Qt::red));
    QVERIFY(pixel(60, 140) != QColor(Qt::red));
}

void FolderIconTest::addIcon(const QString &url, Qt::GlobalColor color)
{
    QImage icon(64, 64, QImage::Format_ARGB32_Premultiplied);
    icon.fill(color);
    m_workspace.icons.insert(FileURL::fromValidText(url), icon);
}

QQuickItem *FolderIconTest::formerLook() const
{
    return descendant(icon(), [](const QQuickItem *item) {
        return item->objectName() == QStringLiteral("formerLook");
    });
}

void FolderIconTest::watchFading(int x, int y, QList<QColor> &colors)
{
    connect(formerLook(), &QQuickItem::opacityChanged, this, [this, x, y, &colors] {
        const double opacity = formerLook()->opacity();
        if (opacity > 0.05 && opacity < 0.95)
            colors.append(pixel(x, y));
    });
}

void FolderIconTest::changedItemsFade_data()
{
    const QString a = QStringLiteral("file:///a");
    const QString b = QStringLiteral("file:///b");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("first");
    QTest::addColumn<QVariant>("next");
    QTest::newRow("other items") << QByteArray("urls") << QVariant(QStringList{a, b, b, a})
                                 << QVariant(QStringList{a, b, b, b});
    QTest::newRow("more columns") << QByteArray("columns") << QVariant(1) << QVariant(2);
}

void FolderIconTest::changedItemsFade()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, first);
    QFETCH(QVariant, next);
    addIcon(QStringLiteral("file:///a"), Qt::red);
    addIcon(QStringLiteral("file:///b"), Qt::blue);
    const QStringList urls{QStringLiteral("file:///a"), QStringLiteral("file:///b"),
                           QStringLiteral("file:///b"), QStringLiteral("file:///b")};
    QVariantMap properties{{QStringLiteral("urls"), urls}};
    properties.insert(QString::fromLatin1(property), first);
    QVERIFY(show(QStringLiteral("preview"), properties));
    QTRY_COMPARE(pixel(140, 140), QColor(Qt::red));
    QList<QColor> changing;
    QList<QColor> remaining;
    watchFading(140, 140, changing);
    watchFading(60, 60, remaining);
    // On a machine that is busy otherwise, a fade may be over at its second step.
    for (int attempt = 1; attempt <= 5 && changing.size() < 4; ++attempt) {
        set(property.constData(), next);
        QTRY_COMPARE(pixel(140, 140), QColor(Qt::blue));
        QTRY_VERIFY(!isFading());
        set(property.constData(), first);
        QTRY_COMPARE(pixel(140, 140), QColor(Qt::red));
        QTRY_VERIFY(!isFading());
    }
    QVERIFY(changing.size() >= 4);
    for (const QColor &color : changing)
        QVERIFY2(color.red() > 0 && color.blue() > 0, qPrintable(color.name()));
    for (const QColor &color : remaining) // the grey ground shines through by a quarter at most
        QVERIFY2(color.red() > 225 && color.blue() < 45, qPrintable(color.name()));
}

void FolderIconTest::theFolderOfAnEmptyOneFadesIntoItsFirstItemAndBack()
{
    const QStringList red{QStringLiteral("file:///a")};
    addIcon(red.first(), Qt::red);
    QVERIFY(show(QStringLiteral("preview"), {{QStringLiteral("tint"), QStringLiteral("#000000")}}));
    QVERIFY(symbol(QStringLiteral("folder.fill")));
    QList<QColor> colors; // beside the folder, where the item will be
    watchFading(40, 40, colors);
    // On a machine that is busy otherwise, a fade may be over at its second step.
    for (int attempt = 1; attempt <= 5 && colors.size() < 4; ++attempt) {
        set("urls", red);
        QCOMPARE(pixel(40, 40), QColor(Qt::black)); // no empty grid
        QVERIFY(symbol(QStringLiteral("folder.fill"))); // still
        QTRY_COMPARE(pixel(40, 40), QColor(Qt::red));
        QTRY_VERIFY(!symbol(QStringLiteral("folder.fill")));
        set("urls", QStringList());
        QCOMPARE(pixel(40, 40), QColor(Qt::red));
        QVERIFY(itemGrid()); // still
        QTRY_VERIFY(!itemGrid());
        QCOMPARE(pixel(40, 40), QColor(Qt::black));
        QVERIFY(symbol(QStringLiteral("folder.fill")));
    }
    QVERIFY(colors.size() >= 4);
    for (const QColor &color : colors)
        QVERIFY2(color.red() > 0 && color.green() == 0, qPrintable(color.name()));
}

void FolderIconTest::theFolderOfAnEmptyOneWaitsForTheFirstIcon()
{
    QVERIFY(show(QStringLiteral("preview")));
    icon()->setVisible(false); // so that no icon is loaded
    set("urls", QStringList{QStringLiteral("file:///a")});
    QTest::qWait(100);
    QVERIFY(isFading());
    QCOMPARE(formerLook()->opacity(), 1.0);
    icon()->setVisible(true);
    QTRY_VERIFY(!isFading());
}

void FolderIconTest::nothingFadesFromOrToNoItems_data()
{
    QTest::addColumn<QByteArrayList>("order"); // in which the properties become others
    QTest::addColumn<bool>("reducesMotion");
    QTest::newRow("into another folder") << QByteArrayList{"folder", "urls"} << false;
    QTest::newRow("into another folder, known last") << QByteArrayList{"urls", "folder"} << false;
    QTest::newRow("under a symbol") << QByteArrayList{"symbol", "urls"} << false;
    QTest::newRow("under a picture") << QByteArrayList{"picture", "urls"} << false;
    QTest::newRow("with reduced motion") << QByteArrayList{"urls"} << true;
}

void FolderIconTest::nothingFadesFromOrToNoItems()
{
    QFETCH(QByteArrayList, order);
    QFETCH(bool, reducesMotion);
    m_appearance.change({.reducesMotion = reducesMotion});
    const QVariantMap values{{QStringLiteral("folder"), QStringLiteral("G")},
                             {QStringLiteral("urls"), QStringList{QStringLiteral("file:///a")}},
                             {QStringLiteral("symbol"), QStringLiteral("star.fill")},
                             {QStringLiteral("picture"), pictureOf(pngOf(Qt::green))}};
    QVERIFY(show(QStringLiteral("preview")));
    for (const QByteArray &name : order)
        set(name.constData(), values.value(QString::fromLatin1(name)));
    QVERIFY(!isFading());
}

void FolderIconTest::nothingFadesUnderASymbolOrFromIt()
{
    QVERIFY(
        show(QStringLiteral("preview"), {{QStringLiteral("symbol"), QStringLiteral("star.fill")}}));
    QCoreApplication::processEvents();
    set("urls", QStringList{QStringLiteral("file:///a")});
    QVERIFY(!isFading());
    set("symbol", QString());
    set("urls", QStringList{QStringLiteral("file:///b")});
    QVERIFY(!isFading());
}

// Nor is one folder's look forgotten over another's that looks the same.
void FolderIconTest::anEmptyFolderAfterAnotherFadesToo()
{
    const QStringList red{QStringLiteral("file:///a")};
    QVERIFY(show(QStringLiteral("preview")));
    set("folder", QStringLiteral("G"));
    QCoreApplication::processEvents();
    set("urls", red);
    QVERIFY(isFading());
    QTRY_VERIFY(!isFading());
}

void FolderIconTest::nothingFades_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<bool>("reducesMotion");
    QTest::newRow("into another folder") << QStringLiteral("G") << false;
    QTest::newRow("with reduced motion") << QStringLiteral("F") << true;
}

void FolderIconTest::nothingFades()
{
    QFETCH(QString, folder);
    QFETCH(bool, reducesMotion);
    m_appearance.change({.reducesMotion = reducesMotion});
    addIcon(QStringLiteral("file:///a"), Qt::red);
    addIcon(QStringLiteral("file:///b"), Qt::blue);
    QVERIFY(show(QStringLiteral("preview"),
                 {{QStringLiteral("urls"), QStringList{QStringLiteral("file:///a")}}}));
    QTRY_COMPARE(pixel(60, 60), QColor(Qt::red));
    const QSignalSpy fadings(formerLook(), SIGNAL(activeChanged()));
    set("urls", QStringList{QStringLiteral("file:///b")});
    set("folder", folder);
    QTRY_COMPARE(pixel(60, 60), QColor(Qt::blue));
    QCOMPARE(fadings.count(), 0);
}

void FolderIconTest::nothingFadesInTheSidebar()
{
    addIcon(QStringLiteral("file:///a"), Qt::red);
    addIcon(QStringLiteral("file:///b"), Qt::blue);
    QVERIFY(show(QStringLiteral("thumbnail"),
                 {{QStringLiteral("urls"), QStringList{QStringLiteral("file:///a")}}}));
    QTRY_COMPARE(pixel(60, 60), QColor(Qt::red));
    set("urls", QStringList{QStringLiteral("file:///b")});
    QList<QColor> others;
    const auto isBlue = [&] {
        const QColor color = pixel(60, 60);
        if (color != QColor(Qt::red) && color != QColor(Qt::blue))
            others.append(color);
        return color == QColor(Qt::blue);
    };
    QTRY_VERIFY(isBlue());
    QCOMPARE(others, QList<QColor>());
}

void FolderIconTest::fadingEndsWhenSomethingElseIsShown_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::newRow("another folder") << QByteArray("folder");
    QTest::newRow("a symbol") << QByteArray("symbol");
    QTest::newRow("a picture") << QByteArray("picture");
}

void FolderIconTest::fadingEndsWhenSomethingElseIsShown()
{
    QFETCH(QByteArray, property);
    QVERIFY(show(QStringLiteral("preview")));
    set("urls", QStringList{QStringLiteral("file:///a")});
    QVERIFY(isFading());
    set(property.constData(),
        property == "picture" ? pictureOf(pngOf(Qt::green)) : QStringLiteral("globe"));
    QVERIFY(!isFading());
}

void FolderIconTest::missingItemsAreFaintSquares()
{
    QVERIFY(show(QStringLiteral("thumbnail"),
                 {{QStringLiteral("tint"), QStringLiteral("#000000")},
                  {QStringLiteral("urls"), QStringList{QStringLiteral("file:///a")}}}));
    QTRY_VERIFY(itemGrid());
    const int faint = qRound(0.15 * 255);
    for (const QPoint cell : {QPoint(140, 60), QPoint(60, 140), QPoint(140, 140)})
        QVERIFY(std::abs(pixel(cell.x(), cell.y()).red() - faint) <= 2);
    QCOMPARE(pixel(100, 100), QColor(Qt::black)); // between them
}

void FolderIconTest::thePictureGoesBeforeTheSymbol()
{
    QVERIFY(show(QStringLiteral("preview"),
                 {{QStringLiteral("symbol"), QStringLiteral("star.fill")},
                  {QStringLiteral("picture"), pictureOf(pngOf(Qt::green))}}));
    QTRY_COMPARE(pixel(100, 100), QColor(Qt::green));
    QTRY_COMPARE(pixel(100, 1), QColor(Qt::green)); // it fills the square
    QVERIFY(!symbol(QStringLiteral("star.fill")));
    set("picture", QString());
    QVERIFY(symbol(QStringLiteral("star.fill")));
    QVERIFY(pixel(100, 1) != QColor(Qt::green));
}

void FolderIconTest::aBrokenPictureFallsBack_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<QStringList>("urls");
    QTest::newRow("to the symbol")
        << QStringLiteral("star.fill") << QStringList{QStringLiteral("file:///a")};
    QTest::newRow("to the items") << QString() << QStringList{QStringLiteral("file:///a")};
    QTest::newRow("to the folder") << QString() << QStringList();
}

void FolderIconTest::aBrokenPictureFallsBack()
{
    QFETCH(QString, symbol);
    QFETCH(QStringList, urls);
    QVERIFY(show(QStringLiteral("preview"),
                 {{QStringLiteral("symbol"), symbol},
                  {QStringLiteral("urls"), urls},
                  {QStringLiteral("picture"), pictureOf(QByteArrayLiteral("no picture"))}}));
    if (symbol.isEmpty() && !urls.isEmpty())
        QTRY_VERIFY(itemGrid());
    else
        QTRY_VERIFY(this->symbol(symbol.isEmpty() ? QStringLiteral("folder.fill") : symbol));
}

void FolderIconTest::theNextPictureIsTriedAgain()
{
    QVERIFY(show(QStringLiteral("preview"),
                 {{QStringLiteral("picture"), pictureOf(QByteArrayLiteral("no picture"))}}));
    QTRY_VERIFY(symbol(QStringLiteral("folder.fill")));
    set("picture", pictureOf(pngOf(Qt::green)));
    QTRY_COMPARE(pixel(100, 100), QColor(Qt::green));
    QVERIFY(!symbol(QStringLiteral("folder.fill")));
}

void FolderIconTest::lockedFoldersHaveABadge()
{
    QVERIFY(show(QStringLiteral("thumbnail")));
    QVERIFY(!symbol(QStringLiteral("lock.fill")));
    set("isLocked", true);
    const QQuickItem *const lock = symbol(QStringLiteral("lock.fill"));
    QVERIFY(lock);
    const QPointF place = lock->mapToItem(icon(), QPointF(lock->width() / 2, lock->height() / 2));
    QVERIFY(place.x() > 180);
    QVERIFY(place.y() > 180);
    set("isLocked", false);
    QTRY_VERIFY(!symbol(QStringLiteral("lock.fill")));
}

QTEST_MAIN(FolderIconTest)
#include "tst_foldericon.moc"
