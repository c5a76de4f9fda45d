#include "platform/macos/macprocessrunner.h"

#include "platform/error.h"
#include "tests/platform/macos/gnusteptest.h"
#include "tests/platform/macos/runloopprobe.h"

#include <QDir>
#include <QElapsedTimer>

#include <csignal>

using namespace std::chrono_literals;

class MacProcessRunnerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void silentSuccessIsZeroAndEmpty();
    void exitStatusIsTheTools();
    void signalNumberIsTheStatusOfAKilledTool();
    void argumentsArriveAsTheyAre();
    void diagnosticsLargerThanAPipeAreCapturedWhole();
    void diagnosticsNeedNotBeText();
    void standardOutputIsLeftAlone();
    void missingToolCannotBeLaunched();
    void hangingToolIsKilled();
    void toolThatNeverStopsTalkingIsKilled();
    void helperThatKeepsThePipeOpenIsNotWaitedFor();
    void noEventIsHandledWhileAToolRuns_data();
    void noEventIsHandledWhileAToolRuns();
    void descriptorsAreGivenBack();
    void startDoesNotWait();
    void startOfAMissingToolThrows();
};

namespace {

FileURL shell()
{
    return FileURL::file(QStringLiteral("/bin/sh"));
}

QStringList script(const QString &text)
{
    return {QStringLiteral("-c"), text};
}

qsizetype openDescriptors()
{
    return QDir(QStringLiteral("/proc/self/fd"))
        .entryList(QDir::NoDotAndDotDot | QDir::System)
        .size();
}

} // namespace

void MacProcessRunnerTest::silentSuccessIsZeroAndEmpty()
{
    const ProcessResult result = MacProcessRunner().run(shell(), script(QStringLiteral("exit 0")));
    QVERIFY(result.succeeded());
    QCOMPARE(result.standardError, QByteArray());
}

void MacProcessRunnerTest::exitStatusIsTheTools()
{
    const ProcessResult result
        = MacProcessRunner().run(shell(), script(QStringLiteral("echo no >&2; exit 3")));
    QCOMPARE(result.exitStatus, 3);
    QCOMPARE(result.standardError, QByteArray("no\n"));
}

void MacProcessRunnerTest::signalNumberIsTheStatusOfAKilledTool()
{
    const ProcessResult result
        = MacProcessRunner().run(shell(), script(QStringLiteral("kill -9 $$")));
    QVERIFY(!result.succeeded());
    QCOMPARE(result.exitStatus, SIGKILL);
}

void MacProcessRunnerTest::argumentsArriveAsTheyAre()
{
    const QStringList arguments{QStringLiteral("-c"),
                                QStringLiteral("printf '%s|' \"$@\" >&2"),
                                QStringLiteral("sh"),
                                QStringLiteral("two words"),
                                QStringLiteral("\"quoted\" $HOME *"),
                                QString(),
                                QStringLiteral("Ünï\U0001F4C1.app")};
    const ProcessResult result = MacProcessRunner().run(shell(), arguments);
    QCOMPARE(QString::fromUtf8(result.standardError),
             QStringLiteral("two words|\"quoted\" $HOME *||Ünï\U0001F4C1.app|"));
}

void MacProcessRunnerTest::diagnosticsLargerThanAPipeAreCapturedWhole()
{
    const ProcessResult result = MacProcessRunner(30s).run(
        shell(), script(QStringLiteral("head -c 3000000 /dev/zero >&2; exit 1")));
    QCOMPARE(result.exitStatus, 1);
    QCOMPARE(result.standardError.size(), 3000000);
}

void MacProcessRunnerTest::diagnosticsNeedNotBeText()
{
    const ProcessResult result
        = MacProcessRunner().run(shell(), script(QStringLiteral("printf '\\377\\000\\376' >&2")));
    QCOMPARE(result.standardError, QByteArray("\xff\0\xfe", 3));
}

