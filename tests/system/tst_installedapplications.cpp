#include "system/installedapplications.h"

#include "tests/fakes/fakedirectories.h"
#include "tests/fakes/fakefilesystem.h"

#include <QCollator>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <future>

using namespace Qt::StringLiterals;

class InstalledApplicationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void listsTheThreeFolders();
    void applicationInTwoFoldersIsListedTwiceSideBySide();
    void looksOneFolderDownAndNoDeeper();
    void neverLooksIntoBundles();
    void extensionAloneDecides();
    void upperCaseExtensionIsNone();
    void hiddenEntriesAreNeverListed();
    void linkToAnApplicationIsListed();
    void linkToAFolderIsNotLookedInto();
    void missingFoldersCountAsEmpty();
    void unreadableFolderCountsAsEmpty();
    void rootThatIsAFileCountsAsEmpty();
    void rootsThatLieWithinEachOtherRepeatNothing();
    void urlsAreOfDirectoriesWithEscapes();
    void caseDoesNotCountInTheOrder();
    void orderIsThatOfTheLanguageWhateverTheEnvironment();
    void orderFollowsTheUsersLanguage();
    void extensionCountsInTheOrder();
    void longAndOddNamesAreSorted();
    void equalNamesAreInTheSameOrderAtEachScan();
    void fiveThousandApplicationsAreInReferenceOrder();
    void worksOffTheMainThread();

private:
    /// Makes a directory of the stand-in Mac, with all above it.
    void makeDirectory(const QString &path) const;
    void makeFile(const QString &path) const;
    void makeLink(const QString &target, const QString &path) const;
    /// Paths of what was found, below the Mac's root.
    [[nodiscard]] QStringList scannedPaths() const;
    [[nodiscard]] QStringList scannedNames() const;

    std::unique_ptr<FakeDirectories> m_directories;
    std::unique_ptr<FakeFileSystem> m_files;
};

void InstalledApplicationsTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    m_directories = std::make_unique<FakeDirectories>();
    m_files = std::make_unique<FakeFileSystem>();
}

void InstalledApplicationsTest::cleanup()
{
    QLocale::setDefault(QLocale::system());
}

void InstalledApplicationsTest::makeDirectory(const QString &path) const
{
    QVERIFY(QDir().mkpath(m_directories->root.path() + path));
}

void InstalledApplicationsTest::makeFile(const QString &path) const
{
    QVERIFY(QFile(m_directories->root.path() + path).open(QIODevice::WriteOnly));
}

void InstalledApplicationsTest::makeLink(const QString &target, const QString &path) const
{
    const QString root = m_directories->root.path();
    QVERIFY(QFile::link(root + target, root + path));
}

QStringList InstalledApplicationsTest::scannedPaths() const
{
    QStringList paths;
    for (const FileURL &url : scanInstalledApplications(*m_files, *m_directories))
        paths.append(url.path().sliced(m_directories->root.path().size()));
    return paths;
}

QStringList InstalledApplicationsTest::scannedNames() const
{
    QStringList names;
    for (const FileURL &url : scanInstalledApplications(*m_files, *m_directories))
        names.append(url.lastPathComponent());
    return names;
}

void InstalledApplicationsTest::listsTheThreeFolders()
{
    makeDirectory(u"/Applications/C.app"_s);
    makeDirectory(u"/System/Applications/B.app"_s);
    makeDirectory(u"/Users/me/Applications/A.app"_s);
    QCOMPARE(scannedPaths(),
             (QStringList{u"/Users/me/Applications/A.app"_s, u"/System/Applications/B.app"_s,
                          u"/Applications/C.app"_s}));
}

