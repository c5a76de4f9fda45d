#include "tests/platform/macos/foundationrules.h"

#include "model/accentcolor.h"
#include "platform/fileurl.h"
#include "tests/platform/macos/gnusteptest.h"

/// What the program decides by itself, in portable code, it decides as Foundation does.
class FoundationRulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void colourTextsAreScannedAlike_data();
    void colourTextsAreScannedAlike();
    void pathsAreTakenApartAlike_data();
    void pathsAreTakenApartAlike();
    void pathsAreStandardizedAlike_data();
    void pathsAreStandardizedAlike();
};

void FoundationRulesTest::colourTextsAreScannedAlike_data()
{
    QTest::addColumn<QString>("text"); // six characters
    QTest::newRow("upper case") << QStringLiteral("4F83D3");
    QTest::newRow("lower case") << QStringLiteral("4f83d3");
    QTest::newRow("stops at the first other character") << QStringLiteral("12ZZZZ");
    QTest::newRow("no digit at all") << QStringLiteral("ZZZZZZ");
    QTest::newRow("leading blanks") << QStringLiteral("  12AB");
    QTest::newRow("leading tab and line feed") << QStringLiteral("\t\nBEEF");
    QTest::newRow("blank in between") << QStringLiteral("12 4AB");
    QTest::newRow("prefix") << QStringLiteral("0x12AB");
    QTest::newRow("prefix in upper case") << QStringLiteral("0XABCD");
    QTest::newRow("blank and prefix") << QStringLiteral(" 0xABC");
    QTest::newRow("sign") << QStringLiteral("-12345");
    QTest::newRow("only blanks") << QStringLiteral("      ");
}

void FoundationRulesTest::colourTextsAreScannedAlike()
{
    QFETCH(QString, text);
    std::optional<QColor> expected;
    if (const std::optional<uint> number = foundationScannedHex(text))
        expected = QColor(QRgb(*number));
    QCOMPARE(colorFromHexText(text).has_value(), expected.has_value());
    if (expected)
        QCOMPARE(colorFromHexText(text)->rgb(), expected->rgb());
}

void FoundationRulesTest::pathsAreTakenApartAlike_data()
{
    // Not here: an extension with a blank in it, which is one to GNUstep and none to macOS.
    QTest::addColumn<QString>("path");
    for (const char *path : {"/Applications/Foo.app", "/Applications/Foo.APP", "/Applications/Foo",
                             "/a/archive.tar.gz", "/a/.hidden", "/a/.hidden.app", "/a.b/c",
                             "/a/Ünï.app", "/a/with space.app", "/a/name."})
        QTest::newRow(path) << QString::fromUtf8(path);
}

void FoundationRulesTest::pathsAreTakenApartAlike()
{
    QFETCH(QString, path);
    const FileURL url = FileURL::file(path);
    QCOMPARE(url.path(), path);
    QCOMPARE(url.pathExtension(), foundationPathExtension(path));
    QCOMPARE(url.lastPathComponent(), foundationLastPathComponent(path));
}

void FoundationRulesTest::pathsAreStandardizedAlike_data()
{
    QTest::addColumn<QString>("path");
    for (const char *path : {"/Applications/Foo.app", "/Applications/./Foo.app",
                             "/Applications/Sub/../Foo.app", "/a/b/../../c", "/a b/./ü"})
        QTest::newRow(path) << QString::fromUtf8(path);
}

void FoundationRulesTest::pathsAreStandardizedAlike()
{
    QFETCH(QString, path);
    QCOMPARE(FileURL::file(path).standardizedPath(), foundationStandardizedPath(path));
}

int main(int argc, char **argv)
{
    return runWithFoundation<FoundationRulesTest>(argc, argv);
}

#include "tst_foundationrules.moc"
