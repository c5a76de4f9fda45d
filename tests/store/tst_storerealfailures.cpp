#include "tests/store/filetree.h"
#include "tests/store/realscene.h"
#include "tests/store/storefixture.h"

#include "sandbox/common/appbundle.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

/// What goes wrong around real Dock apps: a broken signing tool, a proxy directory that is none,
/// names that no file can have. Each ends in a Dock app or in a message, and soon.
class StoreRealFailuresTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_scene.endCompanion(); }

    void aBrokenSigningToolIsReported_data();
    void aBrokenSigningToolIsReported();
    void aTalkativeSigningToolIsListenedTo();
    void aFailedRebuildIsLoggedAndLeavesTheProgramWorking();
    void aProxyDirectoryThatCannotBeUsedIsReported_data();
    void aProxyDirectoryThatCannotBeUsedIsReported();
    void aProxyDirectoryThatIsALinkIsFollowed();
    void everyNameIsInstalledWhereItBelongs_data();
    void everyNameIsInstalledWhereItBelongs();

private:
    CompanionStore &store() { return m_scene.store(); }
    void startWithWork() { m_scene.startWith({folderNamed(QStringLiteral("Work"))}); }
    // Puts a script in the place of the tool. It finds the tool beside it, as "$0-real".
    void replaceTool(const QByteArray &script) const;
    QString asFoundIn(QString text) const
    {
        return text.replace(QStringLiteral("%codesign"), m_scene.codesign())
            .replace(QStringLiteral("%nestlet"), m_scene.nestlet())
            .replace(QStringLiteral("%applications"), QFileInfo(m_scene.proxyDirectory()).path())
            .replace(QStringLiteral("%proxies"), m_scene.proxyDirectory());
    }
    QStringList temporaryFiles() const
    {
        return QDir(m_scene.standIn().path(u"private/tmp"))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    RealScene m_scene;
};

void StoreRealFailuresTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_scene.restore();
}