void InstalledApplicationsTest::applicationInTwoFoldersIsListedTwiceSideBySide()
{
    makeDirectory(u"/Applications/A.app"_s);
    makeDirectory(u"/Applications/X.app"_s);
    makeDirectory(u"/Applications/Z.app"_s);
    makeDirectory(u"/Users/me/Applications/X.app"_s);
    QCOMPARE(scannedPaths(),
             (QStringList{u"/Applications/A.app"_s, u"/Applications/X.app"_s,
                          u"/Users/me/Applications/X.app"_s, u"/Applications/Z.app"_s}));
}

void InstalledApplicationsTest::looksOneFolderDownAndNoDeeper()
{
    makeDirectory(u"/Applications/Utilities/Near.app"_s);
    makeDirectory(u"/Applications/Utilities/More/Far.app"_s);
    QCOMPARE(scannedPaths(), QStringList{u"/Applications/Utilities/Near.app"_s});
}

void InstalledApplicationsTest::neverLooksIntoBundles()
{
    makeDirectory(u"/Applications/Outer.app/Inner.app"_s);
    makeDirectory(u"/Applications/Utilities/Other.app/Inner.app"_s);
    QCOMPARE(scannedNames(), (QStringList{u"Other.app"_s, u"Outer.app"_s}));
}

void InstalledApplicationsTest::extensionAloneDecides()
{
    makeDirectory(u"/Applications"_s);
    makeFile(u"/Applications/File.app"_s);
    makeFile(u"/Applications/Notes.txt"_s);
    makeDirectory(u"/Applications/Empty.app"_s);
    makeDirectory(u"/Applications/Two.Dots.app"_s);
    makeDirectory(u"/Applications/Old.app.bak"_s);
    makeDirectory(u"/Applications/app"_s);
    makeDirectory(u"/Applications/Mapp"_s);
    QCOMPARE(scannedNames(), (QStringList{u"Empty.app"_s, u"File.app"_s, u"Two.Dots.app"_s}));
}

void InstalledApplicationsTest::upperCaseExtensionIsNone()
{
    makeDirectory(u"/Applications/Foo.APP/Inside.app"_s); // so it is a folder like any other
    makeDirectory(u"/Applications/Bar.App"_s);
    QCOMPARE(scannedNames(), QStringList{u"Inside.app"_s});
}

void InstalledApplicationsTest::hiddenEntriesAreNeverListed()
{
    makeDirectory(u"/Applications/.Hidden.app"_s);
    makeDirectory(u"/Applications/.app"_s);
    makeDirectory(u"/Applications/.folder/Inside.app"_s);
    makeDirectory(u"/Applications/Utilities/.Hidden.app"_s);
    QCOMPARE(scannedNames(), QStringList());
}

void InstalledApplicationsTest::linkToAnApplicationIsListed()
{
    makeDirectory(u"/Applications"_s);
    makeDirectory(u"/Volumes/Real.app"_s);
    makeLink(u"/Volumes/Real.app"_s, u"/Applications/Link.app"_s);
    makeLink(u"/nowhere"_s, u"/Applications/Dangling.app"_s);
    QCOMPARE(scannedNames(), (QStringList{u"Dangling.app"_s, u"Link.app"_s}));
}

void InstalledApplicationsTest::linkToAFolderIsNotLookedInto()
{
    makeDirectory(u"/Applications"_s);
    makeDirectory(u"/Volumes/Tools/Inside.app"_s);
    makeLink(u"/Volumes/Tools"_s, u"/Applications/Tools"_s);
    QCOMPARE(scannedNames(), QStringList());
}

void InstalledApplicationsTest::missingFoldersCountAsEmpty()
{
    QCOMPARE(scannedNames(), QStringList());
    makeDirectory(u"/System/Applications/A.app"_s);
    QCOMPARE(scannedNames(), QStringList{u"A.app"_s});
}

