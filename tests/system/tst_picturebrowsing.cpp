#include "system/picturebrowsing.h"

#include "tests/fakes/fakedirectories.h"
#include "tests/fakes/fakefilesystem.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using Outcome = PictureListing::Outcome;

class PictureBrowsingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { QLocale::setDefault(QLocale::system()); }
    void picturesAreOfTheTypesThatTheSystemIsAskedFor();
    void knowsPicturesByTheirNames_data();
    void knowsPicturesByTheirNames();
    void listsDirectoriesAndPicturesByName();
    void linksAreLookedThrough();
    void hiddenEntriesAreNeverListed();
    void packagesAreNoDirectories();
    void orderFollowsTheUsersLanguage();
    void namesThatDifferInCaseAloneAreInTheSameOrderEachTime();
    void aHundredThousandFilesAreListed();
    void saysWhatIsAtAURL_data();
    void saysWhatIsAtAURL();
    void aDirectoryThatCannotBeReadIsNoEmptyOne();
    void aDirectoryThatVanishesIsNotThere();
    void aDirectorysURLSaysSo();
    void placesAreThoseThatAreThere();
    void beginsAtTheFirstThatCanBeRead_data();
    void beginsAtTheFirstThatCanBeRead();
    void findsTypedPaths_data();
    void findsTypedPaths();

private:
    using Operation = FakeFileSystem::Operation;

    [[nodiscard]] FileURL home() const { return m_directories->home(); }
    [[nodiscard]] QString path(const QString &inHome) const { return home().path() + inHome; }
    void makeDirectory(const QString &inHome) const { QVERIFY(QDir().mkpath(path(inHome))); }
    void makeFile(const QString &inHome) const
    {
        QVERIFY(QFile(path(inHome)).open(QIODevice::WriteOnly));
    }
    void makeLink(const QString &target, const QString &inHome) const
    {
        QVERIFY(QFile::link(target, path(inHome)));
    }
    [[nodiscard]] PictureListing browse(const FileURL &url) const
    {
        return browsePictures(*m_files, *m_directories, url);
    }
    /// What the home shows; directories end in a slash.
    [[nodiscard]] QString shown() const;

    std::unique_ptr<FakeDirectories> m_directories;
    std::unique_ptr<FakeFileSystem> m_files;
};

void PictureBrowsingTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    m_directories = std::make_unique<FakeDirectories>();
    m_files = std::make_unique<FakeFileSystem>();
    makeDirectory(QString());
}

QString PictureBrowsingTest::shown() const
{
    const PictureListing listing = browse(home());
    QStringList names;
    for (const PictureEntry &entry : listing.entries) {
        if (entry.id.hasDirectoryPath() != entry.isDirectory
            || entry.id.lastPathComponent() != entry.name)
            return u"%1 is not %2"_s.arg(entry.id.text(), entry.name);
        names.append(entry.isDirectory ? entry.name + u'/' : entry.name);
    }
    return names.join(u'|');
}

void PictureBrowsingTest::picturesAreOfTheTypesThatTheSystemIsAskedFor()
{
    QCOMPARE(pictureContentTypes().join(u' '),
             u"public.png public.jpeg public.tiff com.microsoft.bmp com.apple.icns public.heic"_s);
}

void PictureBrowsingTest::knowsPicturesByTheirNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isPicture");
    for (const char *name : {"a.png", "a.jpg", "a.JPEG", "a.jpe", "a.tif", "a.Tiff", "a.bmp",
                             "a.dib", "a.icns", "a.heic", "a.b.png", "..png"})
        QTest::newRow(name) << QString::fromLatin1(name) << true;
    for (const char *name :
         {"a.gif", "a.svg", "a.pdf", "a.heif", "png", ".png", "a.png.txt", "a", "a.", "", "a.png "})
        QTest::newRow(*name ? name : "no name") << QString::fromLatin1(name) << false;
}

void PictureBrowsingTest::knowsPicturesByTheirNames()
{
    QFETCH(QString, name);
    QTEST(isPictureName(name), "isPicture");
}

void PictureBrowsingTest::listsDirectoriesAndPicturesByName()
{
    for (const char *name :
         {"b.png", "A.JPG", "img 10.tiff", "img 9.heic", "notes.txt", "100%#.png"})
        makeFile(u'/' + QString::fromLatin1(name));
    makeDirectory(u"/Zebra"_s);
    makeDirectory(u"/folder.png"_s);
    QCOMPARE(shown(), u"100%#.png|A.JPG|b.png|folder.png/|img 9.heic|img 10.tiff|Zebra/"_s);
}

