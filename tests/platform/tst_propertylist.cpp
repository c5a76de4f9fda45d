#include "platform/error.h"
#include "platform/propertylist.h"

#include <QDateTime>
#include <QRandomGenerator>
#include <QStringEncoder>
#include <QTest>
#include <QTimeZone>
#include <QVariantMap>

#include <cmath>
#include <limits>
#include <ranges>

namespace {

QByteArray document(const QByteArray &body)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + body
        + "</plist>";
}

QVariant parsed(const QByteArray &bytes)
{
    return parsePropertyList(bytes, QStringLiteral("/x.plist"));
}

bool isRefused(const QByteArray &bytes)
{
    try {
        const QVariant value = parsed(bytes);
        return false;
    } catch (const PlatformError &error) {
        return error.description().contains(QStringLiteral("/x.plist"));
    }
}

QVariantMap sample()
{
    QVariantMap map;
    map[QStringLiteral("text")] = QStringLiteral("a & b < c > \" ' \t\n\r äé e\u0301 \U0001F600");
    map[QStringLiteral("empty text")] = QString(QLatin1StringView(""));
    map[QStringLiteral("yes")] = true;
    map[QStringLiteral("no")] = false;
    map[QStringLiteral("zero")] = qint64{0};
    map[QStringLiteral("negative")] = qint64{-5};
    map[QStringLiteral("smallest")] = std::numeric_limits<qint64>::min();
    map[QStringLiteral("largest")] = std::numeric_limits<qint64>::max();
    map[QStringLiteral("above signed")] = std::numeric_limits<quint64>::max();
    map[QStringLiteral("tenth")] = 0.1;
    map[QStringLiteral("huge")] = 1.7976931348623157e308;
    map[QStringLiteral("tiny")] = -5e-324;
    map[QStringLiteral("whole real")] = 3.0;
    map[QStringLiteral("infinite")] = -std::numeric_limits<double>::infinity();
    map[QStringLiteral("date")] = QDateTime({2024, 5, 1}, {12, 30, 59}, Qt::UTC);
    map[QStringLiteral("old date")] = QDateTime({1850, 1, 1}, {0, 0}, Qt::UTC);
    map[QStringLiteral("late date")] = QDateTime({2150, 1, 1}, {0, 0}, Qt::UTC);
    map[QStringLiteral("data")] = QByteArray("\0\1\2\xff", 4);
    map[QStringLiteral("long data")] = QByteArray(1000, 'x');
    map[QStringLiteral("no data")] = QByteArray("");
    map[QStringLiteral("empty dictionary")] = QVariantMap();
    map[QStringLiteral("empty array")] = QVariantList();
    map[QStringLiteral("array")]
        = QVariantList{qint64{1}, QStringLiteral("two"), 3.5,
                       QVariantList{QVariantMap{{QStringLiteral("k"), true}}}};
    map[QStringLiteral("many")] = QVariantList(300, QVariant(qint64{7}));
    map[QString()] = QStringLiteral("under no name");
    return map;
}

QVariant nested(int depth)
{
    QVariant value = true;
    for (int i = 0; i < depth; ++i)
        value = QVariantList{value};
    return value;
}

QByteArray bigEndian(quint64 value, int size)
{
    QByteArray bytes;
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
        bytes.append(static_cast<char>(value >> static_cast<unsigned>(shift)));
    return bytes;
}

// A binary list of objects that the test spells out, with four-byte offsets and references.
QByteArray binary(const QList<QByteArray> &objects)
{
    QByteArray bytes = "bplist00";
    QByteArray table;
    for (const QByteArray &object : objects) {
        table += bigEndian(static_cast<quint64>(bytes.size()), 4);
        bytes += object;
    }
    const auto tableStart = static_cast<quint64>(bytes.size());
    return bytes + table + QByteArray(6, '\0') + "\4\4"
        + bigEndian(static_cast<quint64>(objects.size()), 8) + bigEndian(0, 8)
        + bigEndian(tableStart, 8);
}

