#include "ui/colorcomponents.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

class ColorComponentsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void everyColorComesBackAsItWas();
    void showsWithoutEditing();
    void withoutAColorItShowsTheFirstOfThePalette_data();
    void withoutAColorItShowsTheFirstOfThePalette();
    void componentsGiveTheNearestColor_data();
    void componentsGiveTheNearestColor();
    void staysInsideItsBounds();
    void tellsOfAnotherColorOnly();
    void greyKeepsItsHueAndBlackItsSaturation();
    void aColorThatComesBackKeepsTheFinerValues();
    void readsHexTexts_data();
    void readsHexTexts();
};

void ColorComponentsTest::everyColorComesBackAsItWas()
{
    ColorComponents color;
    for (uint value = 0; value <= 0xffffff; value += 0x010307) { // every part in many steps
        const QString hex = QString::asprintf("#%06X", value);
        color.show(hex);
        if (color.hex() != hex)
            QCOMPARE(color.hex(), hex);
    }
    color.show(QStringLiteral("#FFFFFF"));
    QCOMPARE(color.hex(), QStringLiteral("#FFFFFF"));
}

void ColorComponentsTest::showsWithoutEditing()
{
    ColorComponents color;
    const QSignalSpy edited(&color, &ColorComponents::edited);
    color.show(QStringLiteral("#00ff00"));
    QCOMPARE(color.hex(), QStringLiteral("#00FF00"));
    QCOMPARE(qRound(color.hue()), 120);
    QCOMPARE(qRound(color.saturation()), 100);
    QCOMPARE(qRound(color.brightness()), 100);
    QCOMPARE(edited.count(), 0);
}

void ColorComponentsTest::withoutAColorItShowsTheFirstOfThePalette_data()
{
    QTest::addColumn<QString>("hex");
    QTest::newRow("none") << QString();
    QTest::newRow("a text that is no colour") << QStringLiteral("#12345");
}

void ColorComponentsTest::withoutAColorItShowsTheFirstOfThePalette()
{
    QFETCH(QString, hex);
    ColorComponents color;
    color.show(hex);
    QCOMPARE(color.hex(), QStringLiteral("#4F83D3"));
}

void ColorComponentsTest::componentsGiveTheNearestColor_data()
{
    QTest::addColumn<qreal>("hue");
    QTest::addColumn<qreal>("saturation");
    QTest::addColumn<qreal>("brightness");
    QTest::addColumn<QString>("hex");
    const auto add
        = [](const char *name, qreal hue, qreal saturation, qreal brightness, const char *hex) {
              QTest::newRow(name) << hue << saturation << brightness << QString::fromLatin1(hex);
          };
    add("red", 0, 100, 100, "#FF0000");
    add("green", 120, 100, 100, "#00FF00");
    add("blue", 240, 100, 100, "#0000FF");
    add("the end of the strip is its beginning", 360, 100, 100, "#FF0000");
    add("yellow", 60, 100, 100, "#FFFF00");
    add("white", 200, 0, 100, "#FFFFFF");
    add("black", 200, 70, 0, "#000000");
    add("half grey is rounded up", 0, 0, 50, "#808080");
    add("a tenth", 0, 0, 10, "#1A1A1A");
}

void ColorComponentsTest::componentsGiveTheNearestColor()
{
    QFETCH(qreal, hue);
    QFETCH(qreal, saturation);
    QFETCH(qreal, brightness);
    ColorComponents color;
    color.setHue(hue);
    color.setSaturationAndBrightness(saturation, brightness);
    QTEST(color.hex(), "hex");
}

void ColorComponentsTest::staysInsideItsBounds()
{
    ColorComponents color;
    color.setHue(400);
    color.setSaturation(-5);
    color.setBrightness(120);
    QCOMPARE(color.hue(), 360.0);
    QCOMPARE(color.saturation(), 0.0);
    QCOMPARE(color.brightness(), 100.0);
}

void ColorComponentsTest::tellsOfAnotherColorOnly()
{
    ColorComponents color;
    color.show(QStringLiteral("#FF0000"));
    const QSignalSpy edited(&color, &ColorComponents::edited);
    color.setHue(120);
    QCOMPARE(edited.count(), 1);
    QCOMPARE(edited.first().first().toString(), QStringLiteral("#00FF00"));
    color.setHue(120.01);
    QCOMPARE(edited.count(), 1);
    QVERIFY(color.setHexText(QStringLiteral("00ff00")));
    QCOMPARE(edited.count(), 1);
}

void ColorComponentsTest::greyKeepsItsHueAndBlackItsSaturation()
{
    ColorComponents color;
    color.show(QStringLiteral("#0000FF"));
    color.setSaturation(0);
    QCOMPARE(qRound(color.hue()), 240);
    color.setSaturation(100);
    QCOMPARE(color.hex(), QStringLiteral("#0000FF"));
    color.setBrightness(0);
    QCOMPARE(color.hex(), QStringLiteral("#000000"));
    color.show(QStringLiteral("#000000"));
    color.setBrightness(100);
    QCOMPARE(color.hex(), QStringLiteral("#0000FF"));
    QVERIFY(color.setHexText(QStringLiteral("#808080")));
    QCOMPARE(qRound(color.hue()), 240);
}

void ColorComponentsTest::aColorThatComesBackKeepsTheFinerValues()
{
    ColorComponents color;
    color.setHue(200.123);
    color.setSaturationAndBrightness(33.3, 44.4);
    const QSignalSpy changed(&color, &ColorComponents::changed);
    color.show(color.hex().toLower());
    QCOMPARE(color.hue(), 200.123);
    QCOMPARE(color.saturation(), 33.3);
    QCOMPARE(changed.count(), 0);
}

void ColorComponentsTest::readsHexTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("hex"); // empty: is refused
    QTest::newRow("as shown") << QStringLiteral("#12AB34") << QStringLiteral("#12AB34");
    QTest::newRow("lower case") << QStringLiteral("12ab34") << QStringLiteral("#12AB34");
    QTest::newRow("blanks around") << QStringLiteral("  #12ab34 ") << QStringLiteral("#12AB34");
    QTest::newRow("five digits") << QStringLiteral("#12AB3") << QString();
    QTest::newRow("eight digits") << QStringLiteral("#12AB34FF") << QString();
    QTest::newRow("other characters") << QStringLiteral("12ZZZZ") << QString();
    QTest::newRow("nothing") << QString() << QString();
}

void ColorComponentsTest::readsHexTexts()
{
    QFETCH(QString, text);
    QFETCH(QString, hex);
    ColorComponents color;
    color.show(QStringLiteral("#FF0000"));
    const QSignalSpy edited(&color, &ColorComponents::edited);
    QCOMPARE(color.setHexText(text), !hex.isEmpty());
    QCOMPARE(color.hex(), hex.isEmpty() ? QStringLiteral("#FF0000") : hex);
    QCOMPARE(edited.count(), hex.isEmpty() ? 0 : 1);
}

QTEST_GUILESS_MAIN(ColorComponentsTest)
#include "tst_colorcomponents.moc"
