#include "platform/qt/qtclock.h"
#include "platform/qt/qturlfetcher.h"

#include <QCoroTask>
#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QThread>

using namespace std::chrono_literals;

namespace {

// Answers every connection with the same bytes and hangs up.
class OneAnswerServer final : public QTcpServer {
public:
    explicit OneAnswerServer(const QByteArray &answer)
    {
        connect(this, &QTcpServer::newConnection, this, [this, answer] {
            QTcpSocket *socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket, answer] {
                ++requests;
                socket->readAll();
                socket->write(answer);
                socket->disconnectFromHost();
            });
        });
        listen(QHostAddress::LocalHost);
    }
    [[nodiscard]] QUrl url() const
    {
        return QUrl(QStringLiteral("http://127.0.0.1:%1/feed.json").arg(serverPort()));
    }

    int requests = 0;
};

QByteArray answer(const QByteArray &status, const QByteArray &body, const QByteArray &headers = {})
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n"
        + headers + "\r\n" + body;
}

std::optional<QByteArray> fetched(const QUrl &url)
{
    QtURLFetcher fetcher;
    return QCoro::waitFor(fetcher.fetch(url));
}

} // namespace

class QtServicesTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void timersFireOnceAndNeverEarly();
    void timersStartAgain();
    void destroyedTimersDoNotFire();
    void aTimerMayEndInItsOwnCall();
    void sleepIsNeverShort();
    void fetchesTheBodyWhateverTheStatus_data();
    void fetchesTheBodyWhateverTheStatus();
    void followsRedirections();
    void noAnswerIsNothing();
    void tooLargeABodyIsNothing();
    void bodiesCutShortAreNothing();
};

void QtServicesTest::timersFireOnceAndNeverEarly()
{
    QtClock clock;
    for (const std::chrono::milliseconds delay : {0ms, 1ms, 20ms, 180ms}) {
        int fired = 0;
        const auto start = std::chrono::steady_clock::now();
        std::chrono::steady_clock::duration elapsed{};
        const auto timer = clock.makeTimer([&] {
            ++fired;
            elapsed = std::chrono::steady_clock::now() - start;
        });
        timer->start(delay);
        QTRY_COMPARE(fired, 1);
        QVERIFY(elapsed >= delay);
        QTest::qWait(30);
        QCOMPARE(fired, 1);
    }
}

void QtServicesTest::timersStartAgain()
{
    QtClock clock;
    QElapsedTimer elapsed;
    int fired = 0;
    const auto timer = clock.makeTimer([&] { ++fired; });
    timer->start(60ms);
    QTest::qWait(30);
    elapsed.start();
    timer->start(100ms);
    QTRY_COMPARE(fired, 1);
    QVERIFY(elapsed.elapsed() >= 100);
    timer->start(1ms);
    QTRY_COMPARE(fired, 2);
}

void QtServicesTest::destroyedTimersDoNotFire()
{
    QtClock clock;
    bool hasFired = false;
    clock.makeTimer([&] { hasFired = true; })->start(1ms);
    QTest::qWait(30);
    QVERIFY(!hasFired);
}

void QtServicesTest::aTimerMayEndInItsOwnCall()
{
    QtClock clock;
    int fired = 0;
    std::unique_ptr<Timer> timer;
    timer = clock.makeTimer([&] {
        timer.reset();
        ++fired;
    });
    timer->start(1ms);
    QTRY_COMPARE(fired, 1);
}

void QtServicesTest::sleepIsNeverShort()
{
    QtClock clock;
    for (const std::chrono::milliseconds delay : {0ms, 1ms, 50ms}) {
        const auto start = std::chrono::steady_clock::now();
        QCoro::waitFor(clock.sleep(delay));
        QVERIFY(std::chrono::steady_clock::now() - start >= delay);
    }
    QVERIFY(clock.now() > std::chrono::system_clock::from_time_t(1'600'000'000));
}

void QtServicesTest::fetchesTheBodyWhateverTheStatus_data()
{
    QTest::addColumn<QByteArray>("status");
    for (const char *status :
         {"200 OK", "404 Not Found", "403 Forbidden", "410 Gone", "429 Too Many Requests",
          "500 Internal Server Error", "503 Service Unavailable"})
        QTest::newRow(status) << QByteArray(status);
}

void QtServicesTest::fetchesTheBodyWhateverTheStatus()
{
    QFETCH(QByteArray, status);
    const OneAnswerServer server(answer(status, "{\"build\":2}"));
    QCOMPARE(fetched(server.url()), QByteArray("{\"build\":2}"));
    QCOMPARE(server.requests, 1);
}

void QtServicesTest::followsRedirections()
{
    const OneAnswerServer target(answer("200 OK", "there"));
    const OneAnswerServer server(
        answer("302 Found", "", "Location: " + target.url().toEncoded() + "\r\n"));
    QCOMPARE(fetched(server.url()), QByteArray("there"));
}

void QtServicesTest::noAnswerIsNothing()
{
    QUrl closed;
    {
        const OneAnswerServer server("");
        closed = server.url();
    }
    QVERIFY(!fetched(closed));
    const OneAnswerServer silent("");
    QVERIFY(!fetched(silent.url()));
    QVERIFY(!fetched(QUrl(QStringLiteral("nonsense://x/"))));
    QVERIFY(!fetched(QUrl()));
}

void QtServicesTest::tooLargeABodyIsNothing()
{
    const OneAnswerServer just(answer("200 OK", QByteArray(QtURLFetcher::largestBody, 'x')));
    QCOMPARE(fetched(just.url()).value_or(QByteArray()).size(), QtURLFetcher::largestBody);
    const OneAnswerServer large(answer("200 OK", QByteArray(QtURLFetcher::largestBody + 1, 'x')));
    QVERIFY(!fetched(large.url()));
    const OneAnswerServer endless("HTTP/1.1 200 OK\r\n\r\n"
                                  + QByteArray(QtURLFetcher::largestBody * 3, 'x'));
    QVERIFY(!fetched(endless.url()));
}

void QtServicesTest::bodiesCutShortAreNothing()
{
    const OneAnswerServer server("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nshort");
    QVERIFY(!fetched(server.url()));
}

QTEST_GUILESS_MAIN(QtServicesTest)
#include "tst_qtservices.moc"
