#include "system/docktiles.h"

#include "platform/text.h"
#include "tests/fakes/fakedirectories.h"
#include "tests/fakes/fakeprocessrunner.h"
#include "tests/fakes/fakeuserdefaults.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <thread>

using namespace Qt::StringLiterals;

class DockTilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void tileIsTakenOutAndTheDockRestarted();
    void twoTilesGoInOneWriteWithOneRestart();
    void othersKeepTheirOrderAndTheirContents();
    void dockWithoutATileIsLeftAlone();
    void domainWithoutTilesIsLeftAlone();
    void tilesThatAreNoArrayAreLeftAlone();
    void arrayWithAnythingElseInItStaysWhole_data();
    void arrayWithAnythingElseInItStaysWhole();
    void launchErrorOfTheRestartIsSwallowed();
    void folderWithDotSegmentsIsStandardized();
    void labelComesFromTheBundleInAnyFolder();
    void tellsWhetherATileIsTheAppsOwn_data();
    void tellsWhetherATileIsTheAppsOwn();
    void makesAPathOfAURLText_data();
    void makesAPathOfAURLText();
    void matchingOffTheMainThreadIsFatal();

private:
    void setTiles(const QVariantList &tiles);
    [[nodiscard]] QVariantList tiles() const;
    void unregister(const QString &urlText);

    std::unique_ptr<FakeUserDefaults> m_defaults;
    std::unique_ptr<FakeProcessRunner> m_processes;
    FakeDirectories m_directories;
};

namespace {

const QString tilesKey = u"persistent-apps"_s;
const QString fooText = u"file:///Applications/Foo.app/"_s;

QVariantMap tileWithData(const QVariantMap &data)
{
    return {{u"tile-data"_s, data}, {u"tile-type"_s, u"file-tile"_s}};
}

QVariantMap tileWithURL(const QVariant &urlString, const QString &label = u"Label"_s)
{
    const QVariantMap fileData{{u"_CFURLString"_s, urlString}, {u"_CFURLStringType"_s, 15}};
    return tileWithData({{u"file-data"_s, fileData}, {u"file-label"_s, label}});
}

QVariantMap tileWithLabel(const QVariant &label)
{
    return tileWithData({{u"file-label"_s, label}});
}

} // namespace

void DockTilesTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    m_defaults = std::make_unique<FakeUserDefaults>();
    m_processes = std::make_unique<FakeProcessRunner>();
}

void DockTilesTest::setTiles(const QVariantList &tiles)
{
    m_defaults->values.insert(tilesKey, tiles);
}

QVariantList DockTilesTest::tiles() const
{
    return m_defaults->values.value(tilesKey).toList();
}

void DockTilesTest::unregister(const QString &urlText)
{
    DockTiles(*m_defaults, *m_processes, m_directories)
        .unregisterDockTiles(FileURL::fromValidText(urlText));
}

void DockTilesTest::tileIsTakenOutAndTheDockRestarted()
{
    setTiles({tileWithURL(fooText)});
    unregister(fooText);
    QCOMPARE(tiles(), QVariantList());
    QVERIFY(m_defaults->values.contains(tilesKey)); // an empty array, not none
    QCOMPARE(m_defaults->synchronizations, 1);
    QCOMPARE(m_processes->calls,
             (QList{FakeProcessRunner::Call{.tool = m_directories.system(u"/usr/bin/killall"_s),
                                            .arguments = {u"Dock"_s},
                                            .isWaitedFor = false}}));
}

void DockTilesTest::twoTilesGoInOneWriteWithOneRestart()
{
    const QVariantMap other = tileWithURL(u"file:///Applications/Bar.app/"_s);
    setTiles({tileWithURL(fooText), other, tileWithURL(u"/Applications/Foo.app"_s)});
    unregister(fooText);
    QCOMPARE(tiles(), QVariantList{other});
    QCOMPARE(m_defaults->writes, 1);
    QCOMPARE(m_defaults->synchronizations, 1);
    QCOMPARE(m_processes->calls.size(), 1);
}

