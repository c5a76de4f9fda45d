#include "system/droppedurls.h"

#include "tests/fakes/fakedropinfo.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QThread>

#include <atomic>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

/// Makes an application of its own for each test, since some end it.
class DroppedURLsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void threeFilesGiveOneCallInTheOrderOfTheirLoads();
    void waitsForTheLastLoad();
    void callsLaterEvenWhenLoadsEndAtOnce();
    void keepsDuplicatesAndTextAsItCame();
    void callsNothingWhenAllLoadsFail();
    void callsNothingWithoutItems();
    void skipsDataThatIsNoFileURL_data();
    void skipsDataThatIsNoFileURL();
    void loadsMayEndOnAnyThreadInAnyOrder();
    void aSecondDropMayComeDuringTheFirst();
    void completionMayRunAnEventLoop();
    void loadThatNeverEndsGoesWithTheApplication();
    void loadsThatEndAfterTheApplicationAreDropped();
    void deliveryOnItsWayIsDroppedWithTheApplication();
    void applicationMayEndWhileLoadsDo();
    void collectorTakesURLsFromManyThreads();
    void rowTakesFilesOnly();
    void rowIsTargetedWhileADragIsOverIt();
    void dropOnARowEndsTheTargetingAndIsAlwaysTaken();
    void dropOnARowReportsTheFiles();

private:
    std::unique_ptr<QCoreApplication> m_application;
};

namespace {

/// What a completion was told, and on which thread.
struct Report {
    int calls = 0;
    QList<FileURL> urls{};
    QThread *thread = nullptr;
    std::function<void(const QList<FileURL> &)> completion()
    {
        return [this](const QList<FileURL> &next) {
            ++calls;
            urls = next;
            thread = QThread::currentThread();
        };
    }
};

QByteArray fileText(int number)
{
    return "file:///tmp/file%20" + QByteArray::number(number);
}

QStringList textsOf(const QList<FileURL> &urls)
{
    QStringList texts;
    for (const FileURL &url : urls)
        texts.append(url.text());
    return texts;
}

void processEvents()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

void DroppedURLsTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    static int argumentCount = 1;
    static std::array<char, 5> name{"test"};
    static std::array<char *, 2> arguments{name.data(), nullptr};
    m_application = std::make_unique<QCoreApplication>(argumentCount, arguments.data());
}

void DroppedURLsTest::cleanup()
{
    m_application.reset();
}

void DroppedURLsTest::threeFilesGiveOneCallInTheOrderOfTheirLoads()
{
    Report report;
    const auto drop = FakeDropInfo::withFiles(3);
    collectDroppedFileURLs(drop, report.completion());
    drop.items.at(2)->finish("file:///c");
    drop.items.at(0)->finish("file:///a");
    drop.items.at(1)->finish("file:///b");
    QTRY_COMPARE(report.calls, 1);
    QCOMPARE(textsOf(report.urls), (QStringList{u"file:///c"_s, u"file:///a"_s, u"file:///b"_s}));
    processEvents();
    QCOMPARE(report.calls, 1);
}

void DroppedURLsTest::waitsForTheLastLoad()
{
    Report report;
    const auto drop = FakeDropInfo::withFiles(2);
    collectDroppedFileURLs(drop, report.completion());
    drop.items.at(1)->finish("file:///b");
    processEvents();
    QCOMPARE(report.calls, 0);
    drop.items.at(0)->finish(std::nullopt);
    QTRY_COMPARE(report.calls, 1);
    QCOMPARE(textsOf(report.urls), QStringList{u"file:///b"_s});
}

void DroppedURLsTest::callsLaterEvenWhenLoadsEndAtOnce()
{
    Report report;
    const auto drop = FakeDropInfo::withFiles(1);
    collectDroppedFileURLs(drop, report.completion());
    drop.items.at(0)->finish("file:///a");
    QCOMPARE(report.calls, 0);
    QTRY_COMPARE(report.calls, 1);
}

void DroppedURLsTest::keepsDuplicatesAndTextAsItCame()
{
    Report report;
    const auto drop = FakeDropInfo::withFiles(3);
    collectDroppedFileURLs(drop, report.completion());
    for (const auto &item : drop.items)
        item->finish("file:///tmp/%6d%C3%B6we/");
    QTRY_COMPARE(report.calls, 1);
    QCOMPARE(textsOf(report.urls), QStringList(3, u"file:///tmp/%6d%C3%B6we/"_s));
}

void DroppedURLsTest::callsNothingWhenAllLoadsFail()
{
    Report report;
    const auto before = m_application->children();
    const auto drop = FakeDropInfo::withFiles(3);
    collectDroppedFileURLs(drop, report.completion());
    for (const auto &item : drop.items)
        item->finish(std::nullopt);
    processEvents();
    QCOMPARE(report.calls, 0);
    QCOMPARE(m_application->children(), before); // and nothing waits any longer
}