void InstalledApplicationsTest::unreadableFolderCountsAsEmpty()
{
    makeDirectory(u"/Applications/A.app"_s);
    makeDirectory(u"/Applications/Locked/B.app"_s);
    makeDirectory(u"/Applications/Open/C.app"_s);
    makeDirectory(u"/System/Applications/D.app"_s);
    m_files->fail(FakeFileSystem::Operation::VisibleEntries, u"/Locked"_s, EACCES);
    QCOMPARE(scannedNames(), (QStringList{u"A.app"_s, u"C.app"_s, u"D.app"_s}));
    m_files->fail(FakeFileSystem::Operation::VisibleEntries, u"/System/Applications"_s, EACCES);
    QCOMPARE(scannedNames(), (QStringList{u"A.app"_s, u"C.app"_s}));
}

void InstalledApplicationsTest::rootThatIsAFileCountsAsEmpty()
{
    makeFile(u"/Applications"_s);
    makeDirectory(u"/System/Applications/A.app"_s);
    QCOMPARE(scannedNames(), QStringList{u"A.app"_s});
}

void InstalledApplicationsTest::rootsThatLieWithinEachOtherRepeatNothing()
{
    // The user's own Applications folder is one within "/Applications".
    struct NestedDirectories final : Directories {
        const FakeDirectories &outer;
        explicit NestedDirectories(const FakeDirectories &directories)
            : outer(directories)
        {
        }
        FileURL applicationSupport() const override { return outer.applicationSupport(); }
        FileURL userApplications() const override { return outer.userApplications(); }
        FileURL home() const override { return outer.at(u"/Applications"_s); }
        FileURL temporary() const override { return outer.temporary(); }
        FileURL system(const QString &path) const override { return outer.system(path); }
    };
    makeDirectory(u"/Applications/Applications/A.app"_s);
    makeDirectory(u"/Applications/Applications/B.app"_s);
    makeDirectory(u"/System/Applications/A.app"_s);
    const auto urls = scanInstalledApplications(*m_files, NestedDirectories(*m_directories));
    QCOMPARE(urls.size(), 3);
    QCOMPARE(QSet(urls.begin(), urls.end()).size(), 3);
}

void InstalledApplicationsTest::urlsAreOfDirectoriesWithEscapes()
{
    makeDirectory(u"/Applications/My Tools/Ä%#?.app"_s);
    makeFile(u"/Applications/Z.app"_s);
    const QString base = m_directories->system(u"/Applications/"_s).text();
    QCOMPARE(scanInstalledApplications(*m_files, *m_directories),
             (QList{FileURL::fromValidText(base + u"My%20Tools/%C3%84%25%23%3F.app/"_s),
                    FileURL::fromValidText(base + u"Z.app"_s)}));
}

void InstalledApplicationsTest::caseDoesNotCountInTheOrder()
{
    makeDirectory(u"/Applications/Beta.app"_s);
    makeDirectory(u"/Applications/alpha.app"_s);
    makeDirectory(u"/Applications/GAMMA.app"_s);
    makeDirectory(u"/Applications/delta.app"_s);
    QCOMPARE(scannedNames(),
             (QStringList{u"alpha.app"_s, u"Beta.app"_s, u"delta.app"_s, u"GAMMA.app"_s}));
}

void InstalledApplicationsTest::orderIsThatOfTheLanguageWhateverTheEnvironment()
{
    QLocale::setDefault(QLocale::c());
    for (const QString &name : {u"Zebra"_s, u"Öl"_s, u"Ofen"_s, u"Eis"_s, u"École"_s, u"Echo"_s})
        makeDirectory(u"/Applications/"_s + name + u".app"_s);
    QCOMPARE(scannedNames(),
             (QStringList{u"Echo.app"_s, u"École.app"_s, u"Eis.app"_s, u"Ofen.app"_s, u"Öl.app"_s,
                          u"Zebra.app"_s}));
}

void InstalledApplicationsTest::orderFollowsTheUsersLanguage()
{
    makeDirectory(u"/Applications/Zon.app"_s);
    makeDirectory(u"/Applications/Öga.app"_s);
    QLocale::setDefault(QLocale(QLocale::German));
    QCOMPARE(scannedNames(), (QStringList{u"Öga.app"_s, u"Zon.app"_s}));
    QLocale::setDefault(QLocale(QLocale::Swedish));
    QCOMPARE(scannedNames(), (QStringList{u"Zon.app"_s, u"Öga.app"_s}));
}

