#include "platform/portable/portablerunningapplications.h"
#include "platform/portable/portableworkspace.h"
#include "tests/platform/standinapplications.h"

#include <QFile>
#include <QSet>
#include <QTest>
#include <QThread>

#include <csignal>
#include <unistd.h>

namespace {

const QString identifier = QStringLiteral("qx.Nestlet.folder.test");

QList<QByteArray> environmentOf(qint64 processID)
{
    QFile file(QStringLiteral("/proc/%1/environ").arg(processID));
    return file.open(QIODevice::ReadOnly) ? file.readAll().split('\0') : QList<QByteArray>();
}

QString linkOf(qint64 processID, const char *name)
{
    return QFile::symLinkTarget(
        QStringLiteral("/proc/%1/%2").arg(processID).arg(QString::fromLatin1(name)));
}

} // namespace

class PortableWorkspaceTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void launchesARealProcess();
    void launchedProcessesStandAlone();
    void anApplicationIsNotStartedTwice();
    void theCompletionComesLater();
    void noCompletionAfterTheWorkspaceIsGone();
    void saysWhyALaunchFailed_data();
    void saysWhyALaunchFailed();
    void quitsPolitely();
    void quitsTheStubbornByForce();
    void findsApplicationsAgain();
    void standInsDoNotSeeEachOther();
    void helpersAreNoApplications();
    void aLaterProcessIsLeftAlone();
    void findsInstalledApplications();
    void notesWhatItOpens();
    void drawsIconsOnAnyThread();

private:
    [[nodiscard]] std::optional<PlatformError>
    opened(const FileURL &bundle, Activation activation = Activation::Background);
    [[nodiscard]] QList<RunningApplication> running() const
    {
        return m_applications->withBundleIdentifier(identifier);
    }

    std::optional<StandInApplications> m_mac{};
    std::optional<PortableRunningApplications> m_applications{};
    std::optional<PortableWorkspace> m_workspace{};
};

void PortableWorkspaceTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_mac.emplace();
    m_applications.emplace(m_mac->root());
    m_workspace.emplace(m_mac->root(), *m_applications);
}

void PortableWorkspaceTest::cleanup()
{
    const auto hasEnded = [this] {
        const QList<RunningApplication> applications = running();
        for (const RunningApplication &application : applications)
            ::kill(-static_cast<pid_t>(application.processID), SIGKILL);
        return applications.isEmpty();
    };
    QTRY_VERIFY(hasEnded());
    m_workspace.reset();
    m_applications.reset();
    m_mac.reset();
}

std::optional<PlatformError> PortableWorkspaceTest::opened(const FileURL &bundle,
                                                           Activation activation)
{
    int calls = 0;
    std::optional<PlatformError> result;
    m_workspace->openApplication(bundle, activation,
                                 [&](const std::optional<PlatformError> &error) {
                                     ++calls;
                                     result = error;
                                 });
    if (calls != 0 || !QTest::qWaitFor([&] { return calls == 1; }))
        return PlatformError(QStringLiteral("not completed as promised"));
    // A script is a shell first, and no program shows its environment while it replaces another.
    const auto isSettled = [this] {
        const QList<RunningApplication> applications = running();
        return !applications.isEmpty()
            && linkOf(applications.constFirst().processID, "exe").endsWith(QStringLiteral("sleep"));
    };
    if (!result)
        static_cast<void>(QTest::qWaitFor(isSettled, 1000));
    return result;
}

void PortableWorkspaceTest::launchesARealProcess()
{
    const FileURL bundle = m_mac->make(QStringLiteral("/Users/me/Applications/A.app"), identifier);
    QVERIFY(running().isEmpty());
    QVERIFY(!opened(bundle, Activation::Foreground));
    const QList<RunningApplication> applications = running();
    QCOMPARE(applications.size(), 1);
    const QList<QByteArray> environment = environmentOf(applications.constFirst().processID);
    QVERIFY(environment.contains("NESTLET_ACTIVATES=1"));
    QVERIFY(environment.contains("__CFBundleIdentifier=" + identifier.toUtf8()));
    QVERIFY(environment.contains("NESTLET_COMPANION_ROOT=" + m_mac->root().toUtf8()));
}

void PortableWorkspaceTest::launchedProcessesStandAlone()
{
    qputenv("__CFBundleIdentifier", "somebody.else"); // as of a companion started from the Dock
    QVERIFY(!opened(m_mac->make(QStringLiteral("/A.app"), identifier)));
    qunsetenv("__CFBundleIdentifier");
    const qint64 id = running().value(0).processID;
    QVERIFY(environmentOf(id).contains("NESTLET_ACTIVATES=0"));
    QVERIFY(!environmentOf(id).contains("__CFBundleIdentifier=somebody.else"));
    QCOMPARE(::getsid(static_cast<pid_t>(id)), static_cast<pid_t>(id));
    QCOMPARE(linkOf(id, "cwd"), QStringLiteral("/"));
    const PosixFileSystem files;
    const FileURL open = FileURL::directory(QStringLiteral("/proc/%1/fd").arg(id));
    QTRY_COMPARE(files.contents(open).size(), 3); // once the loader has closed the last library
    for (const char *stream : {"fd/0", "fd/1", "fd/2"})
        QCOMPARE(linkOf(id, stream), QStringLiteral("/dev/null"));
}

