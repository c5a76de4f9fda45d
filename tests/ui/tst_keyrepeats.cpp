#include "ui/keyrepeats.h"

#include <QKeyEvent>
#include <QTest>
#include <QWindow>

namespace {

/// Notes of each press whether it was a repetition.
class NotingWindow final : public QWindow {
public:
    QList<bool> repetitions;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        repetitions.append(event->isAutoRepeat());
        event->setAccepted(event->key() == Qt::Key_Delete);
    }
};

} // namespace

class KeyRepeatsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aPressInTheMomentOfTheReleaseIsARepetition();
    void whatTheToolkitCallsARepetitionStaysOne();
    void aLaterPressIsNone();
    void anotherKeyIsNone();
    void pressesWithoutATimeAreNone();

private:
    /// Whether the press was accepted.
    bool send(QEvent::Type type, Qt::Key key, quint64 time, bool isRepeat = false)
    {
        QKeyEvent event(type, key, Qt::NoModifier, QString(), isRepeat);
        event.setTimestamp(time);
        QCoreApplication::sendEvent(&m_window, &event);
        return event.isAccepted();
    }

    KeyRepeats m_repeats;
    NotingWindow m_window;
};

void KeyRepeatsTest::aPressInTheMomentOfTheReleaseIsARepetition()
{
    m_window.repetitions.clear();
    QVERIFY(send(QEvent::KeyPress, Qt::Key_Delete, 100));
    send(QEvent::KeyRelease, Qt::Key_Delete, 700);
    QVERIFY(send(QEvent::KeyPress, Qt::Key_Delete, 700));
    send(QEvent::KeyRelease, Qt::Key_A, 740);
    QVERIFY(!send(QEvent::KeyPress, Qt::Key_A, 740));
    QCOMPARE(m_window.repetitions, (QList{false, true, true}));
}

void KeyRepeatsTest::whatTheToolkitCallsARepetitionStaysOne()
{
    m_window.repetitions.clear();
    send(QEvent::KeyRelease, Qt::Key_Delete, 800, true);
    send(QEvent::KeyPress, Qt::Key_Delete, 800, true);
    QCOMPARE(m_window.repetitions, QList{true});
}

void KeyRepeatsTest::aLaterPressIsNone()
{
    m_window.repetitions.clear();
    send(QEvent::KeyRelease, Qt::Key_Delete, 900);
    send(QEvent::KeyPress, Qt::Key_Delete, 901);
    QCOMPARE(m_window.repetitions, QList{false});
}

void KeyRepeatsTest::anotherKeyIsNone()
{
    m_window.repetitions.clear();
    send(QEvent::KeyRelease, Qt::Key_A, 950);
    send(QEvent::KeyPress, Qt::Key_Delete, 950);
    QCOMPARE(m_window.repetitions, QList{false});
}

// Those that programs make up.
void KeyRepeatsTest::pressesWithoutATimeAreNone()
{
    m_window.repetitions.clear();
    send(QEvent::KeyRelease, Qt::Key_Delete, 0);
    send(QEvent::KeyPress, Qt::Key_Delete, 0);
    QCOMPARE(m_window.repetitions, QList{false});
}

QTEST_MAIN(KeyRepeatsTest)
#include "tst_keyrepeats.moc"