void PictureBrowsingTest::linksAreLookedThrough()
{
    makeDirectory(u"/real"_s);
    makeFile(u"/real/a.png"_s);
    makeLink(path(u"/real"_s), u"/directory"_s);
    makeLink(path(u"/real/a.png"_s), u"/file.txt"_s);
    makeLink(path(u"/real/a.png"_s), u"/picture.png"_s);
    makeLink(path(u"/real"_s), u"/holiday.png"_s);
    makeLink(u"nowhere"_s, u"/broken"_s);
    QCOMPARE(shown(), u"directory/|holiday.png/|picture.png|real/"_s);
}

void PictureBrowsingTest::hiddenEntriesAreNeverListed()
{
    makeFile(u"/.a.png"_s);
    makeDirectory(u"/.b"_s);
    QCOMPARE(shown(), QString());
    QCOMPARE(browse(home()).outcome, Outcome::Directory);
}

void PictureBrowsingTest::packagesAreNoDirectories()
{
    makeDirectory(u"/Tool.app"_s);
    makeDirectory(u"/Other.APP"_s);
    makeDirectory(u"/app"_s);
    makeLink(path(u"/Tool.app"_s), u"/Link.app"_s);
    QCOMPARE(shown(), u"app/"_s);
}

void PictureBrowsingTest::orderFollowsTheUsersLanguage()
{
    for (const char *name : {"zebra.png", "äpfel.png", "ärger 2.png", "ärger 11.png", "apfel.png"})
        makeFile(u'/' + QString::fromUtf8(name));
    QLocale::setDefault(QLocale(QLocale::German));
    QCOMPARE(shown(), u"apfel.png|äpfel.png|ärger 2.png|ärger 11.png|zebra.png"_s);
    QLocale::setDefault(QLocale(QLocale::Swedish));
    QCOMPARE(shown(), u"apfel.png|zebra.png|äpfel.png|ärger 2.png|ärger 11.png"_s);
    QLocale::setDefault(QLocale::c());
    QCOMPARE(shown(), u"apfel.png|äpfel.png|ärger 2.png|ärger 11.png|zebra.png"_s);
}

void PictureBrowsingTest::namesThatDifferInCaseAloneAreInTheSameOrderEachTime()
{
    const DirectoryEntry small{.name = u"a.png"_s};
    const DirectoryEntry capital{.name = u"A.png"_s};
    m_files->listings.insert(home().path(), {small, capital});
    QCOMPARE(shown(), u"A.png|a.png"_s);
    m_files->listings.insert(home().path(), {capital, small});
    QCOMPARE(shown(), u"A.png|a.png"_s);
}

void PictureBrowsingTest::aHundredThousandFilesAreListed()
{
    constexpr int count = 100'000;
    QList<DirectoryEntry> entries;
    for (int number = 0; number < count; ++number)
        entries.append({.name = u"%1.%2"_s.arg(number).arg(number % 2 == 0 ? u"png" : u"txt")});
    std::ranges::shuffle(entries, QRandomGenerator(1));
    m_files->listings.insert(home().path(), entries);
    const PictureListing listing = browse(home());
    QCOMPARE(listing.entries.size(), count / 2);
    for (int place = 0; place < count / 2; ++place)
        QCOMPARE(listing.entries.at(place).name, u"%1.png"_s.arg(2 * place));
}

void PictureBrowsingTest::saysWhatIsAtAURL_data()
{
    QTest::addColumn<QString>("inHome");
    QTest::addColumn<Outcome>("outcome");
    QTest::newRow("directory") << u"/directory"_s << Outcome::Directory;
    QTest::newRow("directory named like a picture") << u"/d.png"_s << Outcome::Directory;
    QTest::newRow("link to a directory") << u"/link"_s << Outcome::Directory;
    QTest::newRow("picture") << u"/a.png"_s << Outcome::Picture;
    QTest::newRow("other file") << u"/notes.txt"_s << Outcome::OtherFile;
    QTest::newRow("broken link") << u"/broken.png"_s << Outcome::Nothing;
    QTest::newRow("nothing") << u"/nothing"_s << Outcome::Nothing;
    QTest::newRow("below a file") << u"/notes.txt/a.png"_s << Outcome::Nothing;
}

void PictureBrowsingTest::saysWhatIsAtAURL()
{
    QFETCH(QString, inHome);
    makeDirectory(u"/directory"_s);
    makeDirectory(u"/d.png"_s);
    makeLink(path(u"/directory"_s), u"/link"_s);
    makeFile(u"/a.png"_s);
    makeFile(u"/notes.txt"_s);
    makeLink(u"nowhere"_s, u"/broken.png"_s);
    const PictureListing listing = browse(FileURL::file(path(inHome)));
    QTEST(listing.outcome, "outcome");
    QCOMPARE(listing.url.path(), path(inHome));
    QCOMPARE(listing.entries, {});
    QCOMPARE(listing.places.size(), 1);
}

