#include "model/libraryjson.h"
#include "tests/fakes/fakedirectories.h"
#include "tests/model/savedversions.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <csignal>
#include <thread>

class KilledSavesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aLibraryIsWholeWheneverItsSaverIsKilled();
};

namespace {

constexpr int kills = 400;

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A program that saves one library after the other.
class Saver {
public:
    Saver(const QString &directory, int firstVersion)
    {
        m_process.start(QStringLiteral(COMPANION_BINARY_DIR "/tests/librarysaver"),
                        {directory, QString::number(firstVersion)});
        waitForDots(1);
    }

    void waitForSaves(qsizetype count) { waitForDots(count); }

    /// Ends it without warning.
    void kill()
    {
        ::kill(pid_t(m_process.processId()), SIGKILL);
        QVERIFY(m_process.waitForFinished());
        QCOMPARE(m_process.exitStatus(), QProcess::CrashExit); // it did not end by itself
    }

private:
    void waitForDots(qsizetype count)
    {
        for (m_dots -= count; m_dots < 0; m_dots += m_process.readAll().size())
            QVERIFY(m_process.waitForReadyRead());
    }

    QProcess m_process;
    qsizetype m_dots = 0; ///< said and not waited for yet
};

// How long one save takes, here and now: a sanitizer or a busy machine makes it many times as long.
std::chrono::nanoseconds timeOfOneSave()
{
    constexpr int saves = 10;
    const QTemporaryDir support;
    Saver saver(support.path(), 0);
    QElapsedTimer timer;
    timer.start();
    saver.waitForSaves(saves);
    const std::chrono::nanoseconds elapsed(timer.nsecsElapsed());
    saver.kill();
    return elapsed / saves;
}

} // namespace

void KilledSavesTest::aLibraryIsWholeWheneverItsSaverIsKilled()
{
    const QTemporaryDir support;
    const QDir directory(support.filePath(QStringLiteral("Nestlet")));
    QSet<QByteArray> versions;
    for (int version = 0; version < savedVersions; ++version)
        versions.insert(encodeLibrary(savedVersion(version)));

    QRandomGenerator random(1);
    QSet<QByteArray> found;
    const std::chrono::nanoseconds oneSave = timeOfOneSave();
    for (int i = 0; i < kills; ++i) {
        Saver saver(support.path(), random.bounded(savedVersions));
        saver.waitForSaves(random.bounded(3));
        std::this_thread::sleep_for(oneSave * (random.generateDouble() * 1.5));
        saver.kill();
        if (QTest::currentTestFailed())
            return;
        const QByteArray bytes = contentsOf(directory.filePath(QStringLiteral("Nestlet.json")));
        if (bytes.isEmpty() && found.isEmpty())
            continue; // killed before the very first save
        QVERIFY(versions.contains(bytes));
        QVERIFY(decodeLibrary(bytes));
        found.insert(bytes);
        // The library and what the killed save was writing, but not what all of them were.
        QVERIFY(directory.entryList(QDir::Files | QDir::Hidden).size() <= 2);
    }
    QVERIFY(found.size() > 20); // or the saver was killed before it saved much
    QVERIFY(!QFile::exists(support.filePath(QStringLiteral("Nestlet Companion"))));
}

QTEST_GUILESS_MAIN(KilledSavesTest)
#include "tst_killedsaves.moc"
