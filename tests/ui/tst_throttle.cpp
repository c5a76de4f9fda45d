#include "ui/throttle.h"

#include <QRegularExpression>
#include <QTest>

using namespace std::chrono_literals;

class ThrottleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theFirstIsCarriedOutAtOnce();
    void ofABurstTheFirstAndTheLastAreCarriedOut();
    void aSteadyStreamIsCarriedOutOncePerInterval();
    void whatWaitsCanBeCarriedOutNow();
    void whatWaitsCanBeForgotten();
    void nothingIsLostWithTheThrottle();
    void anActionMaySubmitAnother();

private:
    void submit(Throttle &throttle, int value)
    {
        throttle.submit([this, value] { m_values.append(value); });
    }

    QList<int> m_values;
};

void ThrottleTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_values.clear();
}

void ThrottleTest::theFirstIsCarriedOutAtOnce()
{
    Throttle throttle(1h);
    submit(throttle, 1);
    QCOMPARE(m_values, QList{1});
    QVERIFY(!throttle.isWaiting());
}

void ThrottleTest::ofABurstTheFirstAndTheLastAreCarriedOut()
{
    Throttle throttle(20ms);
    for (int value = 1; value <= 50; ++value)
        submit(throttle, value);
    QCOMPARE(m_values, QList{1});
    QVERIFY(throttle.isWaiting());
    QTRY_COMPARE(m_values, (QList{1, 50}));
    QVERIFY(!throttle.isWaiting());
}

void ThrottleTest::aSteadyStreamIsCarriedOutOncePerInterval()
{
    Throttle throttle(100ms);
    const QDeadlineTimer end(450ms);
    int value = 0;
    while (!end.hasExpired()) {
        submit(throttle, ++value);
        QTest::qWait(2);
    }
    QTRY_COMPARE(m_values.last(), value);
    QVERIFY2(m_values.size() >= 3 && m_values.size() <= 7,
             qPrintable(QString::number(m_values.size())));
}

void ThrottleTest::whatWaitsCanBeCarriedOutNow()
{
    Throttle throttle(1h);
    submit(throttle, 1);
    submit(throttle, 2);
    throttle.flush();
    QCOMPARE(m_values, (QList{1, 2}));
    throttle.flush();
    QCOMPARE(m_values, (QList{1, 2}));
}

void ThrottleTest::whatWaitsCanBeForgotten()
{
    {
        Throttle throttle(1h);
        submit(throttle, 1);
        submit(throttle, 2);
        throttle.cancel();
    }
    QCOMPARE(m_values, QList{1});
}

void ThrottleTest::nothingIsLostWithTheThrottle()
{
    {
        Throttle throttle(1h);
        submit(throttle, 1);
        submit(throttle, 2);
    }
    QCOMPARE(m_values, (QList{1, 2}));
}

void ThrottleTest::anActionMaySubmitAnother()
{
    Throttle throttle(10ms);
    throttle.submit([&] {
        m_values.append(1);
        submit(throttle, 2);
    });
    QTRY_COMPARE(m_values, (QList{1, 2}));
}

QTEST_GUILESS_MAIN(ThrottleTest)
#include "tst_throttle.moc"
