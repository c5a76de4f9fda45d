#include "platform/portable/symbolfont.h"
#include "platform/portable/symboloutlines.h"
#include "platform/symbolimages.h"

#include <QTest>

#include <array>

namespace {

// All that the window and its pickers show.
constexpr auto shownSymbols = std::to_array<const char *>({"plus",
                                                           "ellipsis.circle",
                                                           "square.stack.3d.up",
                                                           "arrow.counterclockwise",
                                                           "folder",
                                                           "folder.fill",
                                                           "lock.fill",
                                                           "checkmark.circle.fill",
                                                           "circle",
                                                           "finder",
                                                           "trash",
                                                           "tray",
                                                           "arrow.down.circle.fill",
                                                           "xmark.circle.fill",
                                                           "star.fill",
                                                           "briefcase.fill",
                                                           "house.fill",
                                                           "heart.fill",
                                                           "book.fill",
                                                           "gamecontroller.fill",
                                                           "music.note",
                                                           "photo.fill",
                                                           "doc.fill",
                                                           "terminal.fill",
                                                           "cart.fill",
                                                           "airplane",
                                                           "person.fill",
                                                           "globe",
                                                           "gear",
                                                           "cloud.fill",
                                                           "square.grid.2x2",
                                                           "photo.badge.plus",
                                                           "checkmark",
                                                           "eyedropper",
                                                           "paintbrush",
                                                           "magnifyingglass",
                                                           "exclamationmark.triangle.fill",
                                                           "arrow.up.right.square",
                                                           "xmark",
                                                           "chevron.left",
                                                           "chevron.right",
                                                           "chevron.down",
                                                           "a.circle",
                                                           "questionmark.square"});

QImage drawn(const QString &name, const SymbolLook &look, int side)
{
    return symbolImage(name, look, QSize(side, side));
}

// What is drawn in all pixels together, a wholly covered one being 1.
qreal ink(const QImage &image)
{
    qreal sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            sum += qAlpha(image.pixel(x, y)) / 255.0;
    }
    return sum;
}

// The part with something in it, to a fraction of a pixel: faint edges count by their faintness.
QRectF inkedPart(const QImage &image)
{
    const auto most = [&](auto &&alphaAt, int count) {
        int greatest = 0;
        for (int i = 0; i < count; ++i)
            greatest = std::max(greatest, qAlpha(alphaAt(i)));
        return greatest / 255.0;
    };
    QRectF part;
    for (int x = 0; x < image.width(); ++x) {
        const qreal part1 = most([&](int y) { return image.pixel(x, y); }, image.height());
        if (part1 > 0)
            part |= QRectF(part.isNull() ? x + 1 - part1 : x, 0, part1, 1);
    }
    QRectF rows;
    for (int y = 0; y < image.height(); ++y) {
        const qreal part1 = most([&](int x) { return image.pixel(x, y); }, image.width());
        if (part1 > 0)
            rows |= QRectF(0, rows.isNull() ? y + 1 - part1 : y, 1, part1);
    }
    return {part.x(), rows.y(), part.width(), rows.height()};
}

bool isBorderEmpty(const QImage &image)
{
    const int last = image.width() - 1;
    for (int i = 0; i <= last; ++i) {
        for (const QPoint &point : {QPoint(i, 0), QPoint(i, last), QPoint(0, i), QPoint(last, i)}) {
            if (qAlpha(image.pixel(point)) != 0)
                return false;
        }
    }
    return true;
}

} // namespace

class SymbolImagesTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void drawsEverySymbolInTheMiddle_data();
    void drawsEverySymbolInTheMiddle();
    void otherNamesGiveNothing_data();
    void otherNamesGiveNothing();
    void namesGlyphs_data();
    void namesGlyphs();
    void readsNamesOfDamagedFonts();
    void takesTheColorWithItsOpacity();
    void drawsAMarkInAColorOfItsOwn();
    void onlyMarksOnShapesHaveTwoColors();
    void heavierWeightsHaveMoreInk_data();
    void heavierWeightsHaveMoreInk();
    void thinLinesAreNotSpreadOverPixels();
    void noPixelsGiveNothing();
};

void SymbolImagesTest::drawsEverySymbolInTheMiddle_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : shownSymbols)
        QTest::newRow(name) << QString::fromLatin1(name);
}

void SymbolImagesTest::drawsEverySymbolInTheMiddle()
{
    QFETCH(QString, name);
    for (const qreal ratio : {1.0, 1.5, 2.0}) {
        for (const int size : {11, 13, 22, 64}) {
            const SymbolLook look{
                .pointSize = qreal(size), .pixelRatio = ratio, .color = Qt::black};
            const int side = qCeil(1.6 * size * ratio);
            const QImage image = drawn(name, look, side);
            QCOMPARE(image.size(), QSize(side, side));
            QCOMPARE(image.devicePixelRatio(), ratio);
            QVERIFY(isBorderEmpty(image));
            const QRectF part = inkedPart(image);
            QVERIFY(std::max(part.width(), part.height()) > 0.8 * size * ratio);
            QVERIFY(std::max(part.width(), part.height()) < 1.5 * size * ratio);
            const QPointF away = part.center() - QPointF(side, side) / 2;
            QVERIFY2(std::abs(away.x()) <= 0.8, qPrintable(QString::number(away.x())));
            QVERIFY2(std::abs(away.y()) <= 0.8, qPrintable(QString::number(away.y())));
        }
    }
}