void DroppedURLsTest::callsNothingWithoutItems()
{
    Report report;
    const auto before = m_application->children();
    collectDroppedFileURLs(FakeDropInfo(), report.completion());
    processEvents();
    QCOMPARE(report.calls, 0);
    QCOMPARE(m_application->children(), before);
}

void DroppedURLsTest::skipsDataThatIsNoFileURL_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("a web address") << QByteArray("https://a.example/");
    QTest::newRow("a plain path") << QByteArray("/tmp/a");
    QTest::newRow("a bare space") << QByteArray("file:///tmp/a b");
    QTest::newRow("a broken escape") << QByteArray("file:///tmp/100%");
    QTest::newRow("bytes that are no text") << QByteArray("file:///tmp/\xff");
    QTest::newRow("an empty text") << QByteArray("");
    QTest::newRow("a zero byte at the end") << QByteArray("file:///tmp/a\0", 14);
}

void DroppedURLsTest::skipsDataThatIsNoFileURL()
{
    QFETCH(QByteArray, data);
    Report report;
    const auto drop = FakeDropInfo::withFiles(2);
    collectDroppedFileURLs(drop, report.completion());
    drop.items.at(0)->finish(data);
    drop.items.at(1)->finish("file:///good");
    QTRY_COMPARE(report.calls, 1);
    QCOMPARE(textsOf(report.urls), QStringList{u"file:///good"_s});
}

void DroppedURLsTest::loadsMayEndOnAnyThreadInAnyOrder()
{
    constexpr int rounds = 40;
    constexpr int threadCount = 8;
    constexpr int loadsPerThread = 5;
    for (int round = 0; round < rounds; ++round) {
        Report report;
        const auto drop = FakeDropInfo::withFiles(qsizetype{threadCount} * loadsPerThread);
        collectDroppedFileURLs(drop, report.completion());
        std::vector<std::thread> threads;
        threads.reserve(threadCount);
        for (int t = 0; t < threadCount; ++t) {
            threads.emplace_back([&drop, t] {
                for (int i = t; i < drop.items.size(); i += threadCount)
                    drop.items.at(i)->finish(i % 4 == 0 ? std::nullopt
                                                        : std::optional(fileText(i)));
            });
        }
        QTRY_COMPARE(report.calls, 1);
        for (std::thread &thread : threads)
            thread.join();
        processEvents();
        QCOMPARE(report.calls, 1);
        QCOMPARE(report.thread, m_application->thread());
        QCOMPARE(report.urls.size(), threadCount * loadsPerThread * 3 / 4);
        QCOMPARE(QSet(report.urls.begin(), report.urls.end()).size(), report.urls.size());
    }
}

void DroppedURLsTest::aSecondDropMayComeDuringTheFirst()
{
    Report first;
    Report second;
    const auto slow = FakeDropInfo::withFiles(1);
    const auto quick = FakeDropInfo::withFiles(1);
    collectDroppedFileURLs(slow, first.completion());
    collectDroppedFileURLs(quick, second.completion());
    quick.items.at(0)->finish("file:///quick");
    QTRY_COMPARE(second.calls, 1);
    QCOMPARE(first.calls, 0);
    slow.items.at(0)->finish("file:///slow");
    QTRY_COMPARE(first.calls, 1);
    QCOMPARE(textsOf(first.urls), QStringList{u"file:///slow"_s});
}

void DroppedURLsTest::completionMayRunAnEventLoop()
{
    int calls = 0;
    const auto drop = FakeDropInfo::withFiles(1);
    collectDroppedFileURLs(drop, [&](const QList<FileURL> &urls) {
        processEvents();
        calls += static_cast<int>(urls.size());
    });
    drop.items.at(0)->finish("file:///a");
    QTRY_COMPARE(calls, 1);
}

void DroppedURLsTest::loadThatNeverEndsGoesWithTheApplication()
{
    const auto held = std::make_shared<int>();
    const auto drop = FakeDropInfo::withFiles(1);
    collectDroppedFileURLs(drop, [held](const QList<FileURL> &) { QFAIL("was called"); });
    QCOMPARE(held.use_count(), 2);
    m_application.reset();
    QCOMPARE(held.use_count(), 1);
}

void DroppedURLsTest::loadsThatEndAfterTheApplicationAreDropped()
{
    const auto drop = FakeDropInfo::withFiles(2);
    collectDroppedFileURLs(drop, [](const QList<FileURL> &) { QFAIL("was called"); });
    drop.items.at(0)->finish("file:///a");
    m_application.reset();
    std::thread([&] { drop.items.at(1)->finish("file:///b"); }).join();
    init();
    processEvents();
}