void PortableWorkspaceTest::anApplicationIsNotStartedTwice()
{
    const FileURL bundle = m_mac->make(QStringLiteral("/A.app"), identifier);
    QVERIFY(!opened(bundle));
    const QList<RunningApplication> before = running();
    QVERIFY(!opened(bundle, Activation::Foreground));
    QCOMPARE(running(), before);
}

void PortableWorkspaceTest::theCompletionComesLater()
{
    QVERIFY(!opened(m_mac->make(QStringLiteral("/A.app"), identifier)));
    m_workspace->openApplication(m_mac->at(QStringLiteral("/none.app")), Activation::Background,
                                 {});
    QCoreApplication::processEvents(); // no completion wanted
}

void PortableWorkspaceTest::noCompletionAfterTheWorkspaceIsGone()
{
    bool isCompleted = false;
    m_workspace->openApplication(m_mac->at(QStringLiteral("/none.app")), Activation::Background,
                                 [&](const auto &) { isCompleted = true; });
    m_workspace.reset();
    QCoreApplication::processEvents();
    QVERIFY(!isCompleted);
}

void PortableWorkspaceTest::saysWhyALaunchFailed_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *path, const char *reason) {
        QTest::newRow(path) << QString::fromLatin1(path) << QString::fromLatin1(reason);
    };
    row("/missing.app", "No such file or directory");
    row("/no plist.app", "No such file or directory");
    row("/damaged.app", "Could not read");
    row("/nameless.app", "has no CFBundleExecutable");
    row("/outside.app", "has no CFBundleExecutable");
    row("/anonymous.app", "has no CFBundleIdentifier");
    row("/no program.app", "No such file or directory");
    row("/closed.app", "Permission denied");
    row("/noise.app", "Exec format error");
}

void PortableWorkspaceTest::saysWhyALaunchFailed()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    const QString name = QStringLiteral("CFBundleExecutable");
    const QVariantMap info{{QStringLiteral("CFBundleIdentifier"), identifier}};
    QVariantMap outside = info;
    outside[name] = QStringLiteral("../../../tool");
    QVariantMap absent = info;
    absent[name] = QStringLiteral("absent");
    m_mac->files.createDirectories(m_mac->at(QStringLiteral("/no plist.app")));
    m_mac->make(QStringLiteral("/nameless.app"), info, "");
    m_mac->make(QStringLiteral("/outside.app"), outside, "");
    m_mac->make(QStringLiteral("/anonymous.app"), {{name, QStringLiteral("tool")}}, "");
    m_mac->make(QStringLiteral("/no program.app"), absent, "");
    m_mac->make(QStringLiteral("/noise.app"), identifier, "\1\2\3");
    m_mac->make(QStringLiteral("/closed.app"), identifier);
    const FileURL closed = m_mac->at(QStringLiteral("/closed.app/Contents/MacOS/tool"));
    QCOMPARE(::chmod(closed.nativePath().constData(), 0644), 0);
    m_mac->make(QStringLiteral("/damaged.app"), identifier);
    m_mac->files.writeAtomically(m_mac->at(QStringLiteral("/damaged.app/Contents/Info.plist")),
                                 "x");

    const std::optional<PlatformError> error = opened(FileURL::directory(m_mac->root() + path));
    QVERIFY(error);
    QVERIFY2(error->description().contains(reason), qPrintable(error->description()));
    QVERIFY2(error->description().contains(path), qPrintable(error->description()));
    QVERIFY(running().isEmpty());
}

void PortableWorkspaceTest::quitsPolitely()
{
    QVERIFY(!opened(m_mac->make(QStringLiteral("/A.app"), identifier)));
    m_applications->terminate(running().value(0));
    QTRY_VERIFY(running().isEmpty());
}

void PortableWorkspaceTest::quitsTheStubbornByForce()
{
    const QByteArray program = "#!/bin/sh\ntrap '' TERM\necho >\"$NESTLET_COMPANION_ROOT/ready\"\n"
                               "while :; do sleep 600; done\n";
    QVERIFY(!opened(m_mac->make(QStringLiteral("/A.app"), identifier, program)));
    QTRY_VERIFY(m_mac->files.exists(m_mac->at(QStringLiteral("/ready"))));
    const RunningApplication stubborn = running().value(0);
    m_applications->terminate(stubborn);
    QTest::qWait(200);
    QVERIFY(running().contains(stubborn));
    m_applications->forceTerminate(stubborn);
    QTRY_VERIFY(!running().contains(stubborn));
}