QByteArray arrayOf(const QList<quint64> &references)
{
    QByteArray object(1, static_cast<char>(0xa0 | references.size()));
    for (const quint64 reference : references)
        object += bigEndian(reference, 4);
    return object;
}

} // namespace

class PropertyListTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void comesBackAsItWas_data();
    void comesBackAsItWas();
    void equalValuesGiveEqualBytes();
    void keysAreInOrder();
    void readsScalars_data();
    void readsScalars();
    void refuses_data();
    void refuses();
    void readsReferencesOfKeyedArchives();
    void knowsNoLocale();
    void readsOtherEncodings();
    void leavesOutWhatXMLCannotHold();
    void refusesTypesItDoesNotKnow();
    void deepValuesAreRefusedNotCrashedOn();
    void sharedObjectsCannotExplode();
    void objectsThatHoldThemselvesAreRefused();
    void damageNeverCrashes_data();
    void damageNeverCrashes();
    void truncationIsRefused();
};

void PropertyListTest::comesBackAsItWas_data()
{
    QTest::addColumn<PropertyListFormat>("format");
    QTest::newRow("XML") << PropertyListFormat::XML;
    QTest::newRow("binary") << PropertyListFormat::Binary;
}

void PropertyListTest::comesBackAsItWas()
{
    QFETCH(PropertyListFormat, format);
    const QVariantMap expected = sample();
    const QVariantMap actual = parsed(serializePropertyList(expected, format)).toMap();
    QCOMPARE(actual.keys(), expected.keys());
    for (auto entry = expected.cbegin(); entry != expected.cend(); ++entry) {
        const QVariant value = actual.value(entry.key());
        QVERIFY2(value.typeId() == entry->typeId(), qPrintable(entry.key()));
        QVERIFY2(value == *entry, qPrintable(entry.key()));
    }
}

void PropertyListTest::equalValuesGiveEqualBytes()
{
    QVariantMap reversed;
    const QVariantMap map = sample();
    const QStringList keys = map.keys();
    for (const QString &key : keys | std::views::reverse)
        reversed.insert(key, map.value(key));
    for (const PropertyListFormat format : {PropertyListFormat::XML, PropertyListFormat::Binary}) {
        const QByteArray bytes = serializePropertyList(map, format);
        QCOMPARE(serializePropertyList(reversed, format), bytes);
        QCOMPARE(serializePropertyList(parsed(bytes), format), bytes);
    }
}

void PropertyListTest::keysAreInOrder()
{
    const QVariantMap map{{QStringLiteral("b"), true},
                          {QStringLiteral("B"), qint64{-1}},
                          {QStringLiteral("a"), QVariantList()}};
    QVERIFY(serializePropertyList(map, PropertyListFormat::XML)
                .endsWith("<plist version=\"1.0\">\n"
                          "<dict>\n"
                          "\t<key>B</key>\n\t<integer>-1</integer>\n"
                          "\t<key>a</key>\n\t<array/>\n"
                          "\t<key>b</key>\n\t<true/>\n"
                          "</dict>\n</plist>\n"));
}

void PropertyListTest::readsScalars_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QVariant>("expected");
    const auto row = [](const char *name, const char *body, const QVariant &value) {
        QTest::newRow(name) << QByteArray(body) << value;
    };
    row("integer with a sign", "<integer>+5</integer>", qint64{5});
    row("integer with white space", "<integer> 5\n</integer>", qint64{5});
    row("hexadecimal integer", "<integer>0x1F</integer>", qint64{31});
    row("integer above the signed range", "<integer>9223372036854775808</integer>",
        Q_UINT64_C(9223372036854775808));
    row("real without a point", "<real>3</real>", 3.0);
    row("real with an exponent", "<real>-1.5E-10</real>", -1.5e-10);
    row("infinite real", "<real>+infinity</real>", std::numeric_limits<double>::infinity());
    row("entities", "<string>&amp;&lt;&#65;&#x1F600;</string>", QStringLiteral("&<A\U0001F600"));
    row("character data section", "<string><![CDATA[a<b]]> c</string>", QStringLiteral("a<b c"));
    row("comment within a text", "<string>a<!-- c -->b</string>", QStringLiteral("ab"));
    row("white space is part of a text", "<string> a \n</string>", QStringLiteral(" a \n"));
    row("empty text element", "<string/>", QString(QLatin1StringView("")));
    row("comments between elements", "<!-- a --><true/><!-- b -->", true);
    row("boolean with an end tag", "<false></false>", false);
    row("data with line breaks", "<data>\n\tAAEC\n\t/w==\n</data>", QByteArray("\0\1\2\xff", 4));
    row("the last of two equal keys", "<dict><key>a</key><true/><key>a</key><false/></dict>",
        QVariantMap{{QStringLiteral("a"), false}});
}