void DroppedURLsTest::deliveryOnItsWayIsDroppedWithTheApplication()
{
    const auto held = std::make_shared<int>();
    const auto drop = FakeDropInfo::withFiles(1);
    collectDroppedFileURLs(drop, [held](const QList<FileURL> &) { QFAIL("was called"); });
    drop.items.at(0)->finish("file:///a");
    m_application.reset();
    QCOMPARE(held.use_count(), 1);
}

void DroppedURLsTest::applicationMayEndWhileLoadsDo()
{
    constexpr int rounds = 40;
    for (int round = 0; round < rounds; ++round) {
        const auto held = std::make_shared<int>();
        const auto drop = FakeDropInfo::withFiles(4);
        collectDroppedFileURLs(drop, [held](const QList<FileURL> &) { QFAIL("was called"); });
        std::atomic<bool> go{false};
        std::vector<std::thread> threads;
        for (const auto &item : drop.items) {
            threads.emplace_back([&go, item] {
                while (!go)
                    std::this_thread::yield();
                item->finish("file:///a");
            });
        }
        go = true;
        m_application.reset();
        for (std::thread &thread : threads)
            thread.join();
        QCOMPARE(held.use_count(), 1);
        init();
    }
}

void DroppedURLsTest::collectorTakesURLsFromManyThreads()
{
    constexpr int threadCount = 8;
    constexpr qsizetype urlsPerThread = 500;
    CompanionURLCollector collector;
    std::vector<std::thread> threads;
    threads.reserve(threadCount);
    for (int t = 0; t < threadCount; ++t) {
        threads.emplace_back([&collector, t] {
            for (qsizetype i = 0; i < urlsPerThread; ++i)
                collector.append(FileURL::file(u"/%1/%2"_s.arg(t).arg(i)));
        });
    }
    qsizetype seen = 0;
    while (seen < threadCount * urlsPerThread) {
        const qsizetype now = collector.snapshot().size();
        QVERIFY(now >= seen);
        seen = now;
    }
    for (std::thread &thread : threads)
        thread.join();
    const auto urls = collector.snapshot();
    QCOMPARE(QSet(urls.begin(), urls.end()).size(), threadCount * urlsPerThread);
}

void DroppedURLsTest::rowTakesFilesOnly()
{
    const FolderRowDropDelegate row;
    QVERIFY(row.validateDrop(FakeDropInfo::withFiles(1)));
    QVERIFY(!row.validateDrop(FakeDropInfo::withPlainText()));
    const FolderGridDropDelegate grid;
    QVERIFY(grid.validateDrop(FakeDropInfo::withFiles(1)));
    QVERIFY(!grid.validateDrop(FakeDropInfo::withPlainText()));
}

void DroppedURLsTest::rowIsTargetedWhileADragIsOverIt()
{
    QList<bool> targeted;
    const FolderRowDropDelegate row{.setTargeted = [&](bool is) { targeted.append(is); }};
    row.dropEntered(FakeDropInfo::withFiles(1));
    QCOMPARE(targeted, QList{true});
    row.dropExited();
    QCOMPARE(targeted, (QList{true, false}));
}

void DroppedURLsTest::dropOnARowEndsTheTargetingAndIsAlwaysTaken()
{
    QList<bool> targeted;
    const FolderRowDropDelegate row{.setTargeted = [&](bool is) { targeted.append(is); },
                                    .onDrop = [](const auto &) { QFAIL("was called"); }};
    QVERIFY(row.performDrop(FakeDropInfo::withPlainText()));
    QCOMPARE(targeted, QList{false});
    processEvents();
}

void DroppedURLsTest::dropOnARowReportsTheFiles()
{
    Report report;
    QList<bool> targeted;
    const FolderRowDropDelegate row{.setTargeted = [&](bool is) { targeted.append(is); },
                                    .onDrop = report.completion()};
    const auto drop = FakeDropInfo::withFiles(3);
    QVERIFY(row.performDrop(drop));
    QCOMPARE(targeted, QList{false}); // at once, not when the loads have ended
    for (int i : {1, 0, 2})
        drop.items.at(i)->finish(fileText(i));
    QTRY_COMPARE(report.calls, 1);
    QCOMPARE(textsOf(report.urls),
             (QStringList{u"file:///tmp/file%201"_s, u"file:///tmp/file%200"_s,
                          u"file:///tmp/file%202"_s}));
}

QTEST_APPLESS_MAIN(DroppedURLsTest)
#include "tst_droppedurls.moc"
