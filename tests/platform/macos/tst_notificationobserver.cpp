#include "tests/platform/macos/gnusteptest.h"
#include "tests/platform/macos/notificationprobe.h"

class NotificationObserverTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void hearsWhatItsSenderPosts();
    void hearsNothingElse();
    void hearsNothingOnceItIsGone();

private:
    void listen()
    {
        m_heard.clear();
        m_probe.listen([this](const QString &note) { m_heard.append(note); });
    }

    NotificationProbe m_probe;
    QStringList m_heard;
};

void NotificationObserverTest::hearsWhatItsSenderPosts()
{
    listen();
    m_probe.postFromTheFirst("red");
    m_probe.postFromTheFirst("blue");
    QCOMPARE(m_heard, QStringList({QStringLiteral("red"), QStringLiteral("blue")}));
}

void NotificationObserverTest::hearsNothingElse()
{
    listen();
    m_probe.postFromTheSecond("red");
    m_probe.postAnotherNameFromTheFirst();
    QCOMPARE(m_heard, QStringList());
}

void NotificationObserverTest::hearsNothingOnceItIsGone()
{
    listen();
    m_probe.postFromTheFirst("red");
    m_probe.stop();
    m_probe.postFromTheFirst("blue");
    QCOMPARE(m_heard, QStringList{QStringLiteral("red")});
}

int main(int argc, char **argv)
{
    return runWithFoundation<NotificationObserverTest>(argc, argv);
}

#include "tst_notificationobserver.moc"