void PortableWorkspaceTest::findsApplicationsAgain()
{
    const FileURL bundle = m_mac->make(QStringLiteral("/A.app"), identifier);
    QVERIFY(!opened(bundle));
    const QList<RunningApplication> before = running();
    m_mac->files.remove(bundle);
    PortableRunningApplications later(m_mac->root());
    QCOMPARE(later.withBundleIdentifier(identifier), before);
    QVERIFY(later.withBundleIdentifier(identifier.chopped(1)).isEmpty());
    QVERIFY(later.withBundleIdentifier(identifier + u'x').isEmpty());
    later.terminate(before.value(0));
    QTRY_VERIFY(running().isEmpty());
    later.terminate(before.value(0)); // gone: no error
    later.forceTerminate(before.value(0));
}

void PortableWorkspaceTest::standInsDoNotSeeEachOther()
{
    QVERIFY(!opened(m_mac->make(QStringLiteral("/A.app"), identifier)));
    const StandInApplications other;
    QVERIFY(PortableRunningApplications(other.root()).withBundleIdentifier(identifier).isEmpty());
}

void PortableWorkspaceTest::helpersAreNoApplications()
{
    const QByteArray program = "#!/bin/sh\nsleep 600 &\n"
                               "echo >\"$NESTLET_COMPANION_ROOT/ready\"\nwait\n";
    QVERIFY(!opened(m_mac->make(QStringLiteral("/A.app"), identifier, program)));
    QTRY_VERIFY(m_mac->files.exists(m_mac->at(QStringLiteral("/ready"))));
    QCOMPARE(running().size(), 1);
}

void PortableWorkspaceTest::aLaterProcessIsLeftAlone()
{
    QVERIFY(!opened(m_mac->make(QStringLiteral("/A.app"), identifier)));
    RunningApplication earlier = running().value(0);
    --earlier.startTime; // the same id, another process
    m_applications->terminate(earlier);
    m_applications->forceTerminate(earlier);
    QTest::qWait(100);
    QCOMPARE(running().size(), 1);
}

void PortableWorkspaceTest::findsInstalledApplications()
{
    const auto find = [&](const char *name) {
        return m_workspace->applicationWithBundleIdentifier(QString::fromLatin1(name));
    };
    const FileURL inFolder
        = m_mac->make(QStringLiteral("/Applications/Utilities/B.app"), QStringLiteral("qx.b"));
    m_mac->make(QStringLiteral("/Applications/a/b/Deep.app"), QStringLiteral("qx.deep"));
    m_mac->make(QStringLiteral("/Applications/B.app/Inner.app"), QStringLiteral("qx.inner"));
    m_mac->make(QStringLiteral("/Elsewhere/E.app"), QStringLiteral("qx.elsewhere"));
    const FileURL users
        = m_mac->make(QStringLiteral("/Users/me/Applications/C.app"), QStringLiteral("qx.c"));
    const FileURL systems
        = m_mac->make(QStringLiteral("/System/Applications/D.app"), QStringLiteral("qx.c"));
    QCOMPARE(find("qx.b"), inFolder);
    QCOMPARE(find("qx.c"), systems);
    m_mac->files.remove(systems);
    QCOMPARE(find("qx.c"), users);
    for (const char *none : {"qx.deep", "qx.inner", "qx.elsewhere", "QX.B", "qx", ""})
        QVERIFY2(!find(none), none);
}

void PortableWorkspaceTest::notesWhatItOpens()
{
    qunsetenv("DISPLAY");
    qunsetenv("WAYLAND_DISPLAY");
    m_workspace->openURL(QUrl(QStringLiteral("https://example.com/a b")));
    m_workspace->reveal({m_mac->at(QStringLiteral("/Applications/A b.app"))});
    m_workspace->reveal({});
    QCOMPARE(m_mac->files.read(m_mac->at(QStringLiteral("/private/var/log/open.log"))),
             QByteArray("open https://example.com/a%20b\nreveal "
                        + m_mac->at(QStringLiteral("/Applications/A b.app")).text().toUtf8()
                        + '\n'));
}

void PortableWorkspaceTest::drawsIconsOnAnyThread()
{
    m_mac->files.createDirectories(m_mac->at(QStringLiteral("/folder")));
    for (const char *name : {"/a.txt", "/a.pdf"})
        m_mac->files.writeAtomically(m_mac->at(QString::fromLatin1(name)), "text");
    const QList<FileURL> urls{
        m_mac->at(QStringLiteral("/folder")), m_mac->at(QStringLiteral("/a.txt")),
        m_mac->at(QStringLiteral("/a.pdf")), m_mac->make(QStringLiteral("/plain.app"), identifier)};
    QList<QImage> images;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        for (const FileURL &url : urls)
            images.append(m_workspace->icon(url, 64));
    }));
    thread->start();
    QVERIFY(thread->wait());
    for (const QImage &image : images) {
        QCOMPARE(image.size(), QSize(64, 64));
        QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
        QVERIFY(image.pixelColor(32, 40).alpha() > 200);
    }
    for (qsizetype i = 1; i < images.size(); ++i)
        QVERIFY(images[i] != images[i - 1]);
    QVERIFY(m_workspace->icon(urls[0], 0).isNull());
    QVERIFY(m_workspace->icon(FileURL::fromValidText(QStringLiteral("https://x/")), 16).isNull());
}

QTEST_MAIN(PortableWorkspaceTest)
#include "tst_portableworkspace.moc"
