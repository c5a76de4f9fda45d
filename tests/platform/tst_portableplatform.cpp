#include "platform/bookmarks.h"
#include "platform/clock.h"
#include "platform/directories.h"
#include "platform/directorywatcher.h"
#include "platform/filesystem.h"
#include "platform/mainbundle.h"
#include "platform/platform.h"
#include "platform/portable/portabledirectories.h"
#include "platform/portable/portabledirectorywatcher.h"
#include "platform/portable/portablemainbundle.h"
#include "platform/processrunner.h"
#include "platform/runningapplications.h"
#include "platform/urlfetcher.h"
#include "platform/userdefaults.h"
#include "platform/workspace.h"
#include "tests/platform/standinapplications.h"

#include <QTest>

class PortablePlatformTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void livesBelowItsRoot();
    void hasEveryPart();
    void readsItsVariables();
    void keepsTheDefaultsInTheHome();
    void knowsItsOwnBundle();
    void watchesNothingThatIsMissing();
    void tellsOfEveryKindOfChange_data();
    void tellsOfEveryKindOfChange();
    void survivesBurstsOfReplacements();
    void endsWithTheWatch();
    void aWatchMayEndInItsOwnCall();

private:
    const PosixFileSystem m_files{};
    std::optional<StandInApplications> m_mac{};
    FileURL m_root{};
};

void PortablePlatformTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_mac.emplace();
    m_root = FileURL::directory(m_mac->root());
}

void PortablePlatformTest::livesBelowItsRoot()
{
    const PortableDirectories directories(QStringLiteral("/a b"));
    const auto text = [](const FileURL &url) { return url.text(); };
    QCOMPARE(text(directories.home()), QStringLiteral("file:///a%20b/Users/me/"));
    QCOMPARE(text(directories.userApplications()),
             QStringLiteral("file:///a%20b/Users/me/Applications/"));
    QCOMPARE(text(directories.applicationSupport()),
             QStringLiteral("file:///a%20b/Users/me/Library/Application%20Support/"));
    QCOMPARE(text(directories.system(QStringLiteral("/Applications/"))),
             QStringLiteral("file:///a%20b/Applications/"));
    QCOMPARE(text(directories.system(QStringLiteral("/usr/bin/codesign"))),
             QStringLiteral("file:///a%20b/usr/bin/codesign"));
    QVERIFY(m_files.isDirectory(PortableDirectories(m_mac->root()).temporary()));
}

void PortablePlatformTest::hasEveryPart()
{
    const Platform platform = makePlatform();
    QVERIFY(platform.directories && platform.files && platform.processes && platform.workspace);
    QVERIFY(platform.applications && platform.standardDefaults && platform.dockDefaults);
    QVERIFY(platform.watcher && platform.bookmarks && platform.mainBundle && platform.clock);
    QVERIFY(platform.network);
    QVERIFY(!platform.bookmarks->securityScoped(m_root));
}

void PortablePlatformTest::readsItsVariables()
{
    qputenv("NESTLET_COMPANION_ROOT", (m_mac->root() + QStringLiteral("/x/../mac/")).toUtf8());
    qputenv("NESTLET_COMPANION_FEED", "https://example.com/feed.json");
    const Platform chosen = makePlatform();
    qunsetenv("NESTLET_COMPANION_ROOT");
    qunsetenv("NESTLET_COMPANION_FEED");
    const Platform usual = makePlatform();
    QCOMPARE(chosen.directories->home().path(), m_mac->root() + QStringLiteral("/mac/Users/me"));
    QCOMPARE(chosen.updateFeed, QUrl(QStringLiteral("https://example.com/feed.json")));
    QVERIFY(usual.directories->home().path().endsWith(
        QStringLiteral("/nestlet-companion/Mac/Users/me")));
    QVERIFY(!usual.updateFeed);
}

void PortablePlatformTest::keepsTheDefaultsInTheHome()
{
    qputenv("NESTLET_COMPANION_ROOT", m_mac->root().toUtf8());
    const Platform platform = makePlatform();
    qunsetenv("NESTLET_COMPANION_ROOT");
    platform.dockDefaults->setInteger(QStringLiteral("n"), 1);
    platform.standardDefaults->setInteger(QStringLiteral("n"), 2);
    const QString preferences = QStringLiteral("/Users/me/Library/Preferences/");
    QVERIFY(m_files.exists(m_mac->at(preferences + QStringLiteral("com.apple.dock.plist"))));
    QVERIFY(m_files.exists(m_mac->at(preferences + QStringLiteral("qx.Nestlet.Companion.plist"))));
    QCOMPARE(platform.dockDefaults->integer(QStringLiteral("n")), 1);
}

