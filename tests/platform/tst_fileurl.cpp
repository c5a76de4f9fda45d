#include "platform/fileurl.h"

#include <QTest>

class FileURLTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void acceptsWhatIsAURL_data();
    void acceptsWhatIsAURL();
    void answersAboutAText_data();
    void answersAboutAText();
    void keepsItsText_data();
    void keepsItsText();
    void escapesPaths_data();
    void escapesPaths();
    void splitsNames_data();
    void splitsNames();
    void standardizesPaths_data();
    void standardizesPaths();
    void appendsComponents_data();
    void appendsComponents();
    void deletesTheLastComponent_data();
    void deletesTheLastComponent();
    void keepsBytesThatAreNoText();
    void equalWhenTheTextsAre();
};

void FileURLTest::acceptsWhatIsAURL_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isURL");
    const auto row = [](const char *name, const QString &text, bool isURL) {
        QTest::newRow(name) << text << isURL;
    };
    row("empty", QString(), false);
    row("file", QStringLiteral("file:///a/b.app/"), true);
    row("web page", QStringLiteral("https://example.com:80/a?b=c&d#e"), true);
    row("plain path", QStringLiteral("/Applications/Foo.app"), true);
    row("escapes", QStringLiteral("file:///a%20b%C3%a4"), true);
    row("escape cut short", QStringLiteral("file:///a%2"), false);
    row("percent at the end", QStringLiteral("file:///a%"), false);
    row("escape of other letters", QStringLiteral("file:///a%2G"), false);
    row("only the last escape is bad", QStringLiteral("file:///%20%20%zz"), false);
    row("space", QStringLiteral("file:///a b"), false);
    row("line feed", QStringLiteral("file:///a\n"), false);
    row("accent", QStringLiteral("file:///\u00e4"), false);
    row("quote", QStringLiteral("file:///\"a\""), false);
    row("angle brackets", QStringLiteral("<a>"), false);
    row("backslash", QStringLiteral("a\\b"), false);
    row("caret, bar, brace, backtick", QStringLiteral("a^|{}`"), false);
    row("one fragment", QStringLiteral("file:///a#b"), true);
    row("two fragments", QStringLiteral("file:///a#b#c"), false);
    row("NUL", QString(QChar(u'\0')), false);
    row("delete", QStringLiteral("a\x7f"), false);
}

void FileURLTest::acceptsWhatIsAURL()
{
    QFETCH(QString, text);
    QFETCH(bool, isURL);
    QCOMPARE(isURLText(text.toUtf8()), isURL);
    QCOMPARE(FileURL::fromText(text).has_value(), isURL);
}

void FileURLTest::answersAboutAText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isFile");
    QTest::addColumn<bool>("isDirectory");
    QTest::addColumn<QString>("path");
    const auto row = [](const char *name, const char *text, bool isFile, bool isDirectory,
                        const QString &path) {
        QTest::newRow(name) << QString::fromLatin1(text) << isFile << isDirectory << path;
    };
    row("file", "file:///a/b.txt", true, false, QStringLiteral("/a/b.txt"));
    row("directory", "file:///a/b.app/", true, true, QStringLiteral("/a/b.app"));
    row("several trailing slashes", "file:///a//", true, true, QStringLiteral("/a"));
    row("root", "file:///", true, true, QStringLiteral("/"));
    row("without authority", "file:/a/b", true, false, QStringLiteral("/a/b"));
    row("localhost", "file://localhost/a", true, false, QStringLiteral("/a"));
    row("authority alone", "file://localhost", true, false, QString());
    row("scheme in capitals", "FILE:///a", true, false, QStringLiteral("/a"));
    row("escaped space", "file:///a%20b", true, false, QStringLiteral("/a b"));
    row("escapes in either case", "file:///%c3%A4", true, false, QStringLiteral("/\u00e4"));
    row("decomposed accent", "file:///e%CC%81", true, false, QStringLiteral("/e\u0301"));
    row("emoji", "file:///%F0%9F%98%80", true, false, QStringLiteral("/\U0001F600"));
    row("escaped percent", "file:///100%25", true, false, QStringLiteral("/100%"));
    row("escaped percent that looks like an escape", "file:///%2520", true, false,
        QStringLiteral("/%20"));
    row("escaped question mark", "file:///a%3Fb", true, false, QStringLiteral("/a?b"));
    row("query", "file:///a/?b=/c/", true, true, QStringLiteral("/a"));
    row("fragment", "file:///a#b/", true, false, QStringLiteral("/a"));
    row("plus is no space", "file:///a+b", true, false, QStringLiteral("/a+b"));
    row("colon in a name", "file:///a:b", true, false, QStringLiteral("/a:b"));
    row("web page", "https://example.com/a/b", false, false, QStringLiteral("/a/b"));
    row("plain path with a colon", "/a:b/c", false, false, QStringLiteral("/a:b/c"));
    row("another scheme that begins the same", "filer:///a", false, false, QStringLiteral("/a"));
}