void PictureBrowsingTest::aDirectoryThatCannotBeReadIsNoEmptyOne()
{
    m_files->fail(Operation::VisibleEntries, {}, EACCES);
    QCOMPARE(browse(home()).outcome, Outcome::Unreadable);
}

void PictureBrowsingTest::aDirectoryThatVanishesIsNotThere()
{
    makeDirectory(u"/gone"_s);
    m_files->onCall = [](const FakeFileSystem::Call &call) {
        if (call.operation == Operation::VisibleEntries)
            QDir().rmdir(call.path);
    };
    QCOMPARE(browse(home().appendingDirectory(u"gone"_s)).outcome, Outcome::Nothing);
}

void PictureBrowsingTest::aDirectorysURLSaysSo()
{
    makeDirectory(u"/a b"_s);
    const QString text = home().text() + u"a%20b"_s;
    QCOMPARE(browse(FileURL::fromValidText(text)).url.text(), text + u'/');
    QCOMPARE(browse(FileURL::fromValidText(text + u'/')).url.text(), text + u'/');
}

void PictureBrowsingTest::placesAreThoseThatAreThere()
{
    using Kind = PicturePlace::Kind;
    makeDirectory(u"/Downloads"_s);
    makeDirectory(u"/Pictures"_s);
    makeFile(u"/Desktop"_s);
    const QList<PicturePlace> expected{
        {.kind = Kind::Home, .url = home()},
        {.kind = Kind::Downloads, .url = home().appendingDirectory(u"Downloads"_s)},
        {.kind = Kind::Pictures, .url = home().appendingDirectory(u"Pictures"_s)}};
    QCOMPARE(browse(home()).places, expected);
    QCOMPARE(browseFirstPictures(*m_files, *m_directories, {}).places, expected);
}

void PictureBrowsingTest::beginsAtTheFirstThatCanBeRead_data()
{
    QTest::addColumn<QStringList>("unreadable"); // ends of paths
    QTest::addColumn<QString>("expected");
    QTest::newRow("the last one") << QStringList() << u"/Last"_s;
    QTest::newRow("the user's pictures") << QStringList{u"/Last"_s} << u"/Pictures"_s;
    QTest::newRow("the home") << QStringList{u"/Last"_s, u"/Pictures"_s} << QString();
}

void PictureBrowsingTest::beginsAtTheFirstThatCanBeRead()
{
    QFETCH(QStringList, unreadable);
    QFETCH(QString, expected);
    makeDirectory(u"/Last"_s);
    makeDirectory(u"/Pictures"_s);
    for (const QString &end : unreadable)
        m_files->fail(Operation::VisibleEntries, end, EACCES);
    const FileURL last = home().appendingDirectory(u"Last"_s);
    const PictureListing listing = browseFirstPictures(*m_files, *m_directories, last);
    QCOMPARE(listing.outcome, Outcome::Directory);
    QCOMPARE(listing.url.path(), path(expected));
    QVERIFY(QDir().rmdir(path(u"/Last"_s))); // as if it could not be read
    if (unreadable.isEmpty())
        QCOMPARE(browseFirstPictures(*m_files, *m_directories, last).url.path(),
                 path(u"/Pictures"_s));
    QVERIFY(QDir(home().path()).removeRecursively());
    QCOMPARE(browseFirstPictures(*m_files, *m_directories, last).url.path(), u"/"_s);
}

void PictureBrowsingTest::findsTypedPaths_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expected"); // of the URL
    QTest::newRow("absolute") << u"/a b/c.png"_s << u"file:///a%20b/c.png"_s;
    QTest::newRow("blanks around it") << u"  /a "_s << u"file:///a"_s;
    QTest::newRow("home") << u"~"_s << u"file:///Users/me"_s;
    QTest::newRow("from the home") << u"~/Pictures/"_s << u"file:///Users/me/Pictures"_s;
    QTest::newRow("another's home is none") << u"~you"_s << u"file:///shown/~you"_s;
    QTest::newRow("from the directory") << u"c.png"_s << u"file:///shown/c.png"_s;
    QTest::newRow("up") << u".."_s << u"file:///"_s;
    QTest::newRow("above the root") << u"/../../a"_s << u"file:///a"_s;
    QTest::newRow("blank") << u"  "_s << QString();
}

void PictureBrowsingTest::findsTypedPaths()
{
    QFETCH(QString, typed);
    QTEST(urlOfTypedPath(typed, FileURL::directory(u"/Users/me"_s), FileURL::directory(u"/shown"_s))
              .value_or(FileURL())
              .text(),
          "expected");
}

QTEST_GUILESS_MAIN(PictureBrowsingTest)
#include "tst_picturebrowsing.moc"
