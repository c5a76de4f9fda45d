#include "model/uuidtext.h"

#include <QRegularExpression>
#include <QTest>

class UUIDTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void writesUpperCase();
    void readsEitherCase();
    void readsWhatItWrites();
    void refusesOtherTexts_data();
    void refusesOtherTexts();
};

namespace {
const QUuid id(0x0123abcd, 0x4567, 0x89ef, 0xfe, 0xdc, 0xba, 0x98, 0x76, 0x54, 0x32, 0x10);
const QString canonical = QStringLiteral("0123ABCD-4567-89EF-FEDC-BA9876543210");
} // namespace

void UUIDTextTest::writesUpperCase()
{
    QCOMPARE(uuidText(id), canonical);
    QCOMPARE(uuidText(QUuid()), QStringLiteral("00000000-0000-0000-0000-000000000000"));
}

void UUIDTextTest::readsEitherCase()
{
    QCOMPARE(uuidFromText(canonical), std::optional(id));
    QCOMPARE(uuidFromText(canonical.toLower()), std::optional(id));
    QCOMPARE(uuidFromText(QByteArrayView(canonical.toLower().toLatin1())), std::optional(id));
}

void UUIDTextTest::readsWhatItWrites()
{
    for (int i = 0; i < 1000; ++i) {
        const QUuid random = QUuid::createUuid();
        QCOMPARE(uuidText(random), random.toString(QUuid::WithoutBraces).toUpper());
        QCOMPARE(uuidFromText(uuidText(random)), std::optional(random));
    }
}

void UUIDTextTest::refusesOtherTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("braces") << u'{' + canonical + u'}';
    QTest::newRow("braces of the right length") << u'{' + canonical.mid(1, 34) + u'}';
    QTest::newRow("a blank before") << u' ' + canonical;
    QTest::newRow("a blank behind") << canonical + u' ';
    QTest::newRow("one digit less") << canonical.chopped(1);
    QTest::newRow("one digit more") << canonical + u'0';
    QTest::newRow("no hyphens") << canonical.toLower().remove(u'-');
    QTest::newRow("a hyphen elsewhere") << "0123ABC-D4567-89EF-FEDC-BA9876543210";
    QTest::newRow("another letter") << QString(canonical).replace(u'A', u'G');
    QTest::newRow("a digit of another script") << QString(canonical).replace(u'0', QChar(0x0660));
    QTest::newRow("a wide letter") << QString(canonical).replace(u'A', QChar(0x0141));
    QTest::newRow("a sign") << QString(canonical).replace(0, 1, u'+');
}

void UUIDTextTest::refusesOtherTexts()
{
    QFETCH(QString, text);
    QVERIFY(!uuidFromText(text));
    QVERIFY(!uuidFromText(QByteArrayView(text.toUtf8())));
}

QTEST_APPLESS_MAIN(UUIDTextTest)
#include "tst_uuidtext.moc"
