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

// Lets the saver work for a moment of its work, be it long or short, and ends it without warning.
void runAndKill(const QString &directory, int firstVersion, std::chrono::microseconds moment)
{
    QProcess saver;
    saver.start(QStringLiteral(COMPANION_BINARY_DIR "/tests/librarysaver"),
                {directory, QString::number(firstVersion)});
    QVERIFY(saver.waitForReadyRead());
    std::this_thread::sleep_for(moment);
    ::kill(pid_t(saver.processId()), SIGKILL);
    QVERIFY(saver.waitForFinished());
    QCOMPARE(saver.exitStatus(), QProcess::CrashExit); // it did not end by itself
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
    for (int i = 0; i < kills; ++i) {
        const std::chrono::microseconds moment(random.bounded(15000));
        runAndKill(support.path(), random.bounded(savedVersions), moment);
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