void PropertyListTest::readsScalars()
{
    QFETCH(QByteArray, body);
    QFETCH(QVariant, expected);
    const QVariant value = parsed(document(body));
    QCOMPARE(value.typeId(), expected.typeId());
    QCOMPARE(value, expected);
}

void PropertyListTest::refuses_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const auto row
        = [](const char *name, const QByteArray &bytes) { QTest::newRow(name) << bytes; };
    row("nothing", "");
    row("white space", " \n");
    row("other text", "not a property list");
    row("no value", document(""));
    row("an unknown element", document("<foo/>"));
    row("two values", document("<true/><false/>"));
    row("an unknown entity", document("<string>&bogus;</string>"));
    row("an unclosed element", "<plist version=\"1.0\"><string>a");
    row("text behind the end", document("<true/>") + "x");
    row("a key alone", document("<dict><key>a</key></dict>"));
    row("a value without a key", document("<dict><string>a</string></dict>"));
    row("letters for an integer", document("<integer>abc</integer>"));
    row("an empty integer", document("<integer/>"));
    row("two signs", document("<integer>--5</integer>"));
    row("an integer above every range", document("<integer>18446744073709551616</integer>"));
    row("an integer below every range", document("<integer>-9223372036854775809</integer>"));
    row("a fraction for an integer", document("<integer>1.5</integer>"));
    row("letters for a real", document("<real>x</real>"));
    row("letters for a date", document("<date>x</date>"));
    row("an impossible date", document("<date>2024-13-01T00:00:00Z</date>"));
    row("bytes that are no text", document("<string>\xff\xfe</string>"));
    row("a binary header alone", "bplist00");
    row("a binary header and noise", "bplist00" + QByteArray(100, '\xff'));
    row("a binary reference out of range", binary({arrayOf({77})}));
    row("a binary null", binary({QByteArray(1, '\0')}));
    row("a binary key that is no text",
        binary({"\xd1" + bigEndian(1, 4) + bigEndian(1, 4), "\x09"}));
    row("a binary text longer than the file", binary({"\x5f\x13" + bigEndian(~quint64{0}, 8)}));
    row("a binary date beyond time", binary({"\x33\x7f\xef" + QByteArray(6, '\xff')}));
}

void PropertyListTest::refuses()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(isRefused(bytes));
}

void PropertyListTest::readsReferencesOfKeyedArchives()
{
    const QVariantMap expected{{QStringLiteral("CF$UID"), qint64{5}}};
    const QByteArray bytes = binary({QByteArray("\x80\x05")});
    QCOMPARE(parsed(bytes), QVariant(expected));
    QCOMPARE(parsed(serializePropertyList(expected, PropertyListFormat::Binary)),
             QVariant(expected));
    QVERIFY(serializePropertyList(expected, PropertyListFormat::Binary).contains("\x80\x05"));
}

void PropertyListTest::knowsNoLocale()
{
    const QVariantMap map{{QStringLiteral("real"), 2.5}};
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    const QByteArray bytes = serializePropertyList(map, PropertyListFormat::XML);
    const QVariant value = parsed(bytes);
    QLocale::setDefault(before);
    QVERIFY(bytes.contains("<real>2.5</real>"));
    QCOMPARE(value, QVariant(map));
}