void MacProcessRunnerTest::standardOutputIsLeftAlone()
{
    // The tool's standard output is ours: both are the same file.
    const ProcessResult result = MacProcessRunner().run(
        shell(),
        script(QStringLiteral(
            "[ \"$(readlink /proc/$$/fd/1)\" = \"$(readlink /proc/$PPID/fd/1)\" ]")));
    QCOMPARE(result.exitStatus, 0);
}

void MacProcessRunnerTest::missingToolCannotBeLaunched()
{
    const FileURL missing = FileURL::file(QStringLiteral("/nonexistent/codesign"));
    try {
        (void)MacProcessRunner().run(missing, {});
        QFAIL("launched");
    } catch (const PlatformError &error) {
        QVERIFY(!error.description().isEmpty());
    }
}

void MacProcessRunnerTest::hangingToolIsKilled()
{
    MacProcessRunner runner(200ms);
    QElapsedTimer elapsed;
    elapsed.start();
    // Neither the polite signal nor a closed pipe ends this one.
    QVERIFY_THROWS_EXCEPTION(
        PlatformError,
        (void)runner.run(shell(),
                         script(QStringLiteral("trap '' TERM; exec 2>&-; exec sleep 60"))));
    QVERIFY(elapsed.elapsed() < 30'000);
}

void MacProcessRunnerTest::toolThatNeverStopsTalkingIsKilled()
{
    MacProcessRunner runner(200ms);
    QVERIFY_THROWS_EXCEPTION(
        PlatformError,
        (void)runner.run(shell(), script(QStringLiteral("while :; do echo more >&2; done"))));
}

void MacProcessRunnerTest::helperThatKeepsThePipeOpenIsNotWaitedFor()
{
    QElapsedTimer elapsed;
    elapsed.start();
    const ProcessResult result = MacProcessRunner().run(
        shell(), script(QStringLiteral("sleep 10 >/dev/null & echo said >&2; exit 4")));
    QCOMPARE(result.exitStatus, 4);
    QCOMPARE(result.standardError, QByteArray("said\n"));
    QVERIFY(elapsed.elapsed() < 9'000);
}

void MacProcessRunnerTest::noEventIsHandledWhileAToolRuns_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("that keeps the pipe open") << QStringLiteral("sleep 0.2");
    QTest::newRow("that closed the pipe") << QStringLiteral("exec 2>&-; sleep 0.2");
}

void MacProcessRunnerTest::noEventIsHandledWhileAToolRuns()
{
    QFETCH(QString, text);
    bool wasHandled = false;
    postToRunLoop(&wasHandled);
    QVERIFY(MacProcessRunner().run(shell(), script(text)).succeeded());
    QVERIFY(!wasHandled);
    turnRunLoop();
    QVERIFY(wasHandled);
}

void MacProcessRunnerTest::descriptorsAreGivenBack()
{
    MacProcessRunner runner;
    (void)runner.run(shell(), script(QStringLiteral("exit 0"))); // whatever is opened only once
    const qsizetype before = openDescriptors();
    for (int i = 0; i < 10; ++i)
        (void)runner.run(shell(), script(QStringLiteral("exit 1")));
    QCOMPARE(openDescriptors(), before);
}

void MacProcessRunnerTest::startDoesNotWait()
{
    const QTemporaryDir directory;
    const QString done = directory.filePath(QStringLiteral("done"));
    MacProcessRunner().start(shell(),
                             {QStringLiteral("-c"), QStringLiteral("sleep 0.2; : > \"$0\""), done});
    QVERIFY(!QFile::exists(done));
    QTRY_VERIFY(QFile::exists(done));
}

void MacProcessRunnerTest::startOfAMissingToolThrows()
{
    QVERIFY_THROWS_EXCEPTION(
        PlatformError,
        MacProcessRunner().start(FileURL::file(QStringLiteral("/nonexistent/killall")), {}));
}

int main(int argc, char **argv)
{
    return runWithFoundation<MacProcessRunnerTest>(argc, argv);
}

#include "tst_macprocessrunner.moc"