void FileURLTest::answersAboutAText()
{
    QFETCH(QString, text);
    QFETCH(QString, path);
    const FileURL url = FileURL::fromText(text).value();
    QTEST(url.isFileURL(), "isFile");
    QTEST(url.hasDirectoryPath(), "isDirectory");
    QCOMPARE(url.path(), path);
    QCOMPARE(url.nativePath(), path.toUtf8());
}

void FileURLTest::keepsItsText_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text :
         {"file:///a%2fb/", "file:///e%CC%81", "file:///%C3%a9", "FILE:///x", "file://localhost/x",
          "file:///a/./b/../c//", "file:///a%7Eb", "file:///a?b#c"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void FileURLTest::keepsItsText()
{
    QFETCH(QString, text);
    QCOMPARE(FileURL::fromText(text).value().text(), text);
    QCOMPARE(FileURL::fromValidText(text).text(), text);
}

void FileURLTest::escapesPaths_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("directory");
    const auto row = [](const char *name, const QString &path, const char *file,
                        const char *directory) {
        QTest::newRow(name) << path << QString::fromLatin1(file) << QString::fromLatin1(directory);
    };
    row("plain", QStringLiteral("/a/b"), "file:///a/b", "file:///a/b/");
    row("trailing slash", QStringLiteral("/a/b/"), "file:///a/b", "file:///a/b/");
    row("root", QStringLiteral("/"), "file:///", "file:///");
    row("space", QStringLiteral("/a b"), "file:///a%20b", "file:///a%20b/");
    row("composed accent", QStringLiteral("/\u00e9"), "file:///%C3%A9", "file:///%C3%A9/");
    row("decomposed accent", QStringLiteral("/e\u0301"), "file:///e%CC%81", "file:///e%CC%81/");
    row("percent", QStringLiteral("/100%"), "file:///100%25", "file:///100%25/");
    row("what would end a path", QStringLiteral("/a?b#c;d"), "file:///a%3Fb%23c%3Bd",
        "file:///a%3Fb%23c%3Bd/");
    row("what a path may hold", QStringLiteral("/-._~!$&'()*+,:=@"), "file:///-._~!$&'()*+,:=@",
        "file:///-._~!$&'()*+,:=@/");
    row("brackets", QStringLiteral("/[a]"), "file:///%5Ba%5D", "file:///%5Ba%5D/");
    row("line feed", QStringLiteral("/a\nb"), "file:///a%0Ab", "file:///a%0Ab/");
}

void FileURLTest::escapesPaths()
{
    QFETCH(QString, path);
    QTEST(FileURL::file(path).text(), "file");
    QTEST(FileURL::directory(path).text(), "directory");
    QVERIFY(isURLText(FileURL::file(path).text().toUtf8()));
    const QString bare = path.size() > 1 && path.endsWith(u'/') ? path.chopped(1) : path;
    QCOMPARE(FileURL::file(path).path(), bare);
    QCOMPARE(FileURL::directory(path).path(), bare);
}

void FileURLTest::splitsNames_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("extension");
    QTest::addColumn<QString>("name");
    const auto row
        = [](const char *title, const QString &path, const QString &last, const QString &extension,
             const QString &name) { QTest::newRow(title) << path << last << extension << name; };
    row("application", QStringLiteral("/A/Safari.app"), QStringLiteral("Safari.app"),
        QStringLiteral("app"), QStringLiteral("Safari"));
    row("extension in capitals", QStringLiteral("/Foo.APP"), QStringLiteral("Foo.APP"),
        QStringLiteral("APP"), QStringLiteral("Foo"));
    row("no extension", QStringLiteral("/A/Notes"), QStringLiteral("Notes"), QString(),
        QStringLiteral("Notes"));
    row("two dots", QStringLiteral("/a.tar.gz"), QStringLiteral("a.tar.gz"), QStringLiteral("gz"),
        QStringLiteral("a.tar"));
    row("hidden", QStringLiteral("/.app"), QStringLiteral(".app"), QString(),
        QStringLiteral(".app"));
    row("hidden with an extension", QStringLiteral("/.a.txt"), QStringLiteral(".a.txt"),
        QStringLiteral("txt"), QStringLiteral(".a"));
    row("dot at the end", QStringLiteral("/a."), QStringLiteral("a."), QString(),
        QStringLiteral("a."));
    row("a space ends the search", QStringLiteral("/Mr. Smith"), QStringLiteral("Mr. Smith"),
        QString(), QStringLiteral("Mr. Smith"));
    row("a space before the extension", QStringLiteral("/My App.app"), QStringLiteral("My App.app"),
        QStringLiteral("app"), QStringLiteral("My App"));
    row("dot in a folder above", QStringLiteral("/a.b/c"), QStringLiteral("c"), QString(),
        QStringLiteral("c"));
    row("root", QStringLiteral("/"), QStringLiteral("/"), QString(), QStringLiteral("/"));
    row("emoji", QStringLiteral("/\U0001F600.app"), QStringLiteral("\U0001F600.app"),
        QStringLiteral("app"), QStringLiteral("\U0001F600"));
    row("direction mark in the extension", QStringLiteral("/a.\u202eppa"),
        QStringLiteral("a.\u202eppa"), QString(), QStringLiteral("a.\u202eppa"));
}