void PropertyListTest::readsOtherEncodings()
{
    const QString text = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-16\"?>"
                                        "<plist version=\"1.0\"><string>\u00e4</string></plist>");
    QStringEncoder utf16(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
    QCOMPARE(parsed(QByteArray(utf16.encode(text))), QVariant(QStringLiteral("\u00e4")));
    QCOMPARE(parsed("\xef\xbb\xbf" + document("<true/>")), QVariant(true));
}

void PropertyListTest::leavesOutWhatXMLCannotHold()
{
    const QString text = QStringLiteral("a") + QChar(u'\0') + QStringLiteral("b\x01\x1f\uffff")
        + QStringLiteral("c");
    QCOMPARE(parsed(serializePropertyList(text, PropertyListFormat::XML)),
             QVariant(QStringLiteral("abc")));
    QCOMPARE(parsed(serializePropertyList(text, PropertyListFormat::Binary)),
             QVariant(QString(text).remove(QChar(u'\0'))));
}

void PropertyListTest::refusesTypesItDoesNotKnow()
{
    for (const PropertyListFormat format : {PropertyListFormat::XML, PropertyListFormat::Binary}) {
        QVERIFY_THROWS_EXCEPTION(PlatformError,
                                 static_cast<void>(serializePropertyList({}, format)));
        const QVariantList list{QVariant(QPoint(1, 2))};
        QVERIFY_THROWS_EXCEPTION(PlatformError,
                                 static_cast<void>(serializePropertyList(list, format)));
    }
}

void PropertyListTest::deepValuesAreRefusedNotCrashedOn()
{
    for (const PropertyListFormat format : {PropertyListFormat::XML, PropertyListFormat::Binary}) {
        QCOMPARE(parsed(serializePropertyList(nested(200), format)), nested(200));
        QVERIFY(isRefused(serializePropertyList(nested(600), format)));
    }
    constexpr int depth = 200'000;
    QVERIFY(isRefused(
        document(QByteArray("<array>").repeated(depth) + QByteArray("</array>").repeated(depth))));
    QList<QByteArray> objects;
    for (quint64 i = 1; i <= depth; ++i)
        objects.append(arrayOf({i}));
    QVERIFY(isRefused(binary(objects << "\x09")));
}

void PropertyListTest::sharedObjectsCannotExplode()
{
    QList<QByteArray> objects;
    for (quint64 i = 1; i <= 40; ++i)
        objects.append(arrayOf({i, i}));
    QVERIFY(isRefused(binary(objects << "\x09")));
}

void PropertyListTest::objectsThatHoldThemselvesAreRefused()
{
    QVERIFY(isRefused(binary({arrayOf({0})})));
    QVERIFY(isRefused(binary({arrayOf({1}), arrayOf({0})})));
}

void PropertyListTest::damageNeverCrashes_data()
{
    comesBackAsItWas_data();
}

void PropertyListTest::damageNeverCrashes()
{
    QFETCH(PropertyListFormat, format);
    const QByteArray whole = serializePropertyList(sample(), format);
    QRandomGenerator random(1);
    int refused = 0;
    for (int round = 0; round < 3000; ++round) {
        QByteArray damaged = whole;
        for (int change = random.bounded(1, 6); change > 0; --change)
            damaged[random.bounded(damaged.size())] = static_cast<char>(random.bounded(256));
        refused += isRefused(damaged) ? 1 : 0;
    }
    QVERIFY(refused > 100);
}

void PropertyListTest::truncationIsRefused()
{
    for (const PropertyListFormat format : {PropertyListFormat::XML, PropertyListFormat::Binary}) {
        const QByteArray whole = serializePropertyList(sample(), format);
        // One byte less is a line feed less of XML.
        for (qsizetype length = 0; length < whole.size() - 1; length += 7)
            QVERIFY(isRefused(whole.first(length)));
    }
}

QTEST_GUILESS_MAIN(PropertyListTest)
#include "tst_propertylist.moc"