void DockTilesTest::othersKeepTheirOrderAndTheirContents()
{
    const QVariantMap spacer{{u"tile-type"_s, u"spacer-tile"_s}, {u"GUID"_s, qint64(7)}};
    const QVariantMap odd{{u"tile-data"_s, QVariantList{true, 2.5, QByteArray("\0x", 2)}}};
    const QVariantMap other = tileWithURL(u"file:///Applications/Bar.app/"_s);
    setTiles({spacer, tileWithURL(fooText), QVariantMap(), odd, other});
    unregister(fooText);
    QCOMPARE(tiles(), (QVariantList{spacer, QVariantMap(), odd, other}));
}

void DockTilesTest::dockWithoutATileIsLeftAlone()
{
    setTiles({tileWithURL(u"file:///Applications/Bar.app/"_s), tileWithLabel(u"Bar"_s)});
    unregister(fooText);
    QCOMPARE(m_defaults->writes, 0);
    QCOMPARE(m_defaults->synchronizations, 0);
    QVERIFY(m_processes->calls.isEmpty());
}

void DockTilesTest::domainWithoutTilesIsLeftAlone()
{
    unregister(fooText);
    QCOMPARE(m_defaults->writes, 0);
    QVERIFY(m_processes->calls.isEmpty());
}

void DockTilesTest::tilesThatAreNoArrayAreLeftAlone()
{
    m_defaults->values.insert(tilesKey, tileWithURL(fooText));
    unregister(fooText);
    QCOMPARE(m_defaults->writes, 0);
    QVERIFY(m_processes->calls.isEmpty());
}

void DockTilesTest::arrayWithAnythingElseInItStaysWhole_data()
{
    QTest::addColumn<QVariant>("element");
    QTest::newRow("a text") << QVariant(fooText);
    QTest::newRow("a number") << QVariant(qint64(1));
    QTest::newRow("an array") << QVariant(QVariantList{tileWithURL(fooText)});
    QTest::newRow("data") << QVariant(QByteArray("x"));
}

void DockTilesTest::arrayWithAnythingElseInItStaysWhole()
{
    QFETCH(QVariant, element);
    const QVariantList before{tileWithURL(fooText), element};
    setTiles(before);
    unregister(fooText);
    QCOMPARE(tiles(), before);
    QCOMPARE(m_defaults->writes, 0);
    QVERIFY(m_processes->calls.isEmpty());
}

void DockTilesTest::launchErrorOfTheRestartIsSwallowed()
{
    m_processes->launchError = PlatformError(u"no killall"_s);
    setTiles({tileWithURL(fooText)});
    unregister(fooText);
    QCOMPARE(tiles(), QVariantList());
    QCOMPARE(m_processes->calls.size(), 1);
}

void DockTilesTest::folderWithDotSegmentsIsStandardized()
{
    setTiles({tileWithURL(fooText)});
    unregister(u"file:///Users/me/..//../Applications/./Foo.app"_s);
    QCOMPARE(tiles(), QVariantList());
}

void DockTilesTest::labelComesFromTheBundleInAnyFolder()
{
    setTiles({tileWithLabel(u"My Tools"_s)});
    unregister(u"file:///Users/me/Applications/Nestlet/My%20Tools.app/"_s);
    QCOMPARE(tiles(), QVariantList());
}

