#include "model/accentcolor.h"
#include "ui/appearanceoptions.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <cmath>

class AppearanceOptionsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void offersTheSymbolsInTheirOrder();
    void offersThirteenColors();
    void everyCellHasANameOfItsOwn();
    void findsTheSymbolCell_data();
    void findsTheSymbolCell();
    void aSymbolCellGivesWhatItShows();
    void findsTheColorCell_data();
    void findsTheColorCell();
    void onlyPaletteCellsHaveAColor();
    void writesColorsPlainly_data();
    void writesColorsPlainly();
    void whiteIsVisibleOnEveryGround_data();
    void whiteIsVisibleOnEveryGround();
    void darkColorsNeedNoGround();
    void findsTheGridCell_data();
    void findsTheGridCell();
};

void AppearanceOptionsTest::offersTheSymbolsInTheirOrder()
{
    const QString expected = QStringLiteral(
        "star.fill briefcase.fill house.fill heart.fill book.fill gamecontroller.fill music.note "
        "photo.fill doc.fill terminal.fill cart.fill airplane person.fill globe gear cloud.fill");
    QCOMPARE(AppearanceOptions::offeredSymbols().join(u' '), expected);
    QCOMPARE(AppearanceOptions::symbolCellCount(), 18);
}

void AppearanceOptionsTest::offersThirteenColors()
{
    const QString expected
        = QStringLiteral("#4F83D3 #E05757 #4DAE72 #E0933C #9B6DD4 #D45FA0 #3DAEC0 #7A6640 "
                         "#2D7D9A #5B8C5A #C4A35A #8B5E3C #6B7B8D");
    QCOMPARE(AppearanceOptions::extendedPalette().join(u' '), expected);
    QCOMPARE(AppearanceOptions::colorCellCount(), 15);
}

void AppearanceOptionsTest::everyCellHasANameOfItsOwn()
{
    const auto distinctNames = [](int count, QString (*name)(int)) {
        QSet<QString> names;
        for (int cell = 0; cell < count; ++cell)
            names.insert(name(cell));
        names.remove(QString());
        return int(names.size());
    };
    QCOMPARE(distinctNames(18, &AppearanceOptions::symbolName), 18);
    QCOMPARE(distinctNames(15, &AppearanceOptions::colorName), 15);
    QCOMPARE(distinctNames(4, &AppearanceOptions::gridName), 4);
    QCOMPARE(AppearanceOptions::symbolName(0), QStringLiteral("No symbol (show app grid)"));
    QCOMPARE(AppearanceOptions::symbolName(17), QStringLiteral("Load custom image…"));
    QCOMPARE(AppearanceOptions::colorName(0), QStringLiteral("Blue"));
    QCOMPARE(AppearanceOptions::colorName(13), QStringLiteral("Custom Color…"));
    QCOMPARE(AppearanceOptions::colorName(14), QStringLiteral("Automatic"));
    QCOMPARE(AppearanceOptions::gridName(0), QStringLiteral("Auto"));
    QCOMPARE(AppearanceOptions::gridName(1), QStringLiteral("2 × 2"));
}

void AppearanceOptionsTest::findsTheSymbolCell_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<bool>("hasCustomIcon");
    QTest::addColumn<int>("cell");
    QTest::newRow("no symbol") << QString() << false << 0;
    QTest::newRow("the first") << QStringLiteral("star.fill") << false << 1;
    QTest::newRow("the last") << QStringLiteral("cloud.fill") << false << 16;
    QTest::newRow("one that is not offered") << QStringLiteral("leaf.fill") << false << -1;
    QTest::newRow("a custom image") << QString() << true << 17;
    QTest::newRow("a custom image and a symbol") << QStringLiteral("star.fill") << true << 17;
}

void AppearanceOptionsTest::findsTheSymbolCell()
{
    QFETCH(QString, symbol);
    QFETCH(bool, hasCustomIcon);
    QTEST(AppearanceOptions::symbolCell(symbol, hasCustomIcon), "cell");
}

void AppearanceOptionsTest::aSymbolCellGivesWhatItShows()
{
    QCOMPARE(AppearanceOptions::symbolShown(0), QStringLiteral("square.grid.2x2"));
    QCOMPARE(AppearanceOptions::symbolValue(0), QString());
    QCOMPARE(AppearanceOptions::symbolShown(17), QStringLiteral("photo.badge.plus"));
    QCOMPARE(AppearanceOptions::symbolValue(17), QString());
    for (int cell = 1; cell <= 16; ++cell) {
        const QString symbol = AppearanceOptions::symbolValue(cell);
        QCOMPARE(AppearanceOptions::symbolShown(cell), symbol);
        QCOMPARE(AppearanceOptions::symbolCell(symbol, false), cell);
    }
}

