#include "sandbox/common/launcher.h"
#include "tests/sandbox/standin.h"

#include "model/libraryjson.h"
#include "platform/propertylist.h"

#include <QDir>
#include <QFileInfo>

#include <csignal>

/// The template's program, run as a Dock app of one folder.
class SandboxPanelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void showsItsFolder();
    void followsTheLibrary();
    void keepsWhatItShowsWhenTheLibraryIsSpoilt();
    void saysWhenItsFolderIsGone();
    void showsAFolderOfItsOwnWithoutAnId();
    void staysHiddenUntilItIsAskedFor();
    void quitsOnTermination();
    void ignoresTerminationWhenToldTo_data();
    void ignoresTerminationWhenToldTo();
    void launchesAnItemAsTheDockDoes();

private:
    void writeLibrary(const DockFolder &folder) const
    {
        writeFile(m_standIn.mac().folderLibraryPath(),
                  encodeLibrary({.folders = {folder}, .selectedFolderID = folder.id}));
    }
    void makeProxy(const QVariantMap &extra) const;
    void start(const QString &activates = QStringLiteral("1"));
    QString proxy() const { return m_standIn.path(u"Users/me/Applications/Nestlet/Work.app"); }

    StandIn m_standIn;
    DockFolder m_folder{.id = QUuid(QStringLiteral("{11111111-2222-3333-4444-555555555555}")),
                        .name = QStringLiteral("Wörk")};
    QProcess m_panel;
};

void SandboxPanelTest::initTestCase()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    QCOMPARE(m_standIn.made().status, 0);
    const FileURL app = FileURL::directory(m_standIn.path(u"Applications/Beta.app"));
    m_folder.items = {{.id = QUuid::createUuid(),
                       .name = QStringLiteral("Beta"),
                       .url = app,
                       .kind = DockFolderItem::Kind::application}};
}

void SandboxPanelTest::makeProxy(const QVariantMap &extra) const
{
    makeDirectories(QFileInfo(proxy()).path());
    copyTree(m_standIn.path(u"Applications/Nestlet.app"), proxy());
    QVariantMap info = readDictionary(proxy() + u"/Contents/Info.plist").value();
    info.insert(extra);
    writeFile(proxy() + u"/Contents/Info.plist",
              serializePropertyList(info, PropertyListFormat::XML));
}

void SandboxPanelTest::init()
{
    runTool(QStringLiteral("rm"), {QStringLiteral("-rf"), proxy()});
    QFile::remove(m_standIn.logPath());
    makeProxy(
        {{QStringLiteral("DockFolderID"), m_folder.id.toString(QUuid::WithoutBraces).toUpper()}});
    writeLibrary(m_folder);
}

void SandboxPanelTest::cleanup()
{
    m_panel.kill();
    m_panel.waitForFinished();
}