void StoreRealFailuresTest::replaceTool(const QByteArray &script) const
{
    QVERIFY(QFile::rename(m_scene.codesign(), m_scene.codesign() + u"-real"));
    if (script.isEmpty())
        return;
    writeFile(m_scene.codesign(), "#!/bin/sh\n" + script + '\n');
    QVERIFY(QFile::setPermissions(m_scene.codesign(),
                                  QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void StoreRealFailuresTest::aBrokenSigningToolIsReported_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<bool>("isExecutable");
    QTest::addColumn<QString>("message"); // its beginning
    QTest::addColumn<qsizetype>("length"); // of what comes behind it
    const QString refused = QStringLiteral("Nestlet Companion requires a signed Nestlet app. ");
    const QString unverified = refused + QStringLiteral("%nestlet: ");
    const QString unsignedProxy = QStringLiteral("Ad-hoc signing failed: ");
    // Fails only in the step that signs, after the template was found in order.
    const auto signing = [](const QByteArray &failure) -> QByteArray {
        return R"([ "$1" = --force ] || exec "$0-real" "$@"; )" + failure;
    };
    const auto row = [](const char *name, const QByteArray &script, const QString &message,
                        qsizetype length = 0, bool isExecutable = true) {
        QTest::newRow(name) << script << isExecutable << message << length;
    };
    const QByteArray megabyte = "head -c 1048576 /dev/zero | tr '\\0' x >&2; exit 1";

    row("missing", {},
        unverified + QStringLiteral("Could not launch “%codesign”: No such file or directory"));
    row("not executable", "exit 0",
        unverified + QStringLiteral("Could not launch “%codesign”: Permission denied"), 0, false);
    row("crashing", "kill -SEGV $$", unverified + refused);
    row("killed", "kill -KILL $$", unverified + refused);
    row("silent", "exit 1", unverified + refused);
    row("undecodable", "printf '\\377\\376' >&2; exit 1", unverified + refused);
    row("talking without end", megabyte, unverified + refused + u'x', 1048575);
    row("leaving a helper behind", "sleep 30 >&2 & echo no >&2; exit 1",
        unverified + refused + QStringLiteral("no\n"));
    row("missing when it is to sign",
        R"([ "$1" = -dvvv ] || exec "$0-real" "$@"; "$0-real" "$@"; rm "$0"; exit 0)",
        QStringLiteral("Could not launch “%codesign”: No such file or directory"));
    row("crashing when it is to sign", signing("echo Ouch >&2; kill -SEGV $$"),
        unsignedProxy + QStringLiteral("Ouch\n"));
    row("silent when it is to sign", signing("exit 1"), unsignedProxy);
    row("undecodable when it is to sign", signing("printf '\\377\\376' >&2; exit 1"),
        unsignedProxy + QStringLiteral("codesign failed"));
    row("talking without end when it is to sign", signing(megabyte), unsignedProxy + u'x', 1048575);
}

void StoreRealFailuresTest::aBrokenSigningToolIsReported()
{
    QFETCH(QByteArray, script);
    QFETCH(bool, isExecutable);
    QFETCH(QString, message);
    QFETCH(qsizetype, length);
    replaceTool(script);
    if (!isExecutable)
        QVERIFY(QFile::setPermissions(m_scene.codesign(), QFile::ReadOwner));
    startWithWork();

    QElapsedTimer timer;
    timer.start();
    QVERIFY(m_scene.install(m_scene.folder()));
    QVERIFY2(timer.elapsed() < 25'000, qPrintable(QString::number(timer.elapsed())));
    message = asFoundIn(message);
    QCOMPARE(store().errorMessage().left(message.size()), message);
    QCOMPARE(store().errorMessage().size(), message.size() + length);
    QVERIFY(m_scene.running(m_scene.folder()).isEmpty());
    QCOMPARE(temporaryFiles(), QStringList());

    // With the tool in order again, all is well at the next try.
    QFile::remove(m_scene.codesign());
    QVERIFY(QFile::rename(m_scene.codesign() + u"-real", m_scene.codesign()));
    store().clearError();
    QVERIFY(m_scene.install(m_scene.folder()));
    QCOMPARE(store().errorMessage(), QString());
    QVERIFY(m_scene.waitForProcess(m_scene.folder()) != 0);
    QCOMPARE(m_scene.sealComplaint(m_scene.proxy(QStringLiteral("Work.app"))), QString());
}

void StoreRealFailuresTest::aTalkativeSigningToolIsListenedTo()
{
    replaceTool(R"(head -c 1048576 /dev/zero | tr '\0' x >&2; exec "$0-real" "$@")");
    startWithWork();
    QVERIFY(m_scene.install(m_scene.folder()));
    QCOMPARE(store().errorMessage(), QString());
    QVERIFY(m_scene.waitForProcess(m_scene.folder()) != 0);
}

void StoreRealFailuresTest::aFailedRebuildIsLoggedAndLeavesTheProgramWorking()
{
    startWithWork();
    QVERIFY(m_scene.install(m_scene.folder()));
    const qint64 before = m_scene.waitForProcess(m_scene.folder());
    QVERIFY(before != 0);
    replaceTool("[ \"$1\" = --force ] || exec \"$0-real\" \"$@\"; echo No >&2; "
                ": > \"$0-asked\"; exit 1");
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral(
                             "^Nestlet Companion: rebuild of 'Play' failed: Ad-hoc signing failed: "
                             "No\n$")));
    store().renameFolder(m_scene.folder().id, QStringLiteral("Play"));
    QVERIFY(m_scene.waitUntilGone(m_scene.folder()));
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(m_scene.codesign() + u"-asked"), patience);
    QCOMPARE(store().errorMessage(), QString());

    QFile::remove(m_scene.codesign());
    QVERIFY(QFile::rename(m_scene.codesign() + u"-real", m_scene.codesign()));
    store().renameFolder(m_scene.folder().id, QStringLiteral("Rest"));
    QVERIFY(m_scene.waitForProcess(m_scene.folder(), before) != 0);
    QCOMPARE(m_scene.sealComplaint(m_scene.proxy(QStringLiteral("Work.app"))), QString());
}

