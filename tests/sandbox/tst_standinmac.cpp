#include "sandbox/common/appbundle.h"
#include "sandbox/common/docktile.h"
#include "sandbox/common/processes.h"
#include "sandbox/drawing/fileicon.h"
#include "sandbox/drawing/glyphs.h"
#include "sandbox/make/sampleapp.h"
#include "tests/sandbox/standin.h"

#include "model/nestlet.h"
#include "platform/propertylist.h"

#include <QDir>
#include <QFileInfo>
#include <QPainterPath>

#include <array>

#include <csignal>

/// What sandbox-make makes, and the killall in it.
class StandInMacTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void holdsTheFoldersAndToolsOfAMac();
    void templatePassesItsOwnSigningTool();
    void templateHasWhatProxiesRewriteAndStrip();
    void sampleAppsAreWhole_data();
    void sampleAppsAreWhole();
    void sampleIconsDiffer();
    void dockHasPinnedApplications();
    void isLeftAloneWhenItIsThere();
    void renewsItsProgramsWhenAsked();
    void refusesAFolderWithOtherThings();
    void fillsAnEmptyFolder();
    void explainsItsUsage();
    void killallQuitsByNameWithinOneStandIn();
    void killallSaysWhenNobodyMatches();

private:
    ToolResult tool(const QString &name, const QStringList &arguments) const
    {
        return runTool(m_standIn.path(u"usr/bin/") + name, arguments, m_standIn.environment());
    }
    static ToolResult make(const QStringList &arguments)
    {
        return runTool(builtProgram(QStringLiteral("bin/sandbox-make")), arguments);
    }
    QString nestlet() const { return m_standIn.path(u"Applications/Nestlet.app"); }

    StandIn m_standIn;
};

void StandInMacTest::initTestCase()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    QCOMPARE(m_standIn.made().standardError, QString());
    QCOMPARE(m_standIn.made().status, 0);
}

void StandInMacTest::holdsTheFoldersAndToolsOfAMac()
{
    for (const QStringView directory :
         {u"Applications/Utilities", u"System/Applications", u"Users/me/Applications",
          u"Users/me/Library/Application Support", u"Users/me/Library/Preferences",
          u"Users/me/Desktop", u"Users/me/Documents"})
        QVERIFY2(QFileInfo(m_standIn.path(directory)).isDir(), qPrintable(directory.toString()));
    for (const QStringView program : {u"usr/bin/codesign", u"usr/bin/killall",
                                      u"System/Library/CoreServices/Dock.app/Contents/MacOS/Dock"})
        QVERIFY2(QFileInfo(m_standIn.path(program)).isExecutable(), qPrintable(program.toString()));
    QVERIFY(!QFileInfo::exists(m_standIn.mac().root() + u".unfinished"));
}

void StandInMacTest::templatePassesItsOwnSigningTool()
{
    const ToolResult verified = tool(QStringLiteral("codesign"),
                                     {QStringLiteral("--verify"), QStringLiteral("--deep"),
                                      QStringLiteral("--strict"), nestlet()});
    QCOMPARE(verified.standardError, QString());
    QCOMPARE(verified.status, 0);
    const QString text
        = tool(QStringLiteral("codesign"), {QStringLiteral("-dvvv"), nestlet()}).standardError;
    QVERIFY(text.contains(u"\nTeamIdentifier=" + expectedTeamIdentifier + u'\n'));
    QVERIFY(text.contains(u"\nIdentifier=" + nestletBundleIdentifier + u'\n'));
}

void StandInMacTest::templateHasWhatProxiesRewriteAndStrip()
{
    const QVariantMap info = readDictionary(nestlet() + u"/Contents/Info.plist").value();
    QCOMPARE(info.value(QStringLiteral("CFBundleIdentifier")).toString(), nestletBundleIdentifier);
    QCOMPARE(info.value(QStringLiteral("LSUIElement")), QVariant(true));
    QVERIFY(!info.value(QStringLiteral("CFBundleVersion")).toString().isEmpty());
    QVERIFY(!info.contains(QStringLiteral("DockFolderID")));
    for (const QStringView leftover :
         {u"_CodeSignature", u"_MASReceipt/receipt", u"embedded.provisionprofile"})
        QVERIFY(QFileInfo::exists(nestlet() + u"/Contents/" + leftover));
    const QFileInfo current(nestlet()
                            + u"/Contents/Frameworks/NestletKit.framework/Versions/Current");
    QVERIFY(current.isSymLink());
}

void StandInMacTest::sampleAppsAreWhole_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("hasBinaryInfo");
    for (const SampleApp &app : sampleApps())
        QTest::newRow(qPrintable(app.path)) << app.path << app.name() << app.hasBinaryInfo;
    QVERIFY(sampleApps().size() >= 30);
}

