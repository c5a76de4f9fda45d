#include "model/accentcolor.h"

#include <QRegularExpression>
#include <QTest>

class AccentColorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void readsHexText_data();
    void readsHexText();
    void writesHexText_data();
    void writesHexText();
    void everyColorSurvivesBothWays();
};

void AccentColorTest::readsHexText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("expected"); // invalid: no colour
    const QColor blue(0x4f, 0x83, 0xd3);
    QTest::newRow("lower case with a hash") << "#4f83d3" << blue;
    QTest::newRow("upper case without") << "4F83D3" << blue;
    QTest::newRow("hashes on both ends") << "##4F83D3#" << blue;
    QTest::newRow("five digits give none") << "#4F83D" << QColor();
    QTest::newRow("eight digits give none") << "#4F83D3FF" << QColor();
    QTest::newRow("nothing gives none") << "" << QColor();
    QTest::newRow("only hashes give none") << "######" << QColor();
    QTest::newRow("a hash within counts") << "#12#456" << QColor(0, 0, 0x12);
    QTest::newRow("no digit gives none") << "#GGGGGG" << QColor();
    QTest::newRow("stops at the first non-hex digit") << "12ZZZZ" << QColor(0, 0, 0x12);
    QTest::newRow("leading blanks are skipped") << " \t 12F" << QColor(0, 0x01, 0x2f);
    QTest::newRow("a prefix is skipped") << "0x1234" << QColor(0, 0x12, 0x34);
    QTest::newRow("a prefix in upper case too") << "0XABCD" << QColor(0, 0xab, 0xcd);
    QTest::newRow("blanks before a prefix") << " 0xABC" << QColor(0, 0x0a, 0xbc);
    QTest::newRow("a prefix without digits is zero") << "0xZZZZ" << QColor(0, 0, 0);
    QTest::newRow("only blanks give none") << "      " << QColor();
    QTest::newRow("a sign gives none") << "-12345" << QColor();
    QTest::newRow("digits of other scripts give none") << QStringLiteral("١٢٣٤٥٦") << QColor();
}

void AccentColorTest::readsHexText()
{
    QFETCH(QString, text);
    QFETCH(QColor, expected);
    QCOMPARE(colorFromHexText(text).value_or(QColor()), expected);
}

void AccentColorTest::writesHexText_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QString>("expected");
    QTest::newRow("six upper-case digits") << QColor(0xab, 0x0c, 0xef) << "#AB0CEF";
    QTest::newRow("opacity is dropped") << QColor(1, 2, 3, 4) << "#010203";
    QTest::newRow("another colour model is converted")
        << QColor::fromHsv(120, 255, 255) << "#00FF00";
    QTest::newRow("a component goes to the nearest number")
        << QColor::fromRgbF(0.4999F, 0.501F, 0.999F) << "#7F80FF";
    QTest::newRow("beyond sRGB it is cut off") << QColor::fromRgbF(1.5F, -0.5F, 0.5F) << "#FF0080";
    QTest::newRow("no colour gives the default") << QColor() << "#4F83D3";
}

void AccentColorTest::writesHexText()
{
    QFETCH(QColor, color);
    QFETCH(QString, expected);
    QCOMPARE(hexTextFromColor(color), expected);
}

void AccentColorTest::everyColorSurvivesBothWays()
{
    for (int value = 0; value < 0x1000000; value += 0x10307) {
        const QString text = QString::asprintf("#%06X", unsigned(value));
        QCOMPARE(hexTextFromColor(colorFromHexText(text).value()), text);
    }
}

QTEST_APPLESS_MAIN(AccentColorTest)
#include "tst_accentcolor.moc"
