#include "sandbox/common/launcher.h"
#include "tests/sandbox/standin.h"

#include <QDir>

#include <csignal>

/// The Dock of a stand-in Mac and its supervisor, as processes.
class SandboxDockTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void showsPinnedAndRunningApplications();
    void comesBackWhenItIsKilled_data();
    void comesBackWhenItIsKilled();
    void comesBackFromTheStandInsKillall();
    void endsWithItsSupervisor();
    void endsWhenTheStandInIsGone();

private:
    // The Dock's process, or 0 while there is none.
    [[nodiscard]] qint64 dock() const
    {
        for (const StandInProcess &process : standInProcesses(m_standIn->mac())) {
            if (process.executable.endsWith(u"/Dock"))
                return process.processID;
        }
        return 0;
    }
    [[nodiscard]] bool isReady(qint64 dock) const
    {
        return dock != 0 && m_standIn->log().contains(QStringLiteral("%1 ready\n").arg(dock));
    }
    // Waits for a Dock that is not `before`.
    [[nodiscard]] bool waitForNext(qint64 before) const
    {
        return QTest::qWaitFor([&] { return dock() != before && isReady(dock()); }, 15'000);
    }

    std::unique_ptr<StandIn> m_standIn;
    QProcess m_supervisor;
};

void SandboxDockTest::initTestCase()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
}

void SandboxDockTest::init()
{
    if (!m_standIn || !QFileInfo::exists(m_standIn->mac().marker()))
        m_standIn = std::make_unique<StandIn>();
    QFile::remove(m_standIn->logPath());
    m_supervisor.setProcessEnvironment(m_standIn->environment());
    m_supervisor.start(builtProgram(QStringLiteral("bin/sandbox-dock")), {m_standIn->mac().root()});
    QVERIFY(waitForNext(0));
}

void SandboxDockTest::cleanup()
{
    if (m_supervisor.state() == QProcess::NotRunning)
        return;
    m_supervisor.terminate();
    QVERIFY(m_supervisor.waitForFinished(5000));
}

void SandboxDockTest::showsPinnedAndRunningApplications()
{
    QVERIFY(m_standIn->log().contains(u" tiles [\"Almanac\","));
    const QString path = m_standIn->path(u"Users/me/Applications/Homegrown.app");
    QVERIFY(openLikeDock(m_standIn->mac(), path, 0));
    QTRY_VERIFY(m_standIn->log().contains(u",\"Homegrown\"]\n"));
    const QString name = QStringLiteral("Homegrown");
    QCOMPARE(runTool(m_standIn->path(u"usr/bin/killall"), {name}, m_standIn->environment()).status,
             0);
    QTRY_VERIFY(m_standIn->log().trimmed().endsWith(u"\"Quill & Ink\"]"));
}

void SandboxDockTest::comesBackWhenItIsKilled_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("politely") << SIGTERM;
    QTest::newRow("hard") << SIGKILL;
}

void SandboxDockTest::comesBackWhenItIsKilled()
{
    QFETCH(int, signal);
    const qint64 before = dock();
    QCOMPARE(kill(static_cast<pid_t>(before), signal), 0);
    QVERIFY(waitForNext(before));
}

void SandboxDockTest::comesBackFromTheStandInsKillall()
{
    const qint64 before = dock();
    const QStringList name{QStringLiteral("Dock")};
    QCOMPARE(runTool(m_standIn->path(u"usr/bin/killall"), name, m_standIn->environment()).status,
             0);
    QVERIFY(waitForNext(before));
}

void SandboxDockTest::endsWithItsSupervisor()
{
    m_supervisor.kill(); // it can't say goodbye
    QVERIFY(m_supervisor.waitForFinished(5000));
    QTRY_COMPARE(dock(), 0);
}

void SandboxDockTest::endsWhenTheStandInIsGone()
{
    QVERIFY(QDir(m_standIn->mac().root()).removeRecursively());
    QVERIFY(m_supervisor.waitForFinished(5000));
    QCOMPARE(m_supervisor.exitCode(), 0);
}

QTEST_GUILESS_MAIN(SandboxDockTest)
#include "tst_sandboxdock.moc"