void InstalledApplicationsTest::extensionCountsInTheOrder()
{
    makeDirectory(u"/Applications/Photo.app"_s);
    makeDirectory(u"/Applications/Photo Booth.app"_s); // a space goes before a dot
    makeDirectory(u"/Applications/Photos.app"_s);
    QCOMPARE(scannedNames(), (QStringList{u"Photo Booth.app"_s, u"Photo.app"_s, u"Photos.app"_s}));
}

void InstalledApplicationsTest::longAndOddNamesAreSorted()
{
    const QString longName = QString(240, u'x');
    makeDirectory(u"/Applications/"_s + longName + u"b.app"_s);
    makeDirectory(u"/Applications/"_s + longName + u"a.app"_s);
    makeDirectory(u"/Applications/🎉.app"_s);
    makeDirectory(u"/Applications/日本語.app"_s);
    makeDirectory(u"/Applications/....app"_s);
    const QStringList names = scannedNames();
    QCOMPARE(names.size(), 4); // a name of dots is a hidden one
    QCOMPARE(names.first(), u"🎉.app"_s);
    QCOMPARE(names.last(), u"日本語.app"_s);
    QVERIFY(names.at(1) < names.at(2));
}

void InstalledApplicationsTest::equalNamesAreInTheSameOrderAtEachScan()
{
    for (int i = 0; i < 50; ++i)
        makeDirectory(
            u"/Applications/Folder %1/%2.app"_s.arg(i).arg(i % 2 ? u"Same"_s : u"SAME"_s));
    const QStringList first = scannedPaths();
    QCOMPARE(first.size(), 50);
    QVERIFY(std::ranges::is_sorted(first)); // by place
    QCOMPARE(scannedPaths(), first);
}

void InstalledApplicationsTest::fiveThousandApplicationsAreInReferenceOrder()
{
    constexpr int count = 5000;
    const QString letters = u"abcdeABCDE äÄéÉöß-_.'0123"_s;
    const QStringList roots{u"/Applications"_s, u"/System/Applications"_s,
                            u"/Users/me/Applications"_s, u"/Applications/Utilities"_s};
    for (const QString &root : roots)
        makeDirectory(root);
    QRandomGenerator random(7);
    QStringList expected;
    for (int i = 0; i < count; ++i) {
        QString name = u"n"_s;
        for (int length = 1 + random.bounded(12); length > 0; --length)
            name += letters.at(random.bounded(static_cast<int>(letters.size())));
        const QString path = u"%1/%2 %3.app"_s.arg(roots.at(i % 4), name).arg(i);
        makeFile(path); // quicker than directories, and no less an application here
        expected.append(path);
    }
    QCollator collator{QLocale(QLocale::German)};
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    const auto nameOf = [](const QString &path) { return path.sliced(path.lastIndexOf(u'/') + 1); };
    std::ranges::sort(expected, [&](const QString &a, const QString &b) {
        const int order = collator.compare(nameOf(a), nameOf(b));
        return order == 0 ? a < b : order < 0;
    });

    QLocale::setDefault(QLocale(QLocale::German));
    QCOMPARE(scannedPaths(), expected);
}

void InstalledApplicationsTest::worksOffTheMainThread()
{
    makeDirectory(u"/Applications/A.app"_s);
    const auto scan = [this] { return scanInstalledApplications(m_files->files, *m_directories); };
    auto first = std::async(std::launch::async, scan);
    auto second = std::async(std::launch::async, scan);
    QCOMPARE(first.get().size(), 1);
    QCOMPARE(second.get().size(), 1);
}

QTEST_GUILESS_MAIN(InstalledApplicationsTest)
#include "tst_installedapplications.moc"
