#include "model/base64.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <vector>

class Base64Test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void agreesWithQtForEveryLength();
    void decodes_data();
    void decodes();
    void refusesAForeignCharacterAnywhere();
    void findsTheEndOfWhatIsInFront();
};

namespace {

QByteArray encoded(const QByteArray &bytes)
{
    std::vector<char> text(size_t(base64Length(bytes.size())));
    const char *const end = writeBase64(text.data(), bytes);
    return {text.data(), end - text.data()};
}

QByteArray randomBytes(int size)
{
    QRandomGenerator random{quint32(size)};
    QByteArray bytes(size, Qt::Uninitialized);
    for (char &byte : bytes)
        byte = char(random.generate());
    return bytes;
}

} // namespace

void Base64Test::agreesWithQtForEveryLength()
{
    for (int size = 0; size < 300; ++size) {
        const QByteArray bytes = randomBytes(size);
        const QByteArray text = encoded(bytes);
        QCOMPARE(text, bytes.toBase64());
        QCOMPARE(text.size(), base64Length(size));
        QCOMPARE(bytesFromBase64(text), std::optional(bytes));
        QVERIFY(isBase64(text));
    }
}

void Base64Test::decodes_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("isValid");
    QTest::addColumn<QByteArray>("expected");
    const auto valid = [](const char *name, const char *text, const char *bytes) {
        QTest::newRow(name) << QByteArray(text) << true << QByteArray(bytes);
    };
    const auto invalid = [](const char *name, const char *text) {
        QTest::newRow(name) << QByteArray(text) << false << QByteArray();
    };
    valid("nothing", "", "");
    valid("no fill", "Zm9v", "foo");
    valid("one fill", "Zm8=", "fo");
    valid("two fills", "Zg==", "f");
    valid("bits left over by one fill", "Zm9=", "fo");
    valid("bits left over by two fills", "Zh==", "f");
    valid("all kinds of characters", "+/+/aZ09", "\xfb\xff\xbf\x69\x9d\x3d");
    invalid("one character", "Z");
    invalid("two characters", "Zg");
    invalid("three characters", "Zm8");
    invalid("fill missing", "Zm9vZg=");
    invalid("too much fill", "Zg===");
    invalid("three fills", "Z===");
    invalid("fill alone", "====");
    invalid("fill within", "Zg==Zm9v");
    invalid("fill between characters", "Zm=v");
    invalid("fill in a long text", "Zm9vZg==Zm9vZm9vZm9v");
    invalid("a blank within", "Zm9 v");
    invalid("a blank for a character", "Zm v");
    invalid("a blank behind", "Zm9v ");
    invalid("a line break", "Zm9v\nZm9v");
    invalid("the characters for URLs", "Zm-_");
    invalid("a backslash", "Zm\\/");
    invalid("beyond ASCII", "Zm\xc3\xa9");
}

void Base64Test::decodes()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, isValid);
    QFETCH(QByteArray, expected);
    QCOMPARE(bytesFromBase64(text), isValid ? std::optional(expected) : std::nullopt);
    QCOMPARE(isBase64(text), isValid);
}

void Base64Test::refusesAForeignCharacterAnywhere()
{
    const QByteArray text = randomBytes(105).toBase64();
    for (qsizetype place = 0; place < text.size(); ++place) {
        for (int c = 0; c < 256; ++c) {
            QByteArray changed = text;
            changed[place] = char(c);
            const bool belongs = QByteArray("+/").contains(char(c))
                || (c < 128 && QChar(c).isLetterOrNumber())
                || (c == '=' && place == text.size() - 1);
            QCOMPARE(bytesFromBase64(changed).has_value(), belongs);
            QCOMPARE(isBase64(changed), belongs);
        }
    }
}

void Base64Test::findsTheEndOfWhatIsInFront()
{
    for (int size = 0; size < 200; ++size) {
        const QByteArray text = randomBytes(size).toBase64();
        for (const char *behind : {"\"", "\\/aaa", "\xc3\xa9", "-aaaaaaa"})
            QCOMPARE(base64FrontLength(QByteArray(text + behind)), text.size());
    }
    QCOMPARE(base64FrontLength("Zm9vZ\""), 0); // no whole groups
    QCOMPARE(base64FrontLength("Zm9vZg=\""), 0);
    QCOMPARE(base64FrontLength("Zg==="), 4); // no more than two fill up a group
}

QTEST_APPLESS_MAIN(Base64Test)
#include "tst_base64.moc"
