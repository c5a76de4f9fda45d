#include "model/newitem.h"
#include "tests/fakes/fakebookmarks.h"
#include "tests/fakes/fakefilesystem.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

class NewItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void anApplicationIsKnownByItsNameAlone_data();
    void anApplicationIsKnownByItsNameAlone();
    void aDirectoryIsAFolder();
    void aLinkToADirectoryIsAFile();
    void aLinkThatLeadsNowhereIsAFile();
    void aMissingPathIsAFile();
    void keepsTheURLAsItIs();
    void takesTheBookmarkIfThereIsOne();
    void everyItemHasAFreshID();

private:
    [[nodiscard]] DockFolderItem itemAt(const QString &path) const
    {
        return itemFromURL(FileURL::file(path), m_files, m_bookmarks);
    }

    FakeFileSystem m_files;
    FakeBookmarks m_bookmarks;
};

using Kind = DockFolderItem::Kind;

void NewItemTest::anApplicationIsKnownByItsNameAlone_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");
    QTest::newRow("as usual") << "/Applications/Safari.app"
                              << "Safari";
    QTest::newRow("in upper case and missing") << "/nowhere/Foo.APP"
                                               << "Foo";
    QTest::newRow("with a dot in the name") << "/nowhere/Foo 2.0.app"
                                            << "Foo 2.0";
}

void NewItemTest::anApplicationIsKnownByItsNameAlone()
{
    QFETCH(QString, path);
    QFETCH(QString, name);
    m_files.calls.clear();
    const DockFolderItem item = itemAt(path);
    QCOMPARE(item.kind, Kind::application);
    QCOMPARE(item.name, name);
    QVERIFY(m_files.calls.isEmpty());
}

void NewItemTest::aDirectoryIsAFolder()
{
    const QTemporaryDir root;
    QVERIFY(QDir(root.path()).mkdir(QStringLiteral("Work.d")));
    const DockFolderItem item = itemAt(root.path() + QStringLiteral("/Work.d"));
    QCOMPARE(item.kind, Kind::folder);
    QCOMPARE(item.name, QStringLiteral("Work"));
}

void NewItemTest::aLinkToADirectoryIsAFile()
{
    const QTemporaryDir root;
    const QString link = root.path() + QStringLiteral("/link");
    QVERIFY(QFile::link(root.path(), link));
    QCOMPARE(itemAt(link).kind, Kind::file);
    // A slash behind the link asks for what it leads to in some calls; the question is the link's.
    QCOMPARE(itemFromURL(FileURL::directory(link), m_files, m_bookmarks).kind, Kind::file);
}

void NewItemTest::aLinkThatLeadsNowhereIsAFile()
{
    const QTemporaryDir root;
    const QString link = root.path() + QStringLiteral("/link");
    QVERIFY(QFile::link(root.path() + QStringLiteral("/missing"), link));
    QCOMPARE(itemAt(link).kind, Kind::file);
}

void NewItemTest::aMissingPathIsAFile()
{
    const DockFolderItem item = itemAt(QStringLiteral("/nowhere/Notes.txt"));
    QCOMPARE(item.kind, Kind::file);
    QCOMPARE(item.name, QStringLiteral("Notes"));
}

void NewItemTest::keepsTheURLAsItIs()
{
    const auto url
        = FileURL::fromText(QStringLiteral("file:///Users/me/Caf%65%CC%81%20x/")).value();
    const DockFolderItem item = itemFromURL(url, m_files, m_bookmarks);
    QCOMPARE(item.url.text(), url.text());
    QCOMPARE(item.name, QStringLiteral("Cafe\u0301 x"));
}

void NewItemTest::takesTheBookmarkIfThereIsOne()
{
    QCOMPARE(itemAt(QStringLiteral("/a")).bookmarkData, std::nullopt);
    FakeBookmarks bookmarks;
    bookmarks.bookmarks.insert(FileURL::file(QStringLiteral("/a")), QByteArray("secure"));
    QCOMPARE(itemFromURL(FileURL::file(QStringLiteral("/a")), m_files, bookmarks).bookmarkData,
             std::optional(QByteArray("secure")));
}

void NewItemTest::everyItemHasAFreshID()
{
    const QUuid first = itemAt(QStringLiteral("/a")).id;
    QVERIFY(!first.isNull());
    QVERIFY(first != itemAt(QStringLiteral("/a")).id);
}

QTEST_APPLESS_MAIN(NewItemTest)
#include "tst_newitem.moc"