void StandInMacTest::sampleAppsAreWhole()
{
    QFETCH(QString, path);
    QFETCH(QString, name);
    QFETCH(bool, hasBinaryInfo);
    const auto app = AppBundle::at(m_standIn.path(path));
    QVERIFY(app);
    QCOMPARE(app->name(), name);
    QVERIFY(app->identifier().startsWith(u"sample."));
    QVERIFY(QFileInfo(app->executable()).isExecutable());
    QCOMPARE(readFile(app->path() + u"/Contents/Info.plist").startsWith("bplist00"), hasBinaryInfo);
    for (const int side : {16, 32, 64, 128, 256, 512}) {
        const QImage icon = readIconFile(app->iconFile(), side);
        QCOMPARE(icon.size(), QSize(side, side));
        QVERIFY(qAlpha(icon.pixel(side / 2, side / 2)) == 255);
    }
}

void StandInMacTest::sampleIconsDiffer()
{
    QSet<QByteArray> icons;
    for (const SampleApp &app : sampleApps()) {
        QVERIFY2(!glyph(app.look.symbol).isEmpty(), qPrintable(app.look.symbol));
        icons.insert(readFile(AppBundle::at(m_standIn.path(app.path)).value().iconFile()));
    }
    QCOMPARE(icons.size(), sampleApps().size());
}

void StandInMacTest::dockHasPinnedApplications()
{
    const QVariantMap preferences = readDictionary(m_standIn.mac().dockPreferences()).value();
    const QVariantList tiles = persistentApps(preferences);
    QVERIFY(tiles.size() >= 3);
    for (const QVariant &tile : tiles)
        QVERIFY(QFileInfo(pathOfDockTile(tile).value()).isDir());
}

void StandInMacTest::isLeftAloneWhenItIsThere()
{
    const QString file = m_standIn.path(u"Users/me/Documents/Budget.csv");
    writeFile(file, QByteArrayLiteral("changed by the user"));
    const ToolResult result = make({m_standIn.mac().root()});
    QCOMPARE(result.status, 0);
    QVERIFY(result.standardOutput.contains(u"already"));
    QCOMPARE(readFile(file), QByteArrayLiteral("changed by the user"));
}

void StandInMacTest::renewsItsProgramsWhenAsked()
{
    const QString tool = m_standIn.path(u"usr/bin/killall");
    const QByteArray program = readFile(tool);
    writeFile(tool, QByteArrayLiteral("old"));
    QCOMPARE(make({QStringLiteral("--refresh"), m_standIn.mac().root()}).status, 0);
    QCOMPARE(readFile(tool), program);
    QVERIFY(QFileInfo(tool).isExecutable());
    templatePassesItsOwnSigningTool();
}

void StandInMacTest::refusesAFolderWithOtherThings()
{
    const QTemporaryDir dir;
    writeFile(dir.filePath(QStringLiteral(".hidden")), QByteArrayLiteral("mine"));
    const ToolResult result = make({dir.path()});
    QCOMPARE(result.status, 1);
    QVERIFY(result.standardError.contains(u"not empty"));
    QCOMPARE(QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList(QStringLiteral(".hidden")));
}

void StandInMacTest::fillsAnEmptyFolder()
{
    const QTemporaryDir dir;
    const QString root = dir.filePath(QStringLiteral("a mac"));
    makeDirectories(root);
    QCOMPARE(make({root + u'/'}).status, 0);
    QVERIFY(QFileInfo::exists(StandInMac(root).marker()));
}

void StandInMacTest::explainsItsUsage()
{
    QCOMPARE(make({}).status, 2);
    QCOMPARE(make({QStringLiteral("--help")}).status, 2);
}

void StandInMacTest::killallQuitsByNameWithinOneStandIn()
{
    const auto start
        = [](QProcess &process, const QString &program, const QProcessEnvironment &environment) {
              process.setProcessEnvironment(environment);
              process.start(program, QStringList());
              QVERIFY(process.waitForStarted());
          };
    const AppBundle app = AppBundle::at(m_standIn.path(u"Applications/2 Do.app")).value();
    QProcessEnvironment elsewhere = m_standIn.environment();
    elsewhere.insert(QStringLiteral("NESTLET_COMPANION_ROOT"), QStringLiteral("/nowhere"));
    std::array<QProcess, 3> processes;
    start(processes[0], app.executable(), m_standIn.environment());
    start(processes[1], app.executable(), m_standIn.environment());
    start(processes[2], app.executable(), elsewhere);

    QTRY_COMPARE(standInProcesses(m_standIn.mac()).size(), 2);
    QCOMPARE(tool(QStringLiteral("killall"), {QStringLiteral("2 Do")}).status, 0);
    QVERIFY(processes[0].waitForFinished(5000));
    QVERIFY(processes[1].waitForFinished(5000));
    QCOMPARE(processes[2].state(), QProcess::Running);
    processes[2].terminate();
    QVERIFY(processes[2].waitForFinished(5000));
}

void StandInMacTest::killallSaysWhenNobodyMatches()
{
    const ToolResult result = tool(QStringLiteral("killall"), {QStringLiteral("Nobody")});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.standardError,
             QStringLiteral("No matching processes belonging to you were found\n"));
}

QTEST_GUILESS_MAIN(StandInMacTest)
#include "tst_standinmac.moc"
