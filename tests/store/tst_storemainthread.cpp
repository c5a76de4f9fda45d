#include "tests/store/storefixture.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

namespace {

// The fatal end is seen from outside: the test runs itself with this argument.
constexpr QLatin1StringView misuseArgument{"--misuse-the-store"};

int misuseTheStore()
{
    StoreFixture fixture;
    fixture.store->start();
    const std::unique_ptr<QThread> thread(QThread::create([&] { fixture.store->addFolder(); }));
    thread->start();
    thread->wait();
    return EXIT_SUCCESS; // not reached
}

} // namespace

class StoreMainThreadTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void useOffTheMainThreadIsFatalAndNamesTheLine();
};

void StoreMainThreadTest::useOffTheMainThreadIsFatalAndNamesTheLine()
{
    const QTemporaryDir temporary; // it ends too suddenly to remove its own
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TMPDIR"), temporary.path());
    QProcess misuse;
    misuse.setProcessEnvironment(environment);
    misuse.start(QCoreApplication::applicationFilePath(), {misuseArgument});
    QVERIFY(misuse.waitForFinished());
    QCOMPARE(misuse.exitStatus(), QProcess::CrashExit);
    const QString said = QString::fromUtf8(misuse.readAllStandardError());
    static const QRegularExpression report(QStringLiteral("CompanionApp:\\d+: .*addFolder"));
    QVERIFY2(report.match(said).hasMatch(), qPrintable(said));
}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (QCoreApplication::arguments().contains(misuseArgument))
        return misuseTheStore();
    StoreMainThreadTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_storemainthread.moc"