void DockTilesTest::tellsWhetherATileIsTheAppsOwn_data()
{
    QTest::addColumn<QVariantMap>("tile");
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isOwn");
    const auto own = [](const char *row, const QVariantMap &tile,
                        const QString &path = u"/Applications/Foo.app"_s) {
        QTest::newRow(row) << tile << path << true;
    };
    const auto foreign = [](const char *row, const QVariantMap &tile,
                            const QString &path = u"/Applications/Foo.app"_s) {
        QTest::newRow(row) << tile << path << false;
    };
    own("a file URL with a trailing slash", tileWithURL(fooText));
    own("a file URL without one", tileWithURL(u"file:///Applications/Foo.app"_s));
    own("a file URL of this computer", tileWithURL(u"file://localhost/Applications/Foo.app/"_s));
    own("a plain path", tileWithURL(u"/Applications/Foo.app"_s));
    own("a plain path with a trailing slash", tileWithURL(u"/Applications/Foo.app/"_s));
    own("dot segments and repeated slashes",
        tileWithURL(u"file:///Applications//x/.././Foo.app"_s));
    own("percent escapes", tileWithURL(u"file:///Applications/My%20Foo.app/"_s),
        u"/Applications/My Foo.app"_s);
    own("needless percent escapes", tileWithURL(u"file:///Applications/%46oo.app/"_s));
    own("a plain path with a space", tileWithURL(u"/Applications/My Foo.app"_s),
        u"/Applications/My Foo.app"_s);
    own("a plain path with a percent sign", tileWithURL(u"/Applications/100%.app"_s),
        u"/Applications/100%.app"_s);
    own("a decomposed accent in the URL", tileWithURL(u"file:///Applications/Mo%CC%88we.app/"_s),
        u"/Applications/Möwe.app"_s);
    foreign("percent escapes in a plain path", tileWithURL(u"/Applications/My%20Foo.app"_s),
            u"/Applications/My Foo.app"_s);
    foreign("another path with the app's label",
            tileWithURL(u"file:///Applications/Bar.app/"_s, u"Foo"_s));
    foreign("an empty URL with the app's label", tileWithURL(QString(u""_s), u"Foo"_s));
    foreign("another case", tileWithURL(u"file:///Applications/foo.app/"_s));
    foreign("a longer path", tileWithURL(u"file:///Applications/Foo.app/Contents"_s));
    foreign("another scheme", tileWithURL(u"https://a.example/Applications/Foo.app"_s));
    foreign("relative nonsense", tileWithURL(u"Foo.app"_s));
    own("the app's label and no file data", tileWithLabel(u"Foo"_s));
    own("the app's label and file data that are no dictionary",
        tileWithData({{u"file-data"_s, u"x"_s}, {u"file-label"_s, u"Foo"_s}}));
    own("the app's label and file data without a URL",
        tileWithData({{u"file-data"_s, QVariantMap()}, {u"file-label"_s, u"Foo"_s}}));
    own("the app's label and a URL that is no text", tileWithURL(7, u"Foo"_s));
    foreign("the app's label in another case", tileWithLabel(u"foo"_s));
    foreign("the app's label with its extension", tileWithLabel(u"Foo.app"_s));
    foreign("a label that is no text", tileWithLabel(QByteArray("Foo")));
    foreign("neither URL nor label", tileWithData({{u"bundle-identifier"_s, u"Foo"_s}}));
    foreign("tile data that are no dictionary", {{u"tile-data"_s, u"Foo"_s}});
    foreign("no tile data", {{u"file-label"_s, u"Foo"_s}});
    foreign("an empty tile", {});
}

void DockTilesTest::tellsWhetherATileIsTheAppsOwn()
{
    QFETCH(QVariantMap, tile);
    QFETCH(QString, path);
    QFETCH(bool, isOwn);
    QCOMPARE(dockTileMatches(tile, path, FileURL::directory(path).displayName()), isOwn);
}

void DockTilesTest::makesAPathOfAURLText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("path");
    const auto row = [](const char *name, const QString &text, const QString &path) {
        QTest::newRow(name) << text << path;
    };
    row("a file URL", u"file:///a/b.app"_s, u"/a/b.app"_s);
    row("a directory URL", u"file:///a/b.app/"_s, u"/a/b.app"_s);
    row("escapes", u"file:///a/b%20c%25.app"_s, u"/a/b c%.app"_s);
    row("a file URL with a bare space", u"file:///a b"_s, QDir::currentPath() + u"/file:/a b"_s);
    row("a plain path", u"/a/./b/../c//"_s, u"/a/c"_s);
    row("above the root", u"/../a"_s, u"/a"_s);
    row("the root", u"/"_s, u"/"_s);
    row("a relative path", u"b.app"_s, QDir::currentPath() + u"/b.app"_s);
    row("nothing", u""_s, QDir::currentPath());
}

void DockTilesTest::makesAPathOfAURLText()
{
    QFETCH(QString, text);
    QFETCH(QString, path);
    QCOMPARE(standardizedPathFromURLString(text), path);
}

namespace {

const QString offMainThread = u"--off-main-thread"_s;

int matchOffTheMainThread()
{
    std::thread([] { (void)dockTileMatches({}, {}, {}); }).join();
    return 0;
}

} // namespace

void DockTilesTest::matchingOffTheMainThreadIsFatal()
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {offMainThread});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);
    const QString report = QString::fromUtf8(process.readAllStandardError());
    QVERIFY2(report.contains(QRegularExpression(u"CompanionApp:[0-9]+"_s)), qPrintable(report));
}

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (QCoreApplication::arguments().contains(offMainThread))
        return matchOffTheMainThread();
    DockTilesTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_docktiles.moc"