void StoreRealFailuresTest::aProxyDirectoryThatCannotBeUsedIsReported_data()
{
    QTest::addColumn<QByteArray>("command"); // with the user's applications directory as "$0"
    QTest::addColumn<QString>("message");
    QTest::newRow("a file") << QByteArray("echo mine > \"$0/Nestlet\"")
                            << QStringLiteral("Could not create “%proxies”: File exists");
    QTest::newRow("below a file") << QByteArray(R"(rm -r "$0" && echo mine > "$0")")
                                  << QStringLiteral(
                                         "Could not create “%applications”: File exists");
    QTest::newRow("a dangling link") << QByteArray("ln -s nowhere/at/all \"$0/Nestlet\"")
                                     << QStringLiteral("Could not create “%proxies”: File exists");
    QTest::newRow("a link to itself") << QByteArray("ln -s Nestlet \"$0/Nestlet\"")
                                      << QStringLiteral("Could not create “%proxies”: File exists");
    QTest::newRow("without permission to write")
        << QByteArray("mkdir -m 555 \"$0/Nestlet\"")
        << QStringLiteral("Could not create “%proxies/Work.app”: Permission denied");
    // Root writes nowhere in there either.
    QTest::newRow("where nobody may write")
        << QByteArray("ln -s /sys/kernel \"$0/Nestlet\"")
        << QStringLiteral("Could not create “%proxies/Work.app”: %reason");
}

void StoreRealFailuresTest::aProxyDirectoryThatCannotBeUsedIsReported()
{
    QFETCH(QByteArray, command);
    QFETCH(QString, message);
    if (command.contains("555") && ::geteuid() == 0)
        QSKIP("Permissions do not stop root");
    const QString probe = QStringLiteral("/sys/kernel/probe.app");
    if (message.contains(u"%reason")) {
        if (!QFileInfo::exists(QStringLiteral("/sys/kernel")))
            QSKIP("There is no /sys/kernel here");
        if (::mkdir(QFile::encodeName(probe).constData(), 0755) == 0 && QDir().rmdir(probe))
            QSKIP("/sys/kernel can be written to here");
        message.replace(QStringLiteral("%reason"), qt_error_string(errno));
    }
    const QString directory = QFileInfo(m_scene.proxyDirectory()).path();
    QCOMPARE(
        runTool(QStringLiteral("sh"), {QStringLiteral("-c"), QString::fromUtf8(command), directory})
            .status,
        0);
    const FileTree before
        = fileTree(m_scene.standIn().path(u"Users/me"), {QStringLiteral("Library")});
    startWithWork();
    QVERIFY(m_scene.install(m_scene.folder()));
    QCOMPARE(store().errorMessage(), asFoundIn(message));
    QVERIFY(m_scene.running(m_scene.folder()).isEmpty());
    QVERIFY(!store().isInstalled(m_scene.folder().id));
    QCOMPARE(differences(fileTree(m_scene.standIn().path(u"Users/me"), {QStringLiteral("Library")}),
                         before),
             QStringList());
    store().renameFolder(m_scene.folder().id, QStringLiteral("Play")); // and all else goes on
    QCOMPARE(m_scene.folder().name, QStringLiteral("Play"));
}