void SymbolImagesTest::otherNamesGiveNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << QString();
    QTest::newRow("unknown") << QStringLiteral("no.such.symbol");
    QTest::newRow("the font's own name") << QStringLiteral("folder_fill");
    QTest::newRow("capitals") << QStringLiteral("Folder.Fill");
    QTest::newRow("a letter of the font") << QStringLiteral("a");
    QTest::newRow("two names") << QStringLiteral("folder folder");
    QTest::newRow("the start of a name") << QStringLiteral("folder.fil");
    QTest::newRow("markup") << QStringLiteral("<b>folder</b>");
    QTest::newRow("beyond ASCII") << QStringLiteral("folder.f\u0131ll");
    QTest::newRow("a picture character") << QStringLiteral("\U0001F4C1");
    QTest::newRow("dots") << QStringLiteral("...");
}

void SymbolImagesTest::otherNamesGiveNothing()
{
    QFETCH(QString, name);
    QVERIFY(drawn(name, {.color = Qt::black}, 21).isNull());
}

void SymbolImagesTest::namesGlyphs_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("glyph");
    QTest::newRow("one word") << QStringLiteral("folder") << QByteArray("folder");
    QTest::newRow("dots") << QStringLiteral("square.grid.2x2") << QByteArray("square_grid_2x2");
    QTest::newRow("magnifying glass")
        << QStringLiteral("magnifyingglass.circle") << QByteArray("search_circle");
    QTest::newRow("question mark")
        << QStringLiteral("questionmark.square") << QByteArray("question_square");
    QTest::newRow("no name") << QStringLiteral("question_square") << QByteArray();
}

void SymbolImagesTest::namesGlyphs()
{
    QFETCH(QString, name);
    QTEST(symbolGlyphName(name), "glyph");
}

void SymbolImagesTest::readsNamesOfDamagedFonts()
{
    QVERIFY(glyphsByName({}).isEmpty());
    QVERIFY(glyphsByName(QByteArray(33, '\x7f')).isEmpty());
    QByteArray table(32, '\0');
    table += QByteArray("\0\2\0\x0e\1\2\5plus", 11); // two glyphs: "plus", a name cut short
    const QHash<QByteArray, quint32> expected{{"plus", 0}};
    QCOMPARE(glyphsByName(table.left(38)), expected);
    table.replace(38, 5, QByteArray("\4gear", 5));
    QCOMPARE(glyphsByName(table), (QHash<QByteArray, quint32>{{"plus", 0}, {"gear", 1}}));
}

void SymbolImagesTest::takesTheColorWithItsOpacity()
{
    const QColor color(0, 255, 255, 128);
    const QImage image
        = drawn(QStringLiteral("folder.fill"), {.weight = QFont::Bold, .color = color}, 21);
    int greatest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            greatest = std::max(greatest, qAlpha(image.pixel(x, y)));
    }
    QCOMPARE(greatest, 128);
    QCOMPARE(image.pixelColor(10, 12).rgb(), color.rgb());
}

void SymbolImagesTest::drawsAMarkInAColorOfItsOwn()
{
    const SymbolLook look{.pointSize = 40, .color = Qt::white, .secondaryColor = Qt::gray};
    const QImage image = drawn(QStringLiteral("xmark.circle.fill"), look, 64);
    QCOMPARE(image.pixelColor(32, 32), QColor(Qt::white));
    QCOMPARE(image.pixelColor(32, 16), QColor(Qt::gray));
    const QImage plain
        = drawn(QStringLiteral("xmark.circle.fill"), {.pointSize = 40, .color = Qt::white}, 64);
    QCOMPARE(qAlpha(plain.pixel(32, 32)), 0); // cut out
    QCOMPARE(plain.pixelColor(32, 16), QColor(Qt::white));
}

void SymbolImagesTest::onlyMarksOnShapesHaveTwoColors()
{
    for (const char *name : {"lock.fill", "circle", "trash", "star.fill", "finder"}) {
        const SymbolLook plain{.pointSize = 40, .color = Qt::white};
        SymbolLook colored = plain;
        colored.secondaryColor = Qt::red;
        QCOMPARE(drawn(QLatin1StringView(name), colored, 64),
                 drawn(QLatin1StringView(name), plain, 64));
    }
}

void SymbolImagesTest::heavierWeightsHaveMoreInk_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"plus", "folder", "checkmark", "ellipsis.circle", "chevron.right"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void SymbolImagesTest::heavierWeightsHaveMoreInk()
{
    QFETCH(QString, name);
    qreal last = 0;
    for (const QFont::Weight weight :
         {QFont::Thin, QFont::Light, QFont::Normal, QFont::Medium, QFont::DemiBold, QFont::Bold}) {
        const qreal now = ink(drawn(name, {.weight = weight, .color = Qt::black}, 21));
        QVERIFY(now > last * 1.03);
        last = now;
    }
}

void SymbolImagesTest::thinLinesAreNotSpreadOverPixels()
{
    for (const int size : {11, 13, 15, 17}) {
        for (const int side : {28, 29}) {
            const QImage image = drawn(QStringLiteral("plus"),
                                       {.pointSize = qreal(size), .color = Qt::black}, side);
            const auto isFull = [&](int x) { return qAlpha(image.pixel(x, side / 2 - 3)) > 180; };
            QVERIFY2(isFull(side / 2) || isFull(side / 2 - 1),
                     qPrintable(QStringLiteral("%1 in %2").arg(size).arg(side)));
        }
    }
}

void SymbolImagesTest::noPixelsGiveNothing()
{
    QVERIFY(drawn(QStringLiteral("plus"), {.color = Qt::black}, 0).isNull());
}

QTEST_MAIN(SymbolImagesTest)
#include "tst_symbolimages.moc"
