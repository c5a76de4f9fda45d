#include "builder/proxyfilename.h"

#include <QTest>

namespace {

constexpr qsizetype longestFileName = 255; // bytes

DockFolder named(const QString &name)
{
    return {.id = QUuid(QStringLiteral("{1a2b3c4d-0000-4000-8000-000000000001}")), .name = name};
}

} // namespace

class ProxyFileNameTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void followsTheFoldersName_data();
    void followsTheFoldersName();
    void tellsFoldersOfOneNameApart();
    void fitsIntoTheFileSystem_data();
    void fitsIntoTheFileSystem();
    void leavesNamesThatFitAlone();
    void cutsBetweenVisibleCharacters();
    void neverEndsInASpaceWhereItIsCut();
};

void ProxyFileNameTest::followsTheFoldersName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *what, const QString &name, const QString &expected) {
        QTest::newRow(what) << name << expected;
    };
    const QString unnamed = QStringLiteral("Dock Folder.app");
    row("a plain name stays", QStringLiteral("Work"), QStringLiteral("Work.app"));
    row("slash and colon become spaces", QStringLiteral("a/b:c"), QStringLiteral("a b c.app"));
    row("so does each forbidden character", QStringLiteral("a/b:c\\d?e%f*g|h\"i<j>k"),
        QStringLiteral("a b c d e f g h i j k.app"));
    row("each of two neighbours leaves a space", QStringLiteral("a//b"),
        QStringLiteral("a  b.app"));
    row("newlines", QStringLiteral("a\nb\rc\u0085d\u2028e\u2029f"),
        QStringLiteral("a b c d e f.app"));
    row("control characters", QStringLiteral("a\tb\u0001c\u007fd"), QStringLiteral("a b c d.app"));
    row("an embedded NUL", QStringLiteral("a") + QChar(u'\0') + u'b', QStringLiteral("a b.app"));
    row("invisible format characters", QStringLiteral("a\u200db\u00adc\u202ed\ufeffe"),
        QStringLiteral("a b c d e.app"));
    row("an invisible tag beyond 16 bits", QStringLiteral("a\U000E0041b"),
        QStringLiteral("a b.app"));
    row("blanks around are trimmed", QStringLiteral(" \u00a0 Work\u3000 "),
        QStringLiteral("Work.app"));
    row("forbidden characters around too", QStringLiteral("/Work?"), QStringLiteral("Work.app"));
    row("blanks within stay", QStringLiteral("My  Work"), QStringLiteral("My  Work.app"));
    row("no name", QString(), unnamed);
    row("only blanks", QStringLiteral(" \t \n"), unnamed);
    row("only forbidden characters", QStringLiteral("/:\\?%*|\"<>"), unnamed);
    row("one dot", QStringLiteral("."), QStringLiteral("..app"));
    row("two dots", QStringLiteral(".."), QStringLiteral("...app"));
    row("a way out of the directory", QStringLiteral("../../Evil/"),
        QStringLiteral(".. .. Evil.app"));
    row("an extension of its own stays", QStringLiteral("Work.app"),
        QStringLiteral("Work.app.app"));
    row("emoji", QStringLiteral("🚀 Работа ✏️"),
        QStringLiteral("🚀 Работа ✏️.app"));
    row("a placeholder is only text", QStringLiteral("@1 $HOME &amp;"),
        QStringLiteral("@1 $HOME &amp;.app"));
}

void ProxyFileNameTest::followsTheFoldersName()
{
    QFETCH(QString, name);
    QFETCH(QString, expected);
    QCOMPARE(proxyFileName(named(name)), expected);
}

void ProxyFileNameTest::tellsFoldersOfOneNameApart()
{
    QCOMPARE(distinctProxyFileName(named(QStringLiteral("Work"))),
             QStringLiteral("Work 1A2B3C4D.app"));
    QCOMPARE(distinctProxyFileName(named(QStringLiteral("?"))),
             QStringLiteral("Dock Folder 1A2B3C4D.app"));
}

void ProxyFileNameTest::fitsIntoTheFileSystem_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("300 letters") << QString(300, u'x');
    QTest::newRow("300 accented letters") << QString(300, u'é');
    QTest::newRow("300 emoji") << QStringLiteral("🚀").repeated(300);
    QTest::newRow("300 dots") << QString(300, u'.');
    QTest::newRow("300 slashes") << QString(300, u'/');
    QTest::newRow("100,000 letters") << QString(100'000, u'x');
    QTest::newRow("one letter under 300 accents") << u'e' + QString(300, QChar(0x301));
}

void ProxyFileNameTest::fitsIntoTheFileSystem()
{
    QFETCH(QString, name);
    for (const QString &fileName :
         {proxyFileName(named(name)), distinctProxyFileName(named(name))}) {
        QVERIFY(fileName.toUtf8().size() <= longestFileName);
        QVERIFY(fileName.endsWith(QStringLiteral(".app")));
        QVERIFY(fileName.size() > 4);
        QVERIFY(!fileName.contains(u'/'));
    }
}

void ProxyFileNameTest::leavesNamesThatFitAlone()
{
    const QString longest(242, u'x'); // with " 1A2B3C4D.app" 255 bytes
    QCOMPARE(proxyFileName(named(longest)), longest + QStringLiteral(".app"));
    QCOMPARE(proxyFileName(named(longest + u'y')), longest + QStringLiteral(".app"));
    QCOMPARE(distinctProxyFileName(named(longest)).size(), longestFileName);
}

void ProxyFileNameTest::cutsBetweenVisibleCharacters()
{
    // 61 rockets are 244 bytes, a flag is two characters of four bytes.
    QCOMPARE(proxyFileName(named(QStringLiteral("🚀").repeated(300))),
             QStringLiteral("🚀").repeated(60) + QStringLiteral(".app"));
    QCOMPARE(proxyFileName(named(QStringLiteral("🇩🇪").repeated(100))),
             QStringLiteral("🇩🇪").repeated(30) + QStringLiteral(".app"));
    QCOMPARE(proxyFileName(named(QString(241, u'x') + QStringLiteral("e\u0301"))),
             QString(241, u'x') + QStringLiteral(".app"));
}

void ProxyFileNameTest::neverEndsInASpaceWhereItIsCut()
{
    QCOMPARE(proxyFileName(named(QString(240, u'x') + QStringLiteral("  yz"))),
             QString(240, u'x') + QStringLiteral(".app"));
}

QTEST_GUILESS_MAIN(ProxyFileNameTest)
#include "tst_proxyfilename.moc"
