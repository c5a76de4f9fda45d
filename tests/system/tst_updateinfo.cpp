#include "system/updateinfo.h"

#include <QRegularExpression>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

class UpdateInfoTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void decodesAWholeFeed();
    void ignoresUnknownMembers();
    void readsTheBuild_data();
    void readsTheBuild();
    void readsTheAddress_data();
    void readsTheAddress();
    void rejectsAFeed_data();
    void rejectsAFeed();
    void readsTheBuildNumberOfAVersion_data();
    void readsTheBuildNumberOfAVersion();
    void feedIsAnHTTPSEndpointWithTheFixedPath();
    void opensWebPagesOnly_data();
    void opensWebPagesOnly();
};

namespace {

QByteArray feedWithBuild(const QByteArray &build)
{
    return R"({"build": )" + build + R"(, "version": "1.3", "url": "https://a.example/d"})";
}

QByteArray feedWithAddress(const QByteArray &address)
{
    return R"({"build": 7, "version": "1.3", "url": )" + address + "}";
}

} // namespace

void UpdateInfoTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
}

void UpdateInfoTest::decodesAWholeFeed()
{
    const auto info = decodeUpdateInfo(
        R"({"build": 42, "version": "2.0 “Möwe”", "url": "https:\/\/a.example\/d?v=2#top"})");
    QVERIFY(info.has_value());
    QCOMPARE(info->build, 42);
    QCOMPARE(info->version, u"2.0 “Möwe”");
    QCOMPARE(info->downloadURL, QUrl(QStringLiteral("https://a.example/d?v=2#top")));
}

void UpdateInfoTest::ignoresUnknownMembers()
{
    const auto info = decodeUpdateInfo(
        R"({"notes": {"url": 1}, "build": 1, "Build": "x", "version": "", "url": "d.zip"})");
    QCOMPARE(info, (UpdateInfo{.build = 1, .version = u""_s, .downloadURL = QUrl(u"d.zip"_s)}));
}

void UpdateInfoTest::readsTheBuild_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("isInteger");
    QTest::addColumn<qint64>("expected");
    const auto reads = [](const char *name, const char *text, qint64 number) {
        QTest::newRow(name) << QByteArray(text) << true << number;
    };
    const auto refuses = [](const char *name, const char *text) {
        QTest::newRow(name) << QByteArray(text) << false << qint64(0);
    };
    reads("a number", "42", 42);
    reads("nought", "0", 0);
    reads("one", "1", 1);
    reads("a negative number", "-5", -5);
    reads("a whole number with a fraction part", "3.0", 3);
    reads("a whole number with an exponent", "3e2", 300);
    reads("the largest", "9223372036854775807", std::numeric_limits<qint64>::max());
    reads("the smallest", "-9223372036854775808", std::numeric_limits<qint64>::min());
    refuses("a fraction", "3.5");
    refuses("one above the largest", "9223372036854775808");
    refuses("far above the largest", "1e30");
    refuses("a truth value", "true");
    refuses("a number in quotes", "\"3\"");
    refuses("null", "null");
    refuses("an array", "[3]");
    refuses("no number at all", "x");
}

void UpdateInfoTest::readsTheBuild()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, isInteger);
    QFETCH(qint64, expected);
    const auto info = decodeUpdateInfo(feedWithBuild(text));
    QCOMPARE(info.has_value(), isInteger);
    if (info)
        QCOMPARE(info->build, expected);
}

