#include "ui/throttle.h"

#include "tests/fakes/fakeclock.h"

#include <QRegularExpression>
#include <QTest>

using namespace std::chrono_literals;

class ThrottleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theFirstIsCarriedOutAtOnce();
    void theTimerRestsWhenThereIsNothingToHoldBack();
    void ofABurstTheFirstAndTheLastAreCarriedOut();
    void aSteadyStreamIsCarriedOutOncePerInterval();
    void whatWaitsCanBeCarriedOutNow();
    void nothingIsLostWithTheThrottle();
    void anActionMaySubmitAnother();

private:
    void submit(Throttle &throttle, int value)
    {
        throttle.submit([this, value] { m_values.append(value); });
    }

    QList<int> m_values;
    FakeClock m_clock;
};

void ThrottleTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_values.clear();
}

void ThrottleTest::theFirstIsCarriedOutAtOnce()
{
    Throttle throttle(m_clock, 1h);
    submit(throttle, 1);
    QCOMPARE(m_values, QList{1});
    QVERIFY(!throttle.isWaiting());
}

void ThrottleTest::theTimerRestsWhenThereIsNothingToHoldBack()
{
    Throttle throttle(m_clock, 20ms);
    submit(throttle, 1);
    QVERIFY(m_clock.advanceToNext());
    QVERIFY(!m_clock.advanceToNext());
    submit(throttle, 2);
    QCOMPARE(m_values, (QList{1, 2}));
}

void ThrottleTest::ofABurstTheFirstAndTheLastAreCarriedOut()
{
    Throttle throttle(m_clock, 20ms);
    for (int value = 1; value <= 50; ++value)
        submit(throttle, value);
    QCOMPARE(m_values, QList{1});
    QVERIFY(throttle.isWaiting());
    m_clock.advance(19ms);
    QCOMPARE(m_values, QList{1});
    m_clock.advance(1ms);
    QCOMPARE(m_values, (QList{1, 50}));
    QVERIFY(!throttle.isWaiting());
}

void ThrottleTest::aSteadyStreamIsCarriedOutOncePerInterval()
{
    Throttle throttle(m_clock, 100ms);
    for (int value = 0; value < 45; ++value) { // one every 10 ms
        submit(throttle, value);
        m_clock.advance(10ms);
    }
    QCOMPARE(m_values, (QList{0, 9, 19, 29, 39}));
    m_clock.advance(100ms);
    QCOMPARE(m_values.last(), 44);
}

void ThrottleTest::whatWaitsCanBeCarriedOutNow()
{
    Throttle throttle(m_clock, 1h);
    submit(throttle, 1);
    submit(throttle, 2);
    throttle.flush();
    QCOMPARE(m_values, (QList{1, 2}));
    throttle.flush();
    QCOMPARE(m_values, (QList{1, 2}));
}

void ThrottleTest::nothingIsLostWithTheThrottle()
{
    {
        Throttle throttle(m_clock, 1h);
        submit(throttle, 1);
        submit(throttle, 2);
    }
    QCOMPARE(m_values, (QList{1, 2}));
}

void ThrottleTest::anActionMaySubmitAnother()
{
    Throttle throttle(m_clock, 10ms);
    throttle.submit([&] {
        m_values.append(1);
        submit(throttle, 2);
    });
    QCOMPARE(m_values, QList{1});
    m_clock.advance(10ms);
    QCOMPARE(m_values, (QList{1, 2}));
}

QTEST_GUILESS_MAIN(ThrottleTest)
#include "tst_throttle.moc"