void FileURLTest::splitsNames()
{
    QFETCH(QString, path);
    for (const FileURL &url : {FileURL::file(path), FileURL::directory(path)}) {
        QTEST(url.lastPathComponent(), "last");
        QTEST(url.pathExtension(), "extension");
        QTEST(url.displayName(), "name");
    }
}

void FileURLTest::standardizesPaths_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *text, const char *expected) {
        QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(expected);
    };
    row("file:///Applications/Foo.app/", "/Applications/Foo.app");
    row("file:///a/./b//c/../d", "/a/b/d");
    row("file:///../../a", "/a");
    row("file:///a/..", "/");
    row("file:///", "/");
    row("file:///a/...", "/a/...");
    row("file:///a%20b/%2E%2E/c", "/c");
}

void FileURLTest::standardizesPaths()
{
    QFETCH(QString, text);
    QTEST(FileURL::fromText(text).value().standardizedPath(), "expected");
}

void FileURLTest::appendsComponents_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("component");
    QTest::addColumn<QString>("expected");
    const auto row
        = [](const char *name, const char *base, const QString &component, const char *expected) {
              QTest::newRow(name) << QString::fromLatin1(base) << component
                                  << QString::fromLatin1(expected);
          };
    row("to a directory", "file:///a/", QStringLiteral("b"), "file:///a/b");
    row("to a file", "file:///a", QStringLiteral("b"), "file:///a/b");
    row("to the root", "file:///", QStringLiteral("b"), "file:///b");
    row("escaped as needed", "file:///a%2Fb/", QStringLiteral("c d%"), "file:///a%2Fb/c%20d%25");
    row("before a query", "file:///a?q=/x", QStringLiteral("b"), "file:///a/b?q=/x");
    row("dots stay", "file:///a/", QStringLiteral(".."), "file:///a/..");
}

void FileURLTest::appendsComponents()
{
    QFETCH(QString, base);
    QFETCH(QString, component);
    QFETCH(QString, expected);
    const FileURL url = FileURL::fromText(base).value();
    QCOMPARE(url.appendingFile(component).text(), expected);
    QVERIFY(url.appendingDirectory(component).hasDirectoryPath());
    QCOMPARE(url.appendingDirectory(component).path(), url.appendingFile(component).path());
}

void FileURLTest::deletesTheLastComponent_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *text, const char *expected) {
        QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(expected);
    };
    row("file:///a/b", "file:///a/");
    row("file:///a/b/", "file:///a/");
    row("file:///a", "file:///");
    row("file:///", "file:///");
    row("file://localhost/a", "file://localhost/");
    row("file:///a%2Fb/c%20d/", "file:///a%2Fb/");
}

void FileURLTest::deletesTheLastComponent()
{
    QFETCH(QString, text);
    QTEST(FileURL::fromText(text).value().deletingLastPathComponent().text(), "expected");
}

void FileURLTest::keepsBytesThatAreNoText()
{
    const FileURL url = FileURL::directory(QStringLiteral("/a")).appendingNative("b\xff c", false);
    QCOMPARE(url.text(), QStringLiteral("file:///a/b%FF%20c"));
    QCOMPARE(url.nativePath(), QByteArray("/a/b\xff c"));
    QCOMPARE(url.path(), QStringLiteral("/a/b\ufffd c"));
}

void FileURLTest::equalWhenTheTextsAre()
{
    const FileURL url = FileURL::file(QStringLiteral("/a"));
    QCOMPARE(url, FileURL::fromText(QStringLiteral("file:///a")).value());
    QCOMPARE(qHash(url), qHash(FileURL::fromText(QStringLiteral("file:///a")).value()));
    QVERIFY(url != FileURL::directory(QStringLiteral("/a")));
    QVERIFY(FileURL().text().isEmpty());
    QVERIFY(!FileURL().isFileURL());
    QVERIFY(FileURL().path().isEmpty());
}

QTEST_GUILESS_MAIN(FileURLTest)
#include "tst_fileurl.moc"
