#include "ui/pictureloader.h"

#include <QSemaphore>
#include <QTest>
#include <QThread>

#include <atomic>
#include <chrono>
#include <mutex>

namespace {

constexpr qsizetype plenty = 1'000'000;

QImage square(int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::red);
    return image;
}

struct Receiver final : PictureReceiver {
    QList<QImage> pictures{};
    QThread *thread{};
    void receivePicture(const QImage &picture) override
    {
        pictures.append(picture);
        thread = QThread::currentThread();
    }
};

} // namespace

class PictureLoaderTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void makesPicturesOnAnotherThread();
    void whatSeveralWaitForIsMadeOnce();
    void remembersWhatWasMade();
    void remembersWhatCouldNotBeMade();
    void forgetsWhatWasNotUsedForLongest();
    void whatWasBegunIsMadeForWhoAsksLater();
    void whatNobodyWaitsForIsNotBegun();
    void whatOneStillWaitsForIsMade();
    void whatHasBegunIsRemembered();
    void whatIsWantedAgainComes();
    void aReceiverCanAskAnew();
    void whoIsToldCanMakeAnotherGoAway();
    void deliversInTheOrderOfTheRequests();
    void dropsTheRestWhenItGoes();

private:
    [[nodiscard]] PictureRequest request(const QString &key);
    [[nodiscard]] PictureRequest slowRequest(const QString &key);
    void occupyAllThreads();
    [[nodiscard]] QStringList made();

    std::unique_ptr<PictureLoader> m_loader;
    QMutex m_mutex; ///< of what follows
    QStringList m_made;
    QSemaphore m_gate;
    Receiver m_occupant;
    int m_occupied = 0;
};

void PictureLoaderTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_loader = std::make_unique<PictureLoader>(plenty);
    m_made.clear();
    m_occupied = 0;
}

void PictureLoaderTest::cleanup()
{
    m_gate.release(m_occupied);
    m_loader.reset();
    m_gate.tryAcquire(m_gate.available());
}

PictureRequest PictureLoaderTest::request(const QString &key)
{
    const auto make = [this, key] {
        const std::scoped_lock lock(m_mutex);
        m_made.append(key);
        return square(10);
    };
    return {.key = key, .make = make};
}

PictureRequest PictureLoaderTest::slowRequest(const QString &key)
{
    return {.key = key, .make = [make = request(key).make] {
                QThread::msleep(5);
                return make();
            }};
}

// Until the gate is opened, nothing else is made.
void PictureLoaderTest::occupyAllThreads()
{
    const int count = m_loader->pool().maxThreadCount();
    QSemaphore begun;
    for (; m_occupied < count; ++m_occupied) {
        const PictureRequest blocking{.key = QStringLiteral("occupant %1").arg(m_occupied),
                                      .make = [&] {
                                          begun.release();
                                          m_gate.acquire();
                                          return QImage();
                                      }};
        m_loader->load(blocking, m_occupant);
    }
    begun.acquire(count);
}

QStringList PictureLoaderTest::made()
{
    const std::scoped_lock lock(m_mutex);
    return m_made;
}

void PictureLoaderTest::makesPicturesOnAnotherThread()
{
    Receiver receiver;
    std::atomic<QThread *> maker = nullptr;
    m_loader->load({.key = QStringLiteral("a"),
                    .make =
                        [&] {
                            maker = QThread::currentThread();
                            return square(7);
                        }},
                   receiver);
    QVERIFY(receiver.pictures.isEmpty()); // later, never at once
    QTRY_COMPARE(receiver.pictures.size(), 1);
    QCOMPARE(receiver.pictures.constFirst(), square(7));
    QCOMPARE(receiver.thread, QThread::currentThread());
    QVERIFY(maker != QThread::currentThread());
}

void PictureLoaderTest::whatSeveralWaitForIsMadeOnce()
{
    occupyAllThreads();
    std::array<Receiver, 3> receivers;
    for (Receiver &receiver : receivers)
        m_loader->load(request(QStringLiteral("a")), receiver);
    m_gate.release(std::exchange(m_occupied, 0));
    for (const Receiver &receiver : receivers)
        QTRY_COMPARE(receiver.pictures.size(), 1);
    QCOMPARE(made(), QStringList{QStringLiteral("a")});
}

void PictureLoaderTest::remembersWhatWasMade()
{
    Receiver receiver;
    const PictureRequest wanted = request(QStringLiteral("a"));
    QVERIFY(!m_loader->cache().find(wanted.key));
    m_loader->load(wanted, receiver);
    QTRY_COMPARE(receiver.pictures.size(), 1);
    QCOMPARE(m_loader->cache().find(wanted.key), std::optional(square(10)));
    m_loader->load(wanted, receiver);
    QTRY_COMPARE(receiver.pictures.size(), 2);
    QCOMPARE(made().size(), 1);
}

void PictureLoaderTest::remembersWhatCouldNotBeMade()
{
    Receiver receiver;
    m_loader->load({.key = QStringLiteral("none"), .make = [] { return QImage(); }}, receiver);
    QTRY_COMPARE(receiver.pictures.size(), 1);
    QVERIFY(receiver.pictures.constFirst().isNull());
    QCOMPARE(m_loader->cache().find(QStringLiteral("none")), std::optional(QImage()));
}