void UpdateInfoTest::readsTheAddress_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("isAddress");
    QTest::newRow("a web page") << QByteArray(R"("https://a.example/")") << true;
    QTest::newRow("a file") << QByteArray(R"("file:///etc/passwd")") << true;
    QTest::newRow("a relative one") << QByteArray(R"("downloads/1")") << true;
    QTest::newRow("an escaped space") << QByteArray(R"("https://a.example/a%20b")") << true;
    QTest::newRow("a bare space") << QByteArray(R"("https://a.example/a b")") << false;
    QTest::newRow("a broken escape") << QByteArray(R"("https://a.example/100%")") << false;
    QTest::newRow("an accent") << QByteArray(R"("https://a.example/ü")") << false;
    QTest::newRow("an unfinished address in brackets") << QByteArray(R"("https://[::1/")") << false;
    QTest::newRow("an empty text") << QByteArray(R"("")") << false;
    QTest::newRow("a number") << QByteArray("7") << false;
    QTest::newRow("null") << QByteArray("null") << false;
}

void UpdateInfoTest::readsTheAddress()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, isAddress);
    QCOMPARE(decodeUpdateInfo(feedWithAddress(text)).has_value(), isAddress);
}

void UpdateInfoTest::rejectsAFeed_data()
{
    QTest::addColumn<QByteArray>("feed");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("not JSON") << QByteArray("<html>404</html>");
    QTest::newRow("cut off") << feedWithBuild("7").chopped(1);
    QTest::newRow("with something after it") << feedWithBuild("7") + "x";
    QTest::newRow("an array of feeds") << "[" + feedWithBuild("7") + "]";
    QTest::newRow("a number alone") << QByteArray("7");
    QTest::newRow("without a build") << QByteArray(R"({"version": "1", "url": "d"})");
    QTest::newRow("without a version") << QByteArray(R"({"build": 7, "url": "d"})");
    QTest::newRow("with a number for a version")
        << QByteArray(R"({"build": 7, "version": 1.3, "url": "d"})");
    QTest::newRow("without an address") << QByteArray(R"({"build": 7, "version": "1"})");
    QTest::newRow("with the address under another name")
        << QByteArray(R"({"build": 7, "version": "1", "downloadURL": "https://a.example"})");
}

void UpdateInfoTest::rejectsAFeed()
{
    QFETCH(QByteArray, feed);
    QVERIFY(!decodeUpdateInfo(feed).has_value());
}

void UpdateInfoTest::readsTheBuildNumberOfAVersion_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<qint64>("expected");
    QTest::newRow("a number") << u"42"_s << qint64(42);
    QTest::newRow("leading noughts") << u"0042"_s << qint64(42);
    QTest::newRow("a plus") << u"+42"_s << qint64(42);
    QTest::newRow("a minus") << u"-42"_s << qint64(-42);
    QTest::newRow("the largest") << u"9223372036854775807"_s << std::numeric_limits<qint64>::max();
    QTest::newRow("the smallest") << u"-9223372036854775808"_s
                                  << std::numeric_limits<qint64>::min();
    QTest::newRow("too large") << u"9223372036854775808"_s << qint64(0);
    QTest::newRow("too small") << u"-9223372036854775809"_s << qint64(0);
    QTest::newRow("with a dot") << u"1.2"_s << qint64(0);
    QTest::newRow("a space before") << u" 42"_s << qint64(0);
    QTest::newRow("a space after") << u"42 "_s << qint64(0);
    QTest::newRow("a plus alone") << u"+"_s << qint64(0);
    QTest::newRow("a minus alone") << u"-"_s << qint64(0);
    QTest::newRow("two signs") << u"+-42"_s << qint64(0);
    QTest::newRow("two pluses") << u"++42"_s << qint64(0);
    QTest::newRow("hexadecimal") << u"0x2A"_s << qint64(0);
    QTest::newRow("digits of another script") << u"٤٢"_s << qint64(0);
    QTest::newRow("letters") << u"abc"_s << qint64(0);
    QTest::newRow("nothing") << QString() << qint64(0);
}

void UpdateInfoTest::readsTheBuildNumberOfAVersion()
{
    QFETCH(QString, version);
    QFETCH(qint64, expected);
    QCOMPARE(buildNumberFromVersion(version), expected);
}

void UpdateInfoTest::feedIsAnHTTPSEndpointWithTheFixedPath()
{
    QCOMPARE(updateFeedURL().scheme(), u"https");
    QCOMPARE(updateFeedURL().path(), u"/nestlet-companion-appcast.json");
    QVERIFY(!updateFeedURL().host().isEmpty());
    QCOMPARE(&updateFeedURL(), &updateFeedURL()); // built once
}

void UpdateInfoTest::opensWebPagesOnly_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<bool>("isOpenable");
    QTest::newRow("https") << u"https://a.example/d"_s << true;
    QTest::newRow("http") << u"http://a.example/d"_s << true;
    QTest::newRow("capitals") << u"HTTPS://a.example/d"_s << true;
    QTest::newRow("a file") << u"file:///Applications/X.app"_s << false;
    QTest::newRow("a script") << u"javascript:alert(1)"_s << false;
    QTest::newRow("a longer scheme") << u"httpsx://a.example"_s << false;
    QTest::newRow("no scheme") << u"a.example/d"_s << false;
    QTest::newRow("nothing") << QString() << false;
}

void UpdateInfoTest::opensWebPagesOnly()
{
    QFETCH(QString, address);
    QFETCH(bool, isOpenable);
    QCOMPARE(isOpenableDownload(QUrl(address)), isOpenable);
}

QTEST_GUILESS_MAIN(UpdateInfoTest)
#include "tst_updateinfo.moc"