void AppearanceOptionsTest::findsTheColorCell_data()
{
    QTest::addColumn<QString>("hex");
    QTest::addColumn<int>("cell");
    QTest::newRow("none") << QString() << 14;
    QTest::newRow("a base colour") << QStringLiteral("#4F83D3") << 0;
    QTest::newRow("the last") << QStringLiteral("#6B7B8D") << 12;
    QTest::newRow("in lower case") << QStringLiteral("#4f83d3") << 0;
    QTest::newRow("without the sign") << QStringLiteral("E05757") << 1;
    QTest::newRow("one beside the palette") << QStringLiteral("#4F83D4") << 13;
    QTest::newRow("black") << QStringLiteral("#000000") << 13;
    QTest::newRow("a text that is no colour") << QStringLiteral("blue") << 13;
}

void AppearanceOptionsTest::findsTheColorCell()
{
    QFETCH(QString, hex);
    QFETCH(int, cell);
    QCOMPARE(AppearanceOptions::colorCell(hex), cell);
}

void AppearanceOptionsTest::onlyPaletteCellsHaveAColor()
{
    QCOMPARE(AppearanceOptions::colorValue(12), QStringLiteral("#6B7B8D"));
    QCOMPARE(AppearanceOptions::colorValue(13), QString());
    QCOMPARE(AppearanceOptions::colorValue(14), QString());
}

void AppearanceOptionsTest::writesColorsPlainly_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("plain");
    QTest::newRow("plain") << QStringLiteral("#0A0B0C") << QStringLiteral("#0A0B0C");
    QTest::newRow("lower case") << QStringLiteral("#0a0b0c") << QStringLiteral("#0A0B0C");
    QTest::newRow("hashes on both ends") << QStringLiteral("#0a0b0c#") << QStringLiteral("#0A0B0C");
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("no colour") << QStringLiteral("#GGGGGG") << QString();
}

void AppearanceOptionsTest::writesColorsPlainly()
{
    QFETCH(QString, text);
    QTEST(AppearanceOptions::plainHex(text), "plain");
}

void AppearanceOptionsTest::whiteIsVisibleOnEveryGround_data()
{
    QTest::addColumn<QString>("hex");
    for (const QString &hex : AppearanceOptions::extendedPalette())
        QTest::newRow(qPrintable(hex)) << hex;
    for (const char *hex : {"#FFFFFF", "#FFFF00", "#00FFFF", "#F5F5DC"})
        QTest::newRow(hex) << QString::fromLatin1(hex);
}

void AppearanceOptionsTest::whiteIsVisibleOnEveryGround()
{
    QFETCH(QString, hex);
    const QColor color = colorFromHexText(hex).value();
    const double share = 1 - AppearanceOptions::groundOpacity(hex);
    const auto linear = [&](float component) {
        const double shown = double(component) * share;
        return shown <= 0.04045 ? shown / 12.92 : std::pow((shown + 0.055) / 1.055, 2.4);
    };
    const double luminance = 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
        + 0.0722 * linear(color.blueF());
    QVERIFY(1.05 / (luminance + 0.05) >= 3.0);
    QVERIFY(share >= 0.5); // the colour is still seen
}

void AppearanceOptionsTest::darkColorsNeedNoGround()
{
    QCOMPARE(AppearanceOptions::groundOpacity(QStringLiteral("#4F83D3")), 0.0);
    QCOMPARE(AppearanceOptions::groundOpacity(QStringLiteral("#000000")), 0.0);
}

void AppearanceOptionsTest::findsTheGridCell_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("cell");
    QTest::newRow("automatic") << 0 << 0;
    QTest::newRow("two") << 2 << 1;
    QTest::newRow("three") << 3 << 2;
    QTest::newRow("four") << 4 << 3;
    QTest::newRow("one, by another program") << 1 << -1;
    QTest::newRow("many, by another program") << 12 << -1;
}

void AppearanceOptionsTest::findsTheGridCell()
{
    QFETCH(int, columns);
    QFETCH(int, cell);
    QCOMPARE(AppearanceOptions::gridCell(columns), cell);
    if (cell >= 0)
        QCOMPARE(AppearanceOptions::gridValue(cell), columns);
}

QTEST_GUILESS_MAIN(AppearanceOptionsTest)
#include "tst_appearanceoptions.moc"
