#include "builder/infoplist.h"
#include "builder/proxydirectory.h"
#include "bundles.h"
#include "model/uuidtext.h"
#include "tests/fakes/fakedirectories.h"
#include "tests/fakes/fakefilesystem.h"

#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <filesystem>

namespace {

using Operation = FakeFileSystem::Operation;

const QUuid first{QStringLiteral("1A2B3C4D-5E6F-4A8B-9CAD-0123456789EF")};
const QUuid second{QStringLiteral("FEDCBA98-5E6F-4A8B-9CAD-0123456789EF")};

DockFolder folder(const QUuid &id, const QString &name)
{
    return {.id = id, .name = name};
}

} // namespace

class ProxyDirectoryTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void liesInTheUsersApplications();
    void isEmptyWhenItCannotBeListed();
    void readsThroughALinkToADirectory();
    void listsBundlesAlone();
    void findsTheFolderOfEachBundle();
    void findsAllBundlesOfAFolderInListingOrder();
    void namesADockAppAfterItsFolder_data();
    void namesADockAppAfterItsFolder();
    void givesTheSecondFolderOfANameAnotherOne();
    void keepsTheNameOfTheFoldersOwnBundle();
    void takesAForeignBundleForFree_data();
    void takesAForeignBundleForFree();
    void findsWhatItNamed_data();
    void findsWhatItNamed();
    void costsOneListingAndOneReadPerBundle();
    void readsNothingAgainWhenNothingChanged();
    void readsAChangedBundleAgain();
    void readsAgainWhatCouldNotBeRead();
    void noticesBundlesThatComeAndGo();
    void noticesABundleThatWasReplacedUnderItsName();

private:
    QSet<QUuid> installedFolderIDs() const
    {
        const auto proxies = m_directory->installedProxies();
        return {proxies.keyBegin(), proxies.keyEnd()};
    }
    FileURL proxy(const QString &fileName) const
    {
        return m_directory->url().appendingDirectory(fileName);
    }
    FileURL makeProxy(const QString &fileName, const QUuid &folderID)
    {
        FileURL url = proxy(fileName);
        writeInfoPlist(url, {{QStringLiteral("DockFolderID"), uuidText(folderID)}}, m_files);
        return url;
    }

    PosixFileSystem m_files;
    std::unique_ptr<FakeDirectories> m_directories;
    std::unique_ptr<FakeFileSystem> m_watched;
    std::unique_ptr<ProxyDirectory> m_directory;
};

void ProxyDirectoryTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_directories = std::make_unique<FakeDirectories>();
    m_watched = std::make_unique<FakeFileSystem>();
    m_directory = std::make_unique<ProxyDirectory>(*m_watched, *m_directories);
}

void ProxyDirectoryTest::liesInTheUsersApplications()
{
    QCOMPARE(m_directory->url(),
             m_directories->at(QStringLiteral("/Users/me/Applications/Nestlet/")));
}

void ProxyDirectoryTest::isEmptyWhenItCannotBeListed()
{
    QVERIFY(m_directory->entries().isEmpty()); // missing
    QVERIFY(installedFolderIDs().isEmpty());
    QVERIFY(m_directory->installedProxyURLs(first).isEmpty());

    writeFile(m_directories->userApplications().appendingFile(QStringLiteral("Nestlet")), "a file",
              m_files);
    QVERIFY(m_directory->entries().isEmpty());

    m_watched->fail(Operation::Contents, {}, EACCES);
    QVERIFY(m_directory->entries().isEmpty());
}

void ProxyDirectoryTest::readsThroughALinkToADirectory()
{
    m_files.createDirectories(m_directories->userApplications());
    m_files.createDirectories(m_directories->at(QStringLiteral("/Elsewhere/")));
    std::filesystem::create_directory_symlink(
        m_directories->at(QStringLiteral("/Elsewhere")).path().toStdString(),
        m_directory->url().path().toStdString());
    makeProxy(QStringLiteral("Work.app"), first);
    QCOMPARE(installedFolderIDs(), QSet<QUuid>{first});
}

void ProxyDirectoryTest::listsBundlesAlone()
{
    for (const char16_t *name : {u"Work.app", u"Work.APP", u"Work.app.bak", u"Work", u".app",
                                 u"Work.apps", u".hidden.app"})
        makeProxy(QString::fromUtf16(name), first);
    writeFile(m_directory->url().appendingFile(QStringLiteral("File.app")), "a file", m_files);

    QSet<QString> names;
    for (const auto &entry : m_directory->entries())
        names.insert(entry.url.lastPathComponent());
    QCOMPARE(names,
             (QSet<QString>{QStringLiteral("Work.app"), QStringLiteral(".hidden.app"),
                            QStringLiteral("File.app")}));
}

