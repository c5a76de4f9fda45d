#include "platform/error.h"
#include "platform/portable/portableprocessrunner.h"
#include "platform/posix/posixfilesystem.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

using namespace std::chrono_literals;

class PortableProcessRunnerTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void reportsTheExitStatus();
    void reportsTheSignal();
    void reportsTheExitStatusToAProgramThatIgnoresItsChildren();
    void capturesStandardError_data();
    void capturesStandardError();
    void handsArgumentsOverAsTheyAre();
    void handsOverNeitherInputNorFiles();
    void tellsToolsTheRoot();
    void doesNotWaitForWhatAToolLeftRunning();
    void endsAHangingToolAndItsHelpers();
    void saysWhyAToolCannotBeLaunched_data();
    void saysWhyAToolCannotBeLaunched();
    void startsWithoutWaiting();

private:
    [[nodiscard]] ProcessResult shell(const QString &script, const QStringList &arguments = {})
    {
        return m_runner.run(
            m_shell, QStringList{QStringLiteral("-c"), script, QStringLiteral("sh")} + arguments);
    }
    [[nodiscard]] QString path(const char *name) const
    {
        return m_directory.filePath(QString::fromLatin1(name));
    }

    const QTemporaryDir m_directory{};
    const FileURL m_shell = FileURL::file(QStringLiteral("/bin/sh"));
    PortableProcessRunner m_runner{QStringLiteral("/the root"), 20s};
};

void PortableProcessRunnerTest::reportsTheExitStatus()
{
    QVERIFY(shell(QStringLiteral("exit 0")).succeeded());
    QCOMPARE(shell(QStringLiteral("exit 3")).exitStatus, 3);
}

void PortableProcessRunnerTest::reportsTheSignal()
{
    const ProcessResult result = shell(QStringLiteral("echo before >&2; kill -SEGV $$"));
    QCOMPARE(result.exitStatus, SIGSEGV);
    QCOMPARE(result.standardError, QByteArray("before\n"));
    QVERIFY(!result.succeeded());
}

void PortableProcessRunnerTest::reportsTheExitStatusToAProgramThatIgnoresItsChildren()
{
    const auto before = ::signal(SIGCHLD, SIG_IGN); // as some parents leave it
    const int status = shell(QStringLiteral("exit 3")).exitStatus;
    ::signal(SIGCHLD, before);
    QCOMPARE(status, 3);
}

void PortableProcessRunnerTest::capturesStandardError_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("nothing") << QStringLiteral("exit 1") << QByteArray();
    QTest::newRow("not standard output")
        << QStringLiteral("echo out >/dev/null; printf err >&2") << QByteArray("err");
    QTest::newRow("more than a pipe holds")
        << QStringLiteral("head -c 1000000 /dev/zero | tr '\\0' x >&2")
        << QByteArray(1'000'000, 'x');
    QTest::newRow("no text") << QStringLiteral("printf '\\377\\376\\0a' >&2")
                             << QByteArray("\xff\xfe\0a", 4);
}

void PortableProcessRunnerTest::capturesStandardError()
{
    QFETCH(QString, script);
    QTEST(shell(script).standardError, "expected");
}