void PortablePlatformTest::knowsItsOwnBundle()
{
    const QString version = QStringLiteral("CFBundleVersion");
    const FileURL bundle
        = m_mac->make(QStringLiteral("/C.app"), {{version, QStringLiteral("1.2")}}, "");
    const PortableMainBundle inside(bundle.path() + QStringLiteral("/Contents/MacOS"));
    QCOMPARE(inside.url(), bundle);
    QCOMPARE(inside.version(), QStringLiteral("1.2"));
    m_mac->make(QStringLiteral("/C.app"), {{version, qint64{12}}}, "");
    QVERIFY(!PortableMainBundle(bundle.path() + QStringLiteral("/Contents/MacOS")).version());
    const PortableMainBundle outside(QStringLiteral("/usr/bin"));
    QCOMPARE(outside.url().text(), QStringLiteral("file:///usr/bin/"));
    QVERIFY(outside.version().value_or(QString()).toInt() >= 1); // the build's own number
}

void PortablePlatformTest::watchesNothingThatIsMissing()
{
    PortableDirectoryWatcher watcher;
    QVERIFY(!watcher.watch(m_mac->at(QStringLiteral("/missing")), [] {}));
    m_files.writeAtomically(m_mac->at(QStringLiteral("/file")), "");
    QVERIFY(!watcher.watch(m_mac->at(QStringLiteral("/file")), [] {}));
}

void PortablePlatformTest::tellsOfEveryKindOfChange_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"added", "removed", "renamed", "replaced", "removed and added again"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void PortablePlatformTest::tellsOfEveryKindOfChange()
{
    QFETCH(QString, kind);
    const FileURL file = m_mac->at(QStringLiteral("/f"));
    m_files.writeAtomically(file, "old");
    int calls = 0;
    PortableDirectoryWatcher watcher;
    const auto watch = watcher.watch(m_root, [&] { ++calls; });
    QVERIFY(watch);
    if (kind == u"added")
        m_files.createDirectories(m_mac->at(QStringLiteral("/g")));
    else if (kind == u"removed")
        m_files.remove(file);
    else if (kind == u"renamed")
        m_files.move(file, m_mac->at(QStringLiteral("/g")));
    else
        m_files.writeAtomically(file, "new");
    QTRY_VERIFY(calls > 0);
    if (kind != u"removed and added again")
        return;
    m_files.remove(file);
    QTest::qWait(50);
    calls = 0;
    m_files.writeAtomically(file, "again");
    QTRY_VERIFY(calls > 0);
}

void PortablePlatformTest::survivesBurstsOfReplacements()
{
    const FileURL file = m_mac->at(QStringLiteral("/f"));
    int calls = 0;
    PortableDirectoryWatcher watcher;
    const auto watch = watcher.watch(m_root, [&] { ++calls; });
    for (int i = 0; i < 1000; ++i)
        m_files.writeAtomically(file, QByteArray::number(i));
    QTRY_VERIFY(calls > 0);
    QTest::qWait(50);
    calls = 0;
    m_files.writeAtomically(file, "last");
    QTRY_VERIFY(calls > 0);
}

void PortablePlatformTest::endsWithTheWatch()
{
    int calls = 0;
    PortableDirectoryWatcher watcher;
    auto watch = watcher.watch(m_root, [&] { ++calls; });
    m_files.writeAtomically(m_mac->at(QStringLiteral("/f")), ""); // its event is on the way
    watch.reset();
    QTest::qWait(50);
    QCOMPARE(calls, 0);
}

void PortablePlatformTest::aWatchMayEndInItsOwnCall()
{
    int calls = 0;
    PortableDirectoryWatcher watcher;
    std::unique_ptr<DirectoryWatch> watch;
    watch = watcher.watch(m_root, [&] {
        watch.reset();
        ++calls;
    });
    m_files.writeAtomically(m_mac->at(QStringLiteral("/f")), "");
    QTRY_COMPARE(calls, 1);
}

QTEST_MAIN(PortablePlatformTest)
#include "tst_portableplatform.moc"