void ProxyDirectoryTest::findsTheFolderOfEachBundle()
{
    makeProxy(QStringLiteral("Work.app"), first);
    makeProxy(QStringLiteral("Play.app"), second);
    writeInfoPlist(proxy(QStringLiteral("Foreign.app")), {}, m_files);
    m_files.createDirectories(proxy(QStringLiteral("Broken.app")));

    QHash<QString, std::optional<QUuid>> found;
    for (const auto &entry : m_directory->entries())
        found.insert(entry.url.lastPathComponent(), entry.folderID);
    QCOMPARE(found,
             (QHash<QString, std::optional<QUuid>>{{QStringLiteral("Work.app"), first},
                                                   {QStringLiteral("Play.app"), second},
                                                   {QStringLiteral("Foreign.app"), std::nullopt},
                                                   {QStringLiteral("Broken.app"), std::nullopt}}));
    QCOMPARE(installedFolderIDs(), (QSet<QUuid>{first, second}));
}

void ProxyDirectoryTest::findsAllBundlesOfAFolderInListingOrder()
{
    for (const char16_t *name : {u"C.app", u"A.app", u"B.app", u"D.app"})
        makeProxy(QString::fromUtf16(name), first);
    makeProxy(QStringLiteral("Other.app"), second);

    QList<FileURL> listed = m_files.contents(m_directory->url());
    listed.removeIf([](const FileURL &url) { return url.lastPathComponent() == u"Other.app"; });
    QCOMPARE(m_directory->installedProxyURLs(first), listed);
    QVERIFY(m_directory->installedProxyURLs(QUuid::createUuid()).isEmpty());
}

void ProxyDirectoryTest::namesADockAppAfterItsFolder_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("fileName");
    QTest::newRow("plain") << QStringLiteral("Work") << QStringLiteral("Work.app");
    QTest::newRow("forbidden characters") << QStringLiteral("a/b:c") << QStringLiteral("a b c.app");
    QTest::newRow("blanks") << QStringLiteral("   ") << QStringLiteral("Dock Folder.app");
    QTest::newRow("only forbidden characters")
        << QStringLiteral("//:?") << QStringLiteral("Dock Folder.app");
    QTest::newRow("dots") << QStringLiteral("..") << QStringLiteral("...app");
    QTest::newRow("percent escapes are text")
        << QStringLiteral("a #1") << QStringLiteral("a #1.app");
}

void ProxyDirectoryTest::namesADockAppAfterItsFolder()
{
    QFETCH(QString, name);
    QFETCH(QString, fileName);
    const FileURL url = m_directory->proxyAppURL(folder(first, name));
    QCOMPARE(url, proxy(fileName));
    QCOMPARE(url.lastPathComponent(), fileName);
    QVERIFY(url.hasDirectoryPath());
    QCOMPARE(url.standardizedPath(), m_directory->url().path() + u'/' + fileName);
}

void ProxyDirectoryTest::givesTheSecondFolderOfANameAnotherOne()
{
    const QString name = QStringLiteral("Work");
    makeProxy(QStringLiteral("Work.app"), first);
    QCOMPARE(m_directory->proxyAppURL(folder(first, name)), proxy(QStringLiteral("Work.app")));
    QCOMPARE(m_directory->proxyAppURL(folder(second, name)),
             proxy(QStringLiteral("Work FEDCBA98.app")));
}

void ProxyDirectoryTest::keepsTheNameOfTheFoldersOwnBundle()
{
    makeProxy(QStringLiteral("Work.app"), second);
    makeProxy(QStringLiteral("Work 1A2B3C4D.app"), first);
    QCOMPARE(m_directory->proxyAppURL(folder(first, QStringLiteral("Work"))),
             proxy(QStringLiteral("Work 1A2B3C4D.app")));
    m_files.remove(proxy(QStringLiteral("Work.app")));
    QCOMPARE(m_directory->proxyAppURL(folder(first, QStringLiteral("Work"))),
             proxy(QStringLiteral("Work.app")));
}

void ProxyDirectoryTest::takesAForeignBundleForFree_data()
{
    QTest::addColumn<QByteArray>("infoPlist");
    QTest::newRow("without a folder") << xml("<dict/>");
    QTest::newRow("unreadable") << QByteArray("hello");
    QTest::newRow("with something else as folder")
        << xml("<dict><key>DockFolderID</key><string>x</string></dict>");
}

void ProxyDirectoryTest::takesAForeignBundleForFree()
{
    QFETCH(QByteArray, infoPlist);
    writeInfoPlistBytes(proxy(QStringLiteral("Work.app")), infoPlist, m_files);
    QCOMPARE(m_directory->proxyAppURL(folder(first, QStringLiteral("Work"))),
             proxy(QStringLiteral("Work.app")));
}

void ProxyDirectoryTest::findsWhatItNamed_data()
{
    QTest::addColumn<QString>("name");
    for (const char16_t *name : {u"Work", u"a/b:c", u"🚀 Работа", u"e\u0301", u"é", u"..", u".",
                                 u"a%20b", u"a#b;c?d", u"[x] {y} ^ ` ~", u"Work.app", u"'\"\\"}) {
        const QString text = QString::fromUtf16(name);
        QTest::newRow(qPrintable(text)) << text;
    }
    QTest::newRow("300 letters") << QString(300, u'x');
    QTest::newRow("300 emoji") << QStringLiteral("🚀").repeated(300);
    QTest::newRow("300 dots") << QString(300, u'.');
}

