#include "store/eventturns.h"

#include <QCoroTask>
#include <QSignalSpy>
#include <QTest>

class EventTurnsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_log.clear(); }
    void grantsTurnsInTheOrderOfAsking();
    void letsOtherEventsInBetweenTwoTurns();
    void waitsForTheRelease();
    void theWindowShowsWhatHasBegun();

private:
    QCoro::Task<> work(EventTurns &turns, QString name)
    {
        co_await turns.next();
        m_log.append(name);
    }
    QStringList m_log;
};

void EventTurnsTest::grantsTurnsInTheOrderOfAsking()
{
    EventTurns turns(EventTurns::Start::AtOnce);
    work(turns, QStringLiteral("first"));
    work(turns, QStringLiteral("second"));
    QCOMPARE(m_log, QStringList());
    QTRY_COMPARE(m_log, QStringList({QStringLiteral("first"), QStringLiteral("second")}));
}

void EventTurnsTest::letsOtherEventsInBetweenTwoTurns()
{
    EventTurns turns(EventTurns::Start::AtOnce);
    // What a user's input is to the loop: it comes while the first turn works.
    const auto workAndGetInput = [&]() -> QCoro::Task<> {
        co_await turns.next();
        m_log.append(QStringLiteral("first"));
        QMetaObject::invokeMethod(
            this, [this] { m_log.append(QStringLiteral("input")); }, Qt::QueuedConnection);
    };
    workAndGetInput();
    work(turns, QStringLiteral("second"));
    QTRY_COMPARE(
        m_log,
        QStringList({QStringLiteral("first"), QStringLiteral("input"), QStringLiteral("second")}));
}

void EventTurnsTest::waitsForTheRelease()
{
    EventTurns turns(EventTurns::Start::OnRelease);
    work(turns, QStringLiteral("work"));
    for (int pass = 0; pass < 20; ++pass)
        QCoreApplication::processEvents();
    QCOMPARE(m_log, QStringList());
    turns.release();
    QTRY_COMPARE(m_log, QStringList{QStringLiteral("work")});
}

void EventTurnsTest::theWindowShowsWhatHasBegun()
{
    EventTurns turns(EventTurns::Start::OnRelease);
    turns.release();
    work(turns, QStringLiteral("work"));
    QTimer::singleShot(17, this, [this] { m_log.append(QStringLiteral("frame")); });
    QTRY_COMPARE(m_log, QStringList({QStringLiteral("frame"), QStringLiteral("work")}));
    work(turns, QStringLiteral("more")); // goes on with it
    QTimer::singleShot(17, this, [this] { m_log.append(QStringLiteral("next frame")); });
    QTRY_COMPARE(m_log.last(), QStringLiteral("next frame"));
    QCOMPARE(m_log.at(2), QStringLiteral("more"));
}

QTEST_GUILESS_MAIN(EventTurnsTest)
#include "tst_storeeventturns.moc"
