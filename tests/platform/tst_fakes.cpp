#include "tests/fakes/fakebookmarks.h"
#include "tests/fakes/fakeclock.h"
#include "tests/fakes/fakedirectories.h"
#include "tests/fakes/fakedirectorywatcher.h"
#include "tests/fakes/fakefilesystem.h"
#include "tests/fakes/fakemainbundle.h"
#include "tests/fakes/fakeprocessrunner.h"
#include "tests/fakes/fakerunningapplications.h"
#include "tests/fakes/fakeurlfetcher.h"
#include "tests/fakes/fakeuserdefaults.h"
#include "tests/fakes/fakeworkspace.h"

#include <QTest>

using namespace std::chrono_literals;

class FakesTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void clockFiresInOrderOfTime();
    void clockStopsATimerThatIsDestroyed();
    void clockRestartsARunningTimer();
    void clockWakesSleepers();
    void fileSystemFailsWhereTold();
    void watcherForgetsAWatchThatEnded();
    void fetcherHoldsUntilReleased();
};

void FakesTest::clockFiresInOrderOfTime()
{
    FakeClock clock;
    QList<int> fired;
    const auto late = clock.makeTimer([&] { fired.append(2); });
    const auto early = clock.makeTimer([&] {
        fired.append(1);
        clock.call(5ms, [&] { fired.append(11); });
    });
    late->start(20ms);
    early->start(10ms);
    clock.advance(9ms);
    QCOMPARE(fired, QList<int>{});
    clock.advance(100ms);
    QCOMPARE(fired, (QList<int>{1, 11, 2}));
    QCOMPARE(clock.elapsed, 109ms);
}

void FakesTest::clockStopsATimerThatIsDestroyed()
{
    FakeClock clock;
    bool hasFired = false;
    auto timer = clock.makeTimer([&] { hasFired = true; });
    timer->start(1ms);
    timer.reset();
    clock.advance(10ms);
    QVERIFY(!hasFired);
}

void FakesTest::clockRestartsARunningTimer()
{
    FakeClock clock;
    QList<std::chrono::milliseconds> fired;
    const auto timer = clock.makeTimer([&] { fired.append(clock.elapsed); });
    timer->start(10ms);
    clock.advance(6ms);
    timer->start(10ms);
    clock.advance(100ms);
    QCOMPARE(fired, QList<std::chrono::milliseconds>{16ms});
}

void FakesTest::clockWakesSleepers()
{
    FakeClock clock;
    QStringList story;
    const auto sleeper = [&]() -> QCoro::Task<> {
        co_await clock.sleep(50ms);
        story.append(QStringLiteral("fifty"));
        co_await clock.sleep(0ms);
        story.append(QStringLiteral("at once"));
    };
    const QCoro::Task<> task = sleeper();
    clock.advance(49ms);
    QVERIFY(story.isEmpty());
    clock.advance(1ms);
    QCOMPARE(story, (QStringList{QStringLiteral("fifty"), QStringLiteral("at once")}));
    QVERIFY(task.isReady());
}

void FakesTest::fileSystemFailsWhereTold()
{
    using Operation = FakeFileSystem::Operation;
    const FakeDirectories directories;
    FakeFileSystem files;
    files.fail(Operation::Write, QStringLiteral("/full"));
    const FileURL home = directories.home();
    files.createDirectories(home);
    files.writeAtomically(home.appendingFile(QStringLiteral("fine")), "x");
    QVERIFY_THROWS_EXCEPTION(
        PlatformError, files.writeAtomically(home.appendingFile(QStringLiteral("full")), "x"));
    QCOMPARE(files.count(Operation::Write), 2);
    QCOMPARE(files.files.contents(home).size(), 1);
}

void FakesTest::watcherForgetsAWatchThatEnded()
{
    FakeDirectoryWatcher watcher;
    int changes = 0;
    auto watch = watcher.watch(FileURL::directory(QStringLiteral("/x")), [&] { ++changes; });
    watcher.change();
    watch.reset();
    watcher.change();
    QCOMPARE(changes, 1);
}

void FakesTest::fetcherHoldsUntilReleased()
{
    FakeURLFetcher fetcher;
    fetcher.body = "{}";
    fetcher.isHeld = true;
    const auto task = fetcher.fetch(QUrl(QStringLiteral("https://example.com/")));
    QVERIFY(!task.isReady());
    fetcher.release();
    QVERIFY(task.isReady());
}

QTEST_GUILESS_MAIN(FakesTest)
#include "tst_fakes.moc"