void ProxyDirectoryTest::findsWhatItNamed()
{
    QFETCH(QString, name);
    const FileURL url = m_directory->proxyAppURL(folder(first, name));
    makeProxy(url.lastPathComponent(), first);
    const FileURL other = m_directory->proxyAppURL(folder(second, name));
    makeProxy(other.lastPathComponent(), second);

    QCOMPARE(m_directory->installedProxyURLs(first), QList<FileURL>{url});
    QCOMPARE(m_directory->installedProxyURLs(second), QList<FileURL>{other});
}

void ProxyDirectoryTest::costsOneListingAndOneReadPerBundle()
{
    QSet<QUuid> ids;
    for (int i = 0; i < 20; ++i) {
        const QUuid id = QUuid::createUuid();
        ids.insert(id);
        makeProxy(QStringLiteral("Folder %1.app").arg(i), id);
    }
    QCOMPARE(installedFolderIDs(), ids);
    QCOMPARE(m_watched->count(Operation::Contents), 1);
    QCOMPARE(m_watched->count(Operation::Read), 20);
}

void ProxyDirectoryTest::readsNothingAgainWhenNothingChanged()
{
    makeProxy(QStringLiteral("Work.app"), first);
    writeInfoPlist(proxy(QStringLiteral("Foreign.app")), {}, m_files);
    m_files.createDirectories(proxy(QStringLiteral("Empty.app")));
    (void)m_directory->entries();
    m_watched->calls.clear();
    QCOMPARE(installedFolderIDs(), QSet<QUuid>{first});
    QCOMPARE(m_directory->installedProxyURLs(first),
             QList<FileURL>{proxy(QStringLiteral("Work.app"))});
    QCOMPARE(m_watched->count(Operation::Read), 0);
}

void ProxyDirectoryTest::readsAChangedBundleAgain()
{
    makeProxy(QStringLiteral("Work.app"), first);
    makeProxy(QStringLiteral("Play.app"), second);
    (void)m_directory->entries();
    m_watched->calls.clear();
    const QUuid third = QUuid::createUuid();
    makeProxy(QStringLiteral("Work.app"), third);
    QCOMPARE(installedFolderIDs(), (QSet<QUuid>{second, third}));
    QCOMPARE(m_watched->count(Operation::Read), 1);
    QVERIFY(m_watched->calls.contains(
        FakeFileSystem::Call{.operation = Operation::Read,
                             .path = infoPlistURL(proxy(QStringLiteral("Work.app"))).path()}));

    m_files.remove(infoPlistURL(proxy(QStringLiteral("Work.app"))));
    QCOMPARE(installedFolderIDs(), QSet<QUuid>{second});
}

void ProxyDirectoryTest::readsAgainWhatCouldNotBeRead()
{
    makeProxy(QStringLiteral("Work.app"), first);
    m_watched->fail(Operation::Read, {}, EMFILE);
    QCOMPARE(installedFolderIDs(), QSet<QUuid>());
    m_watched->failures.clear();
    QCOMPARE(installedFolderIDs(), QSet<QUuid>{first});
}

void ProxyDirectoryTest::noticesBundlesThatComeAndGo()
{
    makeProxy(QStringLiteral("Work.app"), first);
    QCOMPARE(installedFolderIDs(), QSet<QUuid>{first});
    makeProxy(QStringLiteral("Play.app"), second);
    QCOMPARE(installedFolderIDs(), (QSet<QUuid>{first, second}));
    m_files.remove(proxy(QStringLiteral("Work.app")));
    QCOMPARE(installedFolderIDs(), QSet<QUuid>{second});
    m_files.remove(m_directory->url());
    QVERIFY(installedFolderIDs().isEmpty());
    makeProxy(QStringLiteral("Work.app"), first);
    QCOMPARE(installedFolderIDs(), QSet<QUuid>{first});
}

void ProxyDirectoryTest::noticesABundleThatWasReplacedUnderItsName()
{
    makeProxy(QStringLiteral("Work.app"), first);
    makeProxy(QStringLiteral("Play.app"), second);
    (void)m_directory->entries();
    const FileURL aside = proxy(QStringLiteral("Aside"));
    std::filesystem::rename(proxy(QStringLiteral("Work.app")).path().toStdString(),
                            aside.path().toStdString());
    std::filesystem::rename(proxy(QStringLiteral("Play.app")).path().toStdString(),
                            proxy(QStringLiteral("Work.app")).path().toStdString());
    QCOMPARE(m_directory->installedProxyURLs(second),
             QList<FileURL>{proxy(QStringLiteral("Work.app"))});
    QVERIFY(m_directory->installedProxyURLs(first).isEmpty());
}

QTEST_GUILESS_MAIN(ProxyDirectoryTest)
#include "tst_proxydirectory.moc"