void PictureLoaderTest::forgetsWhatWasNotUsedForLongest()
{
    PictureCache cache(10'000);
    const QImage picture = square(32); // 4,096 bytes
    cache.insert(QStringLiteral("a"), picture);
    cache.insert(QStringLiteral("b"), picture);
    QVERIFY(cache.find(QStringLiteral("a"))); // used
    cache.insert(QStringLiteral("c"), picture);
    QVERIFY(cache.find(QStringLiteral("a")));
    QVERIFY(!cache.find(QStringLiteral("b")));
    QVERIFY(cache.find(QStringLiteral("c")));
    cache.insert(QStringLiteral("too large"), square(64));
    QVERIFY(!cache.find(QStringLiteral("too large")));
}

void PictureLoaderTest::whatWasBegunIsMadeForWhoAsksLater()
{
    occupyAllThreads();
    Receiver receiver;
    m_loader->begin(request(QStringLiteral("a")));
    m_loader->begin(request(QStringLiteral("a")));
    m_loader->begin(request(QStringLiteral("b")));
    m_loader->load(request(QStringLiteral("a")), receiver);
    m_gate.release(std::exchange(m_occupied, 0));
    QTRY_COMPARE(receiver.pictures.size(), 1);
    QTRY_VERIFY(m_loader->cache().find(QStringLiteral("b")));
    QCOMPARE(made(), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
}

void PictureLoaderTest::whatNobodyWaitsForIsNotBegun()
{
    occupyAllThreads();
    Receiver receiver;
    for (const char *key : {"a", "b", "c"})
        m_loader->load(request(QString::fromLatin1(key)), receiver);
    m_loader->withdraw(QStringLiteral("b"), receiver);
    m_loader->withdraw(QStringLiteral("never asked for"), receiver);
    m_gate.release(std::exchange(m_occupied, 0));
    QTRY_COMPARE(receiver.pictures.size(), 2);
    QStringList keys = made();
    keys.sort();
    QCOMPARE(keys, (QStringList{QStringLiteral("a"), QStringLiteral("c")}));
}

void PictureLoaderTest::whatOneStillWaitsForIsMade()
{
    occupyAllThreads();
    Receiver stays;
    Receiver goes;
    m_loader->load(request(QStringLiteral("a")), goes);
    m_loader->load(request(QStringLiteral("a")), stays);
    m_loader->withdraw(QStringLiteral("a"), goes);
    m_gate.release(std::exchange(m_occupied, 0));
    QTRY_COMPARE(stays.pictures.size(), 1);
    QVERIFY(goes.pictures.isEmpty());
}

void PictureLoaderTest::whatHasBegunIsRemembered()
{
    QSemaphore begun;
    QSemaphore goOn;
    const QString key = QStringLiteral("a");
    {
        Receiver receiver;
        m_loader->load({.key = key,
                        .make =
                            [&] {
                                begun.release();
                                goOn.acquire();
                                return square(10);
                            }},
                       receiver);
        begun.acquire();
        m_loader->withdraw(key, receiver);
    }
    goOn.release();
    QTRY_VERIFY(m_loader->cache().find(key));
    QTest::qWait(10); // what is delivered reaches nobody
}

void PictureLoaderTest::whatIsWantedAgainComes()
{
    occupyAllThreads();
    Receiver receiver;
    for (int i = 0; i < 3; ++i) {
        m_loader->load(request(QStringLiteral("a")), receiver);
        m_loader->withdraw(QStringLiteral("a"), receiver);
    }
    m_loader->load(request(QStringLiteral("a")), receiver);
    m_gate.release(std::exchange(m_occupied, 0));
    QTRY_COMPARE(receiver.pictures.size(), 1);
    QCOMPARE(made().size(), 1);
}

void PictureLoaderTest::aReceiverCanAskAnew()
{
    struct Asking final : PictureReceiver {
        PictureLoader *loader{};
        PictureRequest next{};
        int count{};
        void receivePicture(const QImage &) override
        {
            if (++count == 1)
                loader->load(next, *this);
        }
    } asking;
    asking.loader = m_loader.get();
    asking.next = request(QStringLiteral("a"));
    m_loader->load(asking.next, asking);
    QTRY_COMPARE(asking.count, 2);
}

void PictureLoaderTest::whoIsToldCanMakeAnotherGoAway()
{
    struct Remover final : PictureReceiver {
        std::function<void()> remove{};
        void receivePicture(const QImage &) override { remove(); }
    };
    const QString key = QStringLiteral("a");
    auto second = std::make_unique<Receiver>();
    Receiver third;
    Remover first;
    first.remove = [&] {
        m_loader->withdraw(key, *second);
        second.reset();
    };
    m_loader->load(request(key), first);
    m_loader->load(request(key), *second);
    m_loader->load(request(key), third);
    QTRY_COMPARE(third.pictures.size(), 1);
    QVERIFY(!second);
}

void PictureLoaderTest::deliversInTheOrderOfTheRequests()
{
    m_loader->pool().setMaxThreadCount(1);
    occupyAllThreads();
    QStringList keys;
    Receiver receiver;
    for (int i = 0; i < 50; ++i) {
        keys.append(QString::number(i));
        m_loader->load(request(keys.constLast()), receiver);
    }
    m_gate.release(std::exchange(m_occupied, 0));
    QTRY_COMPARE(receiver.pictures.size(), 50);
    QCOMPARE(made(), keys);
}

void PictureLoaderTest::dropsTheRestWhenItGoes()
{
    occupyAllThreads();
    Receiver receiver;
    for (int i = 0; i < 1000; ++i)
        m_loader->load(slowRequest(QString::number(i)), receiver);
    m_gate.release(std::exchange(m_occupied, 0));
    m_loader.reset();
    QVERIFY(made().size() < 1000);
    QVERIFY(receiver.pictures.isEmpty());
}

QTEST_GUILESS_MAIN(PictureLoaderTest)
#include "tst_pictureloader.moc"