void PortableProcessRunnerTest::handsArgumentsOverAsTheyAre()
{
    const QStringList arguments{QStringLiteral("a b"), QString(), QStringLiteral("$HOME"),
                                QStringLiteral("\u00e4\n\""), QString(100'000, u'x')};
    QCOMPARE(shell(QStringLiteral("printf '%s|' \"$@\" >&2"), arguments).standardError,
             (arguments.join(u'|') + u'|').toUtf8());
}

void PortableProcessRunnerTest::handsOverNeitherInputNorFiles()
{
    const int null = ::open("/dev/null", O_RDONLY);
    const int open = ::fcntl(null, F_DUPFD, 50); // would be inherited by a careless launch
    QVERIFY(open >= 50);
    const ProcessResult result
        = shell(QStringLiteral("cat >&2; cd /proc/$$/fd; for fd in *; do test $fd -gt 9 && "
                               "printf '%s ' $fd >&2; done"));
    ::close(open);
    ::close(null);
    QCOMPARE(result.standardError, QByteArray());
}

void PortableProcessRunnerTest::tellsToolsTheRoot()
{
    QCOMPARE(shell(QStringLiteral("printf %s \"$NESTLET_COMPANION_ROOT\" >&2")).standardError,
             QByteArray("/the root"));
}

void PortableProcessRunnerTest::doesNotWaitForWhatAToolLeftRunning()
{
    QElapsedTimer timer;
    timer.start();
    const ProcessResult result = shell(QStringLiteral("echo $$ >&2; sleep 15 & exit 0"));
    QVERIFY(timer.elapsed() < 10'000);
    ::kill(-result.standardError.trimmed().toInt(), SIGKILL);
}

void PortableProcessRunnerTest::endsAHangingToolAndItsHelpers()
{
    PortableProcessRunner hurried(QStringLiteral("/"), 300ms);
    const QString note = path("helper");
    const QString script
        = QStringLiteral("trap '' TERM; sleep 600 & echo $! >'%1'; wait; wait").arg(note);
    QElapsedTimer timer;
    timer.start();
    QString reason;
    try {
        static_cast<void>(hurried.run(m_shell, {QStringLiteral("-c"), script}));
    } catch (const PlatformError &error) {
        reason = error.description();
    }
    QCOMPARE(reason, QStringLiteral("“/bin/sh” did not finish in 0.3 s and was ended"));
    QVERIFY(timer.elapsed() >= 300 && timer.elapsed() < 10'000);
    QFile file(note);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray helper = file.readAll().trimmed();
    const auto state = [&] {
        QFile status(QStringLiteral("/proc/%1/stat").arg(QString::fromLatin1(helper)));
        return status.open(QIODevice::ReadOnly) ? status.readAll().split(' ').value(2) : "gone";
    };
    QTRY_VERIFY(state() == "gone" || state() == "Z");
}

void PortableProcessRunnerTest::saysWhyAToolCannotBeLaunched_data()
{
    QTest::addColumn<QString>("tool");
    QTest::addColumn<QString>("reason");
    const PosixFileSystem files;
    files.writeAtomically(FileURL::file(path("plain")), "#!/bin/sh\n");
    files.writeAtomically(FileURL::file(path("noise")), "\1\2\3");
    files.writeAtomically(FileURL::file(path("orphan")), "#!/no/such/interpreter\n");
    for (const char *name : {"noise", "orphan"})
        QCOMPARE(::chmod(path(name).toUtf8().constData(), 0755), 0);
    QTest::newRow("missing") << path("missing") << QStringLiteral("No such file or directory");
    QTest::newRow("not executable") << path("plain") << QStringLiteral("Permission denied");
    QTest::newRow("no program") << path("noise") << QStringLiteral("Exec format error");
    QTest::newRow("no interpreter")
        << path("orphan") << QStringLiteral("No such file or directory");
    QTest::newRow("directory") << m_directory.path() << QStringLiteral("Permission denied");
}

void PortableProcessRunnerTest::saysWhyAToolCannotBeLaunched()
{
    QFETCH(QString, tool);
    QFETCH(QString, reason);
    const FileURL url = FileURL::file(tool);
    const QString expected = QStringLiteral("Could not launch “%1”: %2").arg(tool, reason);
    for (const bool isWaitedFor : {true, false}) {
        QString text;
        try {
            if (isWaitedFor)
                static_cast<void>(m_runner.run(url, {}));
            else
                m_runner.start(url, {});
        } catch (const PlatformError &error) {
            text = error.description();
        }
        QCOMPARE(text, expected);
    }
}

void PortableProcessRunnerTest::startsWithoutWaiting()
{
    const QString note = path("started");
    m_runner.start(
        m_shell,
        {QStringLiteral("-c"), QStringLiteral("echo \"$PPID\" >'%1'; sleep 1; exit 1").arg(note)});
    QFile file(note);
    QTRY_VERIFY(file.exists() && file.size() > 0);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().trimmed().toInt() != ::getpid()); // nobody here has to collect it
}

QTEST_GUILESS_MAIN(PortableProcessRunnerTest)
#include "tst_portableprocessrunner.moc"
