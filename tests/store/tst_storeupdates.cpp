#include "tests/store/storefixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace std::chrono_literals;

namespace {

QByteArray feed(qint64 build, const QString &url = QStringLiteral("https://nestlet.example/42"))
{
    return QStringLiteral(R"({"build":%1,"version":"4.2","url":"%2"})")
        .arg(build)
        .arg(url)
        .toUtf8();
}

// The record's field in place of the feed's member.
const QByteArray misnamedFeed = R"({"build":9,"version":"1","downloadURL":"https://x/"})";

} // namespace

class StoreUpdatesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_fixture.reset(); }

    void startChecksOnce();
    void activationsWithinAnHourStartOneCheck();
    void anActivationMoreThanAnHourLaterChecksAgain();
    void aFailedCheckCountsForTheHour();
    void offersOnlyNewerBuilds_data();
    void offersOnlyNewerBuilds();
    void theAnswerMayComeLate();
    void anOfferStaysWhenALaterCheckFindsNothing();
    void aDismissedBuildIsNotOfferedAgain();
    void dismissingNothingStoresNothing();
    void opensOnlyWebPages_data();
    void opensOnlyWebPages();
    void thePortableFeedReplacesTheBuiltInOne();

private:
    CompanionStore &store() { return *m_fixture->store; }
    void activateAfter(std::chrono::milliseconds wait)
    {
        m_fixture->clock.advance(wait);
        store().applicationBecameActive();
    }

    std::unique_ptr<StoreFixture> m_fixture;
};

void StoreUpdatesTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    m_fixture = std::make_unique<StoreFixture>();
    m_fixture->mainBundle.bundleVersion = QStringLiteral("41");
}

void StoreUpdatesTest::startChecksOnce()
{
    store().start();
    QCOMPARE(m_fixture->network.fetched, QList{updateFeedURL()});
    QCOMPARE(updateFeedURL().path(), QStringLiteral("/nestlet-companion-appcast.json"));
    QCOMPARE(updateFeedURL().scheme(), QStringLiteral("https"));
}

void StoreUpdatesTest::activationsWithinAnHourStartOneCheck()
{
    store().start();
    activateAfter(0s);
    activateAfter(30min);
    activateAfter(30min); // exactly an hour is not more than one
    QCOMPARE(m_fixture->network.fetched.size(), 1);
}

void StoreUpdatesTest::anActivationMoreThanAnHourLaterChecksAgain()
{
    store().start();
    activateAfter(3601s);
    QCOMPARE(m_fixture->network.fetched.size(), 2);
    activateAfter(1s);
    QCOMPARE(m_fixture->network.fetched.size(), 2);
}

void StoreUpdatesTest::aFailedCheckCountsForTheHour()
{
    m_fixture->network.body = std::nullopt;
    store().start();
    m_fixture->network.body = feed(42);
    activateAfter(59min);
    QCOMPARE(m_fixture->network.fetched.size(), 1);
    QCOMPARE(store().availableUpdate(), std::nullopt);
}

void StoreUpdatesTest::offersOnlyNewerBuilds_data()
{
    QTest::addColumn<QString>("running");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("isOffered");
    QTest::newRow("the same build") << "42" << feed(42) << false;
    QTest::newRow("an older build") << "43" << feed(42) << false;
    QTest::newRow("a newer build") << "41" << feed(42) << true;
    QTest::newRow("a version that is no number counts as 0") << "1.2" << feed(1) << true;
    QTest::newRow("the field's name in place of url") << "1" << misnamedFeed << false;
    QTest::newRow("no JSON") << "1" << QByteArrayLiteral("<html>") << false;
}

void StoreUpdatesTest::offersOnlyNewerBuilds()
{
    QFETCH(QString, running);
    QFETCH(QByteArray, body);
    QFETCH(bool, isOffered);
    m_fixture->mainBundle.bundleVersion = running;
    m_fixture->network.body = body;
    store().start();
    QCOMPARE(store().availableUpdate().has_value(), isOffered);
    QCOMPARE(store().errorMessage(), QString());
}

void StoreUpdatesTest::theAnswerMayComeLate()
{
    m_fixture->network.isHeld = true;
    m_fixture->network.body = feed(42);
    store().start();
    const QSignalSpy offers(&store(), &CompanionStore::availableUpdateChanged);
    QCOMPARE(store().availableUpdate(), std::nullopt);
    m_fixture->network.release();
    QCOMPARE(offers.count(), 1);
    QCOMPARE(store().availableUpdate()->version, QStringLiteral("4.2"));
}

void StoreUpdatesTest::anOfferStaysWhenALaterCheckFindsNothing()
{
    m_fixture->network.body = feed(42);
    store().start();
    m_fixture->network.body = feed(1);
    activateAfter(2h);
    QCOMPARE(store().availableUpdate()->build, 42);
}

void StoreUpdatesTest::aDismissedBuildIsNotOfferedAgain()
{
    m_fixture->network.body = feed(42);
    store().start();
    store().dismissUpdate();
    QCOMPARE(store().availableUpdate(), std::nullopt);
    QCOMPARE(m_fixture->standardDefaults.values.value(QStringLiteral("NLC_dismissedUpdateBuild")),
             QVariant(42LL));
    activateAfter(2h);
    QCOMPARE(store().availableUpdate(), std::nullopt);
    m_fixture->network.body = feed(43);
    activateAfter(2h);
    QCOMPARE(store().availableUpdate()->build, 43);
}

void StoreUpdatesTest::dismissingNothingStoresNothing()
{
    store().start();
    store().dismissUpdate();
    QCOMPARE(m_fixture->standardDefaults.writes, 0);
}

void StoreUpdatesTest::opensOnlyWebPages_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<bool>("isOpened");
    QTest::newRow("https") << "https://nestlet.example/get" << true;
    QTest::newRow("http, in capitals") << "HTTP://nestlet.example/get" << true;
    QTest::newRow("file") << "file:///etc/passwd" << false;
    QTest::newRow("another program's") << "ssh://host" << false;
    QTest::newRow("none") << "just/a/path" << false;
}

void StoreUpdatesTest::opensOnlyWebPages()
{
    QFETCH(QString, url);
    QFETCH(bool, isOpened);
    m_fixture->network.body = feed(42, url);
    store().start();
    store().openUpdateDownload(*store().availableUpdate());
    QCOMPARE(m_fixture->workspace.openedURLs.size(), isOpened ? 1 : 0);
    QVERIFY(store().availableUpdate()); // the offer stays
}

void StoreUpdatesTest::thePortableFeedReplacesTheBuiltInOne()
{
    m_fixture->platform.updateFeed = QUrl(QStringLiteral("http://127.0.0.1/feed"));
    store().start();
    QCOMPARE(m_fixture->network.fetched, QList{QUrl(QStringLiteral("http://127.0.0.1/feed"))});
}

QTEST_GUILESS_MAIN(StoreUpdatesTest)
#include "tst_storeupdates.moc"