void StoreRealFailuresTest::aProxyDirectoryThatIsALinkIsFollowed()
{
    const QString target = m_scene.standIn().path(u"Users/me/Documents/Dock Apps");
    writeFile(target + u"/Notes.txt", QByteArrayLiteral("mine"));
    makeLink(m_scene.proxyDirectory(), target);
    startWithWork();
    QVERIFY(m_scene.install(m_scene.folder()));
    QCOMPARE(store().errorMessage(), QString());
    const DockFolder folder = m_scene.folder();
    QVERIFY(m_scene.waitForProcess(folder) != 0);
    QCOMPARE(m_scene.sealComplaint(target + u"/Work.app"), QString());
    QVERIFY(store().isInstalled(folder.id));

    store().resetEverything();
    QVERIFY(m_scene.waitUntilGone(folder));
    QVERIFY(!QFileInfo(m_scene.proxyDirectory()).isSymLink());
    // The apps are the companion's, what else is behind the link is not.
    QCOMPARE(QDir(target).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList(QStringLiteral("Notes.txt")));
    QVERIFY(QDir(target).removeRecursively());
}

void StoreRealFailuresTest::everyNameIsInstalledWhereItBelongs_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("fileName");
    const auto row = [](const char *description, const QString &name, const QString &base) {
        QTest::newRow(description) << name << base + QStringLiteral(".app");
    };
    row("300 characters", QString(300, u'x'), QString(242, u'x'));
    row("300 characters of three bytes", QString(300, u'木'), QString(80, u'木'));
    row("one dot", QStringLiteral("."), QStringLiteral("."));
    row("two dots", QStringLiteral(".."), QStringLiteral(".."));
    row("the way up", QStringLiteral("../../Evil"), QStringLiteral(".. .. Evil"));
    row("a root", QStringLiteral("/etc"), QStringLiteral("etc"));
    row("emoji", QStringLiteral("🚀🇩🇪"), QStringLiteral("🚀🇩🇪"));
    row("only forbidden characters", QStringLiteral("/:*"), QStringLiteral("Dock Folder"));
    row("hidden", QStringLiteral(".hidden"), QStringLiteral(".hidden"));
    row("an option", QStringLiteral("--force"), QStringLiteral("--force"));
    row("a home", QStringLiteral("~"), QStringLiteral("~"));
    row("decomposed letters", QStringLiteral("e\u0301"), QStringLiteral("e\u0301"));
    row("markup", QStringLiteral("<a & \"b\">"), QStringLiteral("a &  b"));
    row("line breaks and tabs", QStringLiteral("a\nb\tc"), QStringLiteral("a b c"));
    row("the template's", QStringLiteral("Nestlet"), QStringLiteral("Nestlet"));
}

void StoreRealFailuresTest::everyNameIsInstalledWhereItBelongs()
{
    QFETCH(QString, name);
    QFETCH(QString, fileName);
    const QString surroundings = QFileInfo(m_scene.standIn().mac().root()).path();
    const QStringList ours{QStringLiteral("Library"), QStringLiteral("private"),
                           QStringLiteral("log")};
    const FileTree before = fileTree(surroundings, ours);
    m_scene.startWith({folderNamed(name)});
    QVERIFY(m_scene.install(m_scene.folder()));
    QCOMPARE(store().errorMessage(), QString());
    QVERIFY(m_scene.waitForProcess(m_scene.folder()) != 0);
    QVERIFY(store().isInstalled(m_scene.folder().id));

    QCOMPARE(m_scene.proxies(), QStringList(fileName));
    const QString bundle = m_scene.proxy(fileName);
    QCOMPARE(m_scene.sealComplaint(bundle), QString());
    QCOMPARE(AppBundle::at(bundle).value().name(), name);
    QStringList paths = differences(fileTree(surroundings, ours), before);
    const QString inside = m_scene.proxyDirectory().sliced(surroundings.size() + 1);
    paths.removeIf([&](const QString &path) {
        return path == inside || path.startsWith(inside + u'/' + fileName);
    });
    QCOMPARE(paths, QStringList());

    const DockFolder folder = m_scene.folder();
    store().deleteFolder(folder.id);
    QCOMPARE(m_scene.proxies(), QStringList());
    QVERIFY(m_scene.waitUntilGone(folder));
}

QTEST_MAIN(StoreRealFailuresTest)
#include "tst_storerealfailures.moc"