void SandboxPanelTest::start(const QString &activates)
{
    QProcessEnvironment environment = m_standIn.environment();
    environment.insert(QStringLiteral("NESTLET_ACTIVATES"), activates);
    m_panel.setProcessEnvironment(environment);
    m_panel.start(proxy() + u"/Contents/MacOS/Nestlet", QStringList());
    QTRY_VERIFY_WITH_TIMEOUT(m_standIn.log().contains(u" ready\n"), 15'000);
}

void SandboxPanelTest::showsItsFolder()
{
    start();
    QVERIFY(
        m_standIn.log().contains(QStringLiteral(R"( folder {"items":["Beta"],"name":"Wörk"})")));
    QVERIFY(m_standIn.log().contains(u" shown\n"));
    const QByteArray complaints = m_panel.readAllStandardError();
    QVERIFY2(!complaints.contains("qrc:"), complaints.constData()); // of the QML engine
}

void SandboxPanelTest::followsTheLibrary()
{
    start();
    DockFolder folder = m_folder;
    folder.name = QStringLiteral("Play");
    folder.accentColorHex = QStringLiteral("#112233");
    folder.gridColumns = 3;
    folder.items.clear();
    writeLibrary(folder); // replaces the file
    QTRY_VERIFY(m_standIn.log().contains(
        QStringLiteral(R"( folder {"accent":"#112233","columns":3,"items":[],"name":"Play"})")));

    folder.name = QStringLiteral("In place");
    QFile file(m_standIn.mac().folderLibraryPath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(encodeLibrary({.folders = {folder}, .selectedFolderID = folder.id}));
    file.close();
    QTRY_VERIFY(m_standIn.log().contains(u"\"name\":\"In place\""));

    QVERIFY(QDir(QFileInfo(m_standIn.mac().folderLibraryPath()).path()).removeRecursively());
    QTest::qWait(200);
    folder.name = QStringLiteral("After all");
    writeLibrary(folder); // its directory is made anew
    QTRY_VERIFY(m_standIn.log().contains(u"\"name\":\"After all\""));
}

void SandboxPanelTest::keepsWhatItShowsWhenTheLibraryIsSpoilt()
{
    start();
    writeFile(m_standIn.mac().folderLibraryPath(), QByteArrayLiteral("{"));
    QTest::qWait(300);
    QCOMPARE(m_standIn.log().count(u" folder "), 1);
    DockFolder folder = m_folder;
    folder.name = QStringLiteral("Whole again");
    writeLibrary(folder);
    QTRY_VERIFY(m_standIn.log().contains(u"Whole again"));
}

void SandboxPanelTest::saysWhenItsFolderIsGone()
{
    start();
    writeLibrary({.id = QUuid::createUuid(), .name = QStringLiteral("Another")});
    QTRY_VERIFY(m_standIn.log().contains(u" folder missing\n"));
}

void SandboxPanelTest::showsAFolderOfItsOwnWithoutAnId()
{
    writeFile(proxy() + u"/Contents/Info.plist",
              readFile(m_standIn.path(u"Applications/Nestlet.app/Contents/Info.plist")));
    start();
    QVERIFY(m_standIn.log().contains(u"\"name\":\"Nestlet\""));
}

void SandboxPanelTest::staysHiddenUntilItIsAskedFor()
{
    start(QStringLiteral("0"));
    QVERIFY(!m_standIn.log().contains(u" shown\n"));
    const QList<StandInProcess> processes = standInProcesses(m_standIn.mac());
    QCOMPARE(processes.size(), 1);
    QCOMPARE(processes.first().processID, m_panel.processId());
    QVERIFY(openLikeDock(m_standIn.mac(), proxy(), 300)); // runs: comes forward
    QTRY_VERIFY(m_standIn.log().contains(u" shown\n"));
    QCOMPARE(standInProcesses(m_standIn.mac()).size(), 1);
}

void SandboxPanelTest::quitsOnTermination()
{
    start();
    m_panel.terminate();
    QVERIFY(m_panel.waitForFinished());
    QCOMPARE(m_panel.exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_panel.exitCode(), 0);
}

void SandboxPanelTest::ignoresTerminationWhenToldTo_data()
{
    QTest::addColumn<bool>("byFile");
    QTest::newRow("by a file in the bundle") << true;
    QTest::newRow("by a variable") << false;
}

void SandboxPanelTest::ignoresTerminationWhenToldTo()
{
    QFETCH(bool, byFile);
    if (byFile)
        writeFile(proxy() + u"/Contents/Resources/ignore-term", QByteArrayLiteral("\n"));
    else
        qputenv("NESTLET_STANDIN_IGNORE_TERM", "1");
    start();
    qunsetenv("NESTLET_STANDIN_IGNORE_TERM");
    m_panel.terminate();
    QTRY_VERIFY(m_standIn.log().contains(u" ignoring termination\n"));
    QVERIFY(!m_panel.waitForFinished(300));
    m_panel.kill();
    QVERIFY(m_panel.waitForFinished(5000));
}

void SandboxPanelTest::launchesAnItemAsTheDockDoes()
{
    const QString path = m_standIn.path(u"Applications/Beta.app");
    QVERIFY(launch(m_standIn.mac(), AppBundle::at(path).value(), 0));
    QTRY_COMPARE(standInProcesses(m_standIn.mac()).size(), 1);
    const qint64 beta = standInProcesses(m_standIn.mac()).first().processID;
    QCOMPARE(environmentOfProcess(beta, "__CFBundleIdentifier"), QStringLiteral("sample.beta"));
    QCOMPARE(environmentOfProcess(beta, "NESTLET_ACTIVATES"), QStringLiteral("1"));
    QVERIFY(openLikeDock(m_standIn.mac(), path,
                         10)); // not started twice, and not killed by the request
    QTest::qWait(100);
    QCOMPARE(standInProcesses(m_standIn.mac()).size(), 1);
    QCOMPARE(kill(static_cast<pid_t>(beta), SIGTERM), 0);
    QTRY_COMPARE(standInProcesses(m_standIn.mac()).size(), 0);
}

QTEST_GUILESS_MAIN(SandboxPanelTest)
#include "tst_sandboxpanel.moc"
