#include "model/libraryjson.h"
#include "tests/librarygenerator.h"

#include <QRegularExpression>
#include <QStringConverter>
#include <QTest>

class LibraryJSONTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void aFolderWithoutOptionsHasThreeKeys();
    void writesFieldsInTheirOrder();
    void writesTextWithAsFewEscapesAsPossible_data();
    void writesTextWithAsFewEscapesAsPossible();
    void generatedLibrariesSurviveBothWays();

    void readsOptionalFields_data();
    void readsOptionalFields();
    void readsColumns_data();
    void readsColumns();
    void readsText_data();
    void readsText();
    void readsPictures_data();
    void readsPictures();
    void readsItems_data();
    void readsItems();
    void readsDocuments_data();
    void readsDocuments();
    void readsOtherEncodings_data();
    void readsOtherEncodings();
    void refusesOtherEncodingsThatAreBroken_data();
    void refusesOtherEncodingsThatAreBroken();
    void refusesEveryTruncation();
    void refusesDeepNesting();
};

namespace {

constexpr auto id = "EE000000-EEEE-EEEE-EEEE-EEEEEEEEEEEE";
constexpr auto validItem = R"({"id":"00000000-0000-0000-0000-000000000001","name":"a",)"
                           R"("url":"file:///a","kind":"file"})";

QByteArray libraryWith(const QByteArray &folders)
{
    return R"({"folders":[)" + folders + R"(],"selectedFolderID":")" + id + R"("})";
}

// A library with one folder; `members` follow its three required keys.
QByteArray folderWith(const QByteArray &members)
{
    return libraryWith(QByteArray(R"({"id":")") + id + R"(","name":"n","items":[])" + members
                       + '}');
}

QByteArray namedFolder(const QByteArray &jsonString)
{
    return libraryWith(QByteArray(R"({"id":")") + id + R"(","name":)" + jsonString
                       + R"(,"items":[]})");
}

QByteArray itemWith(const QByteArray &item)
{
    return libraryWith(QByteArray(R"({"id":")") + id + R"(","name":"n","items":[)" + item + "]}");
}

// The only folder of a library that must be valid.
std::optional<DockFolder> decodedFolder(const QByteArray &json)
{
    const std::optional<DockFolderLibrary> library = decodeLibrary(json);
    if (!library || library->folders.size() != 1)
        return std::nullopt;
    return library->folders.constFirst();
}

// A copy without spare bytes behind it, so that a sanitizer sees every step beyond the end.
std::optional<DockFolderLibrary> decodeTight(QByteArrayView json)
{
    const std::unique_ptr<char[]> copy(new char[size_t(json.size())]); // NOLINT(*-avoid-c-arrays)
    std::copy(json.begin(), json.end(), copy.get());
    auto library = decodeLibrary(QByteArray::fromRawData(copy.get(), json.size()));
    if (library) {
        for (DockFolder &folder : library->folders) {
            if (folder.customIconData)
                folder.customIconData->detach(); // the copy goes
        }
    }
    return library;
}

void validityRow(const char *name, const QByteArray &json, bool isValid)
{
    QTest::newRow(name) << json << isValid;
}

} // namespace

void LibraryJSONTest::aFolderWithoutOptionsHasThreeKeys()
{
    const DockFolder folder{.id = appStoreFolderID(), .name = QStringLiteral("n")};
    QCOMPARE(encodeLibrary({.folders = {folder}, .selectedFolderID = folder.id}), folderWith(""));
}

void LibraryJSONTest::writesFieldsInTheirOrder()
{
    const DockFolderItem item{.id = QUuid(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11),
                              .name = QStringLiteral("Ä/\""),
                              .url = FileURL::directory(QStringLiteral("/x y")),
                              .bookmarkData = QByteArray("\xff\xff"),
                              .kind = DockFolderItem::Kind::folder};
    const DockFolder folder{.id = appStoreFolderID(),
                            .name = QStringLiteral("n"),
                            .items = {item, item},
                            .accentColorHex = QStringLiteral("#4F83D3"),
                            .iconSymbol = QString(),
                            .customIconData = QByteArray(),
                            .gridColumns = -4};
    const QByteArray itemJSON = R"({"id":"00000001-0002-0003-0405-060708090A0B","name":"Ä/\"",)"
                                R"("url":"file:///x%20y/","bookmarkData":"//8=","kind":"folder"})";
    QCOMPARE(encodeLibrary({.folders = {folder, folder}, .selectedFolderID = {}}),
             R"({"folders":[)"
                 + QByteArrayList(2,
                                  QByteArray(R"({"id":")") + id + R"(","name":"n","items":[)"
                                      + itemJSON + ',' + itemJSON
                                      + R"(],"accentColorHex":"#4F83D3","iconSymbol":"",)"
                                        R"("customIconData":"","gridColumns":-4})")
                       .join(',')
                 + R"(],"selectedFolderID":"00000000-0000-0000-0000-000000000000"})");
}

void LibraryJSONTest::writesTextWithAsFewEscapesAsPossible_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char *name, const QString &text, const QByteArray &expected) {
        QTest::newRow(name) << text << QByteArray('"' + expected + '"');
    };
    row("slashes stay", QStringLiteral("a/b"), "a/b");
    row("quotes and backslashes", QStringLiteral("\"\\"), R"(\"\\)");
    row("common controls", QStringLiteral("\b\f\n\r\t"), R"(\b\f\n\r\t)");
    row("other controls", QString(QChar(u'\0')) + QChar(0x1f), R"(\u0000\u001f)");
    row("delete is no control here", QString(QChar(0x7f)), "\x7f");
    row("two bytes", QStringLiteral("é"), "é");
    row("three bytes", QStringLiteral("漢"), "漢");
    row("four bytes", QStringLiteral("👩"), "👩");
    row("a lone high surrogate", QString(QChar(0xd83d)) + u'x', "\xef\xbf\xbdx");
    row("a lone low surrogate", u'x' + QString(QChar(0xdc69)), "x\xef\xbf\xbd");
    row("a high surrogate at the end", QString(QChar(0xd83d)), "\xef\xbf\xbd");
    row("two high surrogates", QString(2, QChar(0xd83d)), "\xef\xbf\xbd\xef\xbf\xbd");
    for (int i = 0; i < 9; ++i) {
        const QString before = QStringLiteral("12345678").left(i);
        QTest::addRow("a quote after %d characters", i)
            << before + QStringLiteral("\"abcdefgh")
            << QByteArray('"' + before.toLatin1() + R"(\"abcdefgh")");
    }
}

void LibraryJSONTest::writesTextWithAsFewEscapesAsPossible()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, expected);
    const DockFolder folder{.id = appStoreFolderID(), .name = text};
    QCOMPARE(encodeLibrary({.folders = {folder}, .selectedFolderID = folder.id}),
             namedFolder(expected));
}

void LibraryJSONTest::generatedLibrariesSurviveBothWays()
{
    for (quint32 seed = 0; seed < 500; ++seed) {
        const DockFolderLibrary library = LibraryGenerator(seed).oddLibrary();
        const QByteArray json = encodeLibrary(library);
        const std::optional<DockFolderLibrary> decoded = decodeTight(json);
        QVERIFY2(decoded == library, qPrintable(QStringLiteral("seed %1").arg(seed)));
        QCOMPARE(encodeLibrary(*decoded), json);
    }
}

void LibraryJSONTest::readsOptionalFields_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<bool>("isValid");
    validityRow("null columns", R"(,"gridColumns":null)", true);
    validityRow(
        "all null",
        R"(,"accentColorHex":null,"iconSymbol":null,"customIconData":null,"gridColumns":null)",
        true);
    validityRow("unknown keys", R"(,"a":1,"b":[{"c":null},true,false,-0.5e+3],"":"x")", true);
    validityRow("an unknown key with a broken value", R"(,"a":tru)", false);
    validityRow("an unknown key with a broken string", R"(,"a":"\x")", false);
    validityRow("an unknown key with a broken number", R"(,"a":01)", false);
    validityRow("an unknown key without a value", R"(,"a")", false);
    validityRow("a key in another case is unknown", R"(,"GridColumns":"x")", true);
    validityRow("of two, the first null counts", R"(,"gridColumns":null,"gridColumns":3)", true);
    validityRow("a second of the wrong type is not looked at", R"(,"name":7)", true);
    validityRow("a second that is no JSON", R"(,"name":7x)", false);
    validityRow("a colour that is a number", R"(,"accentColorHex":1)", false);
    validityRow("a symbol that is a list", R"(,"iconSymbol":[])", false);
    validityRow("a picture that is an object", R"(,"customIconData":{})", false);
    validityRow("a misspelt null", R"(,"gridColumns":nul)", false);
    validityRow("a trailing comma", R"(,"a":1,)", false);
    validityRow("a key that is no string", R"(,a:1)", false);
}

void LibraryJSONTest::readsOptionalFields()
{
    QFETCH(QByteArray, members);
    QFETCH(bool, isValid);
    const DockFolder plain{.id = appStoreFolderID(), .name = QStringLiteral("n")};
    QCOMPARE(decodedFolder(folderWith(members)), isValid ? std::optional(plain) : std::nullopt);
}

void LibraryJSONTest::readsColumns_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<bool>("isValid");
    QTest::addColumn<qint64>("expected");
    const auto valid = [](const char *number, qint64 value) {
        QTest::newRow(number) << QByteArray(number) << true << value;
    };
    const auto invalid = [](const char *number) {
        QTest::newRow(number) << QByteArray(number) << false << qint64(0);
    };
    valid("3", 3);
    valid("-3", -3);
    valid("0", 0);
    valid("-0", 0);
    valid("3.0", 3);
    valid("1e2", 100);
    valid("1E+2", 100);
    valid("30e-1", 3);
    valid("1.25e2", 125);
    valid("0.0", 0);
    valid("0e999999999999999999999", 0);
    valid("9223372036854775807", std::numeric_limits<qint64>::max());
    valid("-9223372036854775808", std::numeric_limits<qint64>::min());
    valid("9223372036854775807.000", std::numeric_limits<qint64>::max());
    valid("92233720368547758070e-1", std::numeric_limits<qint64>::max());
    invalid("9223372036854775808");
    invalid("-9223372036854775809");
    invalid("3.5");
    invalid("35e-1");
    invalid("1e19");
    invalid("1e999999999999999999999");
    invalid("1e-999999999999999999999");
    invalid("true");
    invalid("false");
    invalid("\"3\"");
    invalid("[3]");
    invalid("03");
    invalid("-");
    invalid("+3");
    invalid("3.");
    invalid(".3");
    invalid("3e");
    invalid("3e+");
    invalid("0x3");
    invalid("NaN");
    invalid("Infinity");
    invalid("");
}

void LibraryJSONTest::readsColumns()
{
    QFETCH(QByteArray, number);
    QFETCH(bool, isValid);
    QFETCH(qint64, expected);
    const auto folder = decodedFolder(folderWith(R"(,"gridColumns":)" + number));
    QCOMPARE(folder.has_value(), isValid);
    if (isValid)
        QCOMPARE(folder->gridColumns, std::optional(expected));
}

void LibraryJSONTest::readsText_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("isValid");
    QTest::addColumn<QString>("expected");
    const auto valid = [](const char *name, const QByteArray &json, const QString &text) {
        QTest::newRow(name) << QByteArray('"' + json + '"') << true << text;
    };
    const auto invalid = [](const char *name, const QByteArray &json) {
        QTest::newRow(name) << QByteArray('"' + json + '"') << false << QString();
    };
    valid("empty", "", QString());
    valid("every escape", R"(\"\\\/\b\f\n\r\t\u0041)", QStringLiteral("\"\\/\b\f\n\r\tA"));
    valid("hexadecimal of either case", R"(\u00e9\u00E9)", QStringLiteral("éé"));
    valid("a zero", R"(a\u0000b)", QStringLiteral("a") + QChar(u'\0') + u'b');
    valid("a surrogate pair", R"(\ud83d\udc69)", QStringLiteral("👩"));
    valid("a byte order mark within", "\xef\xbb\xbfx", QStringLiteral("\ufeffx"));
    valid("every length of UTF-8", "aé漢👩", QStringLiteral("aé漢👩"));
    valid("the last character of all", "\xf4\x8f\xbf\xbf", QString::fromUcs4(U"\U0010ffff"));
    valid("delete", "\x7f", QString(QChar(0x7f)));
    valid("decomposed stays decomposed", "e\xcc\x81", QStringLiteral("e\u0301"));
    for (int i = 0; i < 35; ++i) {
        const QByteArray before = QByteArray("0123456789").repeated(4).left(i);
        QTest::addRow("an escape after %d characters", i)
            << QByteArray('"' + before + R"(\/0123456789abcdefghijk")") << true
            << QString::fromLatin1(before + "/0123456789abcdefghijk");
    }
    invalid("a raw line break", "a\nb");
    invalid("a raw tab", "a\tb");
    invalid("a raw zero", QByteArray("a\0b", 3));
    invalid("the last control character", "\x1f");
    invalid("an unknown escape", R"(\a)");
    invalid("an escaped apostrophe", R"(\')");
    invalid("too few digits", R"(\u12)");
    invalid("no digits", R"(\u12G4)");
    invalid("a sign for a digit", R"(\u+123)");
    invalid("a lone high surrogate", R"(\ud83d)");
    invalid("a high surrogate before text", R"(\ud83dx)");
    invalid("a high surrogate before another escape", R"(\ud83d\n)");
    invalid("two high surrogates", R"(\ud83d\ud83d)");
    invalid("a lone low surrogate", R"(\udc69)");
    invalid("a surrogate in UTF-8", "\xed\xa0\xbd");
    invalid("a needlessly long slash", "\xc0\xaf");
    invalid("a needlessly long form of three bytes", "\xe0\x80\xaf");
    invalid("a needlessly long form of four bytes", "\xf0\x80\x80\xaf");
    invalid("beyond the last character", "\xf4\x90\x80\x80");
    invalid("a continuation alone", "\x80");
    invalid("a form cut short", "\xe6\xbc");
    invalid("a form cut short by text", "\xe6\xbcxy");
    invalid("bytes of no form", "\xff\xfe");
}

void LibraryJSONTest::readsText()
{
    QFETCH(QByteArray, json);
    QFETCH(bool, isValid);
    QFETCH(QString, expected);
    const auto folder = decodedFolder(namedFolder(json));
    QCOMPARE(folder.has_value(), isValid);
    if (isValid)
        QCOMPARE(folder->name, expected);
    QCOMPARE(decodeLibrary(folderWith(R"(,"unknown":)" + json)).has_value(), isValid);
    QCOMPARE(decodeLibrary(folderWith("," + json + ":1")).has_value(), isValid);
}

void LibraryJSONTest::readsPictures_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("isValid");
    QTest::addColumn<QByteArray>("expected");
    const QByteArray slashes(60, '\xff');
    const auto row
        = [](const char *name, const QByteArray &json, bool isValid, const QByteArray &bytes) {
              QTest::newRow(name) << QByteArray('"' + json + '"') << isValid << bytes;
          };
    row("empty", "", true, "");
    row("plain", "Zm9v", true, "foo");
    row("bits left over", "Zm9=", true, "fo");
    row("escaped slashes", slashes.toBase64().replace("/", R"(\/)"), true, slashes);
    row("a slash escaped at the end", R"(ab\/\/)", true, QByteArray::fromBase64("ab//"));
    row("other escapes", R"(\u005Am9\u0076)", true, "foo");
    row("escaped fill", R"(Zg\u003d\u003D)", true, "f");
    row("an escaped quote", R"(Zm9v\")", false, "");
    row("an escaped line break", R"(Zm9v\n)", false, "");
    row("a blank", "Zm9v ", false, "");
    row("a raw line break", "Zm9v\nZm9v", false, "");
    row("a length that is no multiple", "Zm9", false, "");
    row("fill within", "Zg==Zm9v", false, "");
    row("the characters for URLs", "Zm-_", false, "");
    row("beyond ASCII", "Zm9é", false, "");
}

void LibraryJSONTest::readsPictures()
{
    QFETCH(QByteArray, json);
    QFETCH(bool, isValid);
    QFETCH(QByteArray, expected);
    const auto folder = decodedFolder(folderWith(R"(,"customIconData":)" + json));
    QCOMPARE(folder.has_value(), isValid);
    if (isValid)
        QCOMPARE(folder->customIconData->bytes(), expected);
}

void LibraryJSONTest::readsItems_data()
{
    QTest::addColumn<QByteArray>("item");
    QTest::addColumn<bool>("isValid");
    const auto changed = [](const char *name, const char *from, const char *to, bool isValid) {
        validityRow(name, QByteArray(validItem).replace(from, to), isValid);
    };
    validityRow("as usual", validItem, true);
    validityRow("null", "null", false);
    validityRow("a list", "[]", false);
    validityRow("nothing in it", "{}", false);
    validityRow("keys in another order",
                R"({"kind":"file","url":"file:///a","name":"a",)"
                R"("id":"00000000-0000-0000-0000-000000000001"})",
                true);
    changed("another kind", R"("file"})", R"("alias"})", false);
    changed("a kind in another case", R"("file"})", R"("File"})", false);
    changed("a kind with an escape", R"("file"})", R"("f\u0069le"})", true);
    changed("a key with an escape", R"("kind")", R"("\u006bind")", true);
    changed("no kind", R"(,"kind":"file")", "", false);
    changed("no id", R"("id")", R"("ID")", false);
    changed("no name", R"("name")", R"("title")", false);
    changed("a null name", R"("name":"a")", R"("name":null)", false);
    changed("no URL", R"("url")", R"("URL")", false);
    changed("an empty URL", "file:///a", "", false);
    changed("a URL with a blank", "file:///a", "file:///a b", false);
    changed("a URL with a bad escape", "file:///a", "file:///a%2", false);
    changed("a URL beyond ASCII", "file:///a", "file:///ä", false);
    changed("a null bookmark", R"("kind")", R"("bookmarkData":null,"kind")", true);
    changed("a broken bookmark", R"("kind")", R"("bookmarkData":"A","kind")", false);
    changed("an id in lower case", "0001\"", "000a\"", false); // another item, yet valid: see below
    changed("an id with braces", "\"00000000-", "\"{0000000-", false);
    changed("an id without hyphens", "0000-0000-", "00000000", false);
    changed("an escaped slash in the URL", "file:///a", R"(file:\/\/\/a)", true);
}

void LibraryJSONTest::readsItems()
{
    QFETCH(QByteArray, item);
    QFETCH(bool, isValid);
    const DockFolderItem expected{.id = QUuid(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1),
                                  .name = QStringLiteral("a"),
                                  .url = FileURL::file(QStringLiteral("/a")),
                                  .kind = DockFolderItem::Kind::file};
    const auto folder = decodedFolder(itemWith(item));
    const bool isExpected = folder && folder->items == QList<DockFolderItem>{expected};
    QCOMPARE(isExpected, isValid);
    if (!isValid && folder)
        QCOMPARE(folder->items.constFirst().id, QUuid(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 10));
}

void LibraryJSONTest::readsDocuments_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("isValid");
    const QByteArray valid = folderWith("");
    validityRow("as usual", valid, true);
    validityRow("no folders", libraryWith(""), true);
    validityRow("blanks everywhere",
                QByteArray(valid).replace(",", " \t\r\n, ").replace("[", " [ ").replace(":", " : "),
                true);
    validityRow("blanks around", " \n" + valid + "\r\n\t ", true);
    validityRow("a byte order mark", "\xef\xbb\xbf" + valid, true);
    validityRow("two byte order marks", "\xef\xbb\xbf\xef\xbb\xbf" + valid, false);
    validityRow("a blank that JSON does not know", "\v" + valid, false);
    validityRow("a blank beyond ASCII", "\xc2\xa0" + valid, false);
    validityRow("nothing", "", false);
    validityRow("only blanks", "  ", false);
    validityRow("a list", "[]", false);
    validityRow("null", "null", false);
    validityRow("an empty object", "{}", false);
    validityRow("garbage behind", valid + "x", false);
    validityRow("a zero behind", valid + '\0', false);
    validityRow("two documents", valid + valid, false);
    validityRow("a comment", "/**/" + valid, false);
    validityRow("no selection", R"({"folders":[]})", false);
    validityRow("a null selection", R"({"folders":[],"selectedFolderID":null})", false);
    validityRow("no folders key", QByteArray(R"({"selectedFolderID":")") + id + "\"}", false);
    validityRow("the selection first",
                QByteArray(R"({"selectedFolderID":")") + id + R"(","folders":[]})", true);
    validityRow("folders that are an object", QByteArray(valid).replace("[{", "{"), false);
    validityRow("folders that are null",
                QByteArray(R"({"folders":null,"selectedFolderID":")") + id + "\"}", false);
    validityRow("a trailing comma in a list", libraryWith("{},"), false);
    validityRow("a folder that is null", libraryWith("null"), false);
    validityRow("one bad folder among good ones", libraryWith(R"({"id":"x","name":"","items":[]})"),
                false);
    validityRow("apostrophes for quotes", QByteArray(valid).replace('"', '\''), false);
    validityRow("second folders are not looked at",
                QByteArray(valid).chopped(1) + R"(,"folders":17})", true);
    validityRow("second folders that are no JSON",
                QByteArray(valid).chopped(1) + R"(,"folders":[}})", false);
}

void LibraryJSONTest::readsDocuments()
{
    QFETCH(QByteArray, json);
    QFETCH(bool, isValid);
    QCOMPARE(decodeTight(json).has_value(), isValid);
}

void LibraryJSONTest::readsOtherEncodings_data()
{
    using Encoding = QStringConverter::Encoding;
    QTest::addColumn<Encoding>("encoding");
    QTest::addColumn<bool>("hasMark");
    for (const bool hasMark : {false, true}) {
        for (const auto encoding : {Encoding::Utf8, Encoding::Utf16LE, Encoding::Utf16BE,
                                    Encoding::Utf32LE, Encoding::Utf32BE}) {
            QTest::addRow("%s %s a mark", QStringConverter::nameForEncoding(encoding),
                          hasMark ? "with" : "without")
                << encoding << hasMark;
        }
    }
}

void LibraryJSONTest::readsOtherEncodings()
{
    QFETCH(QStringConverter::Encoding, encoding);
    QFETCH(bool, hasMark);
    const DockFolder folder{.id = appStoreFolderID(), .name = QStringLiteral("aé漢👩")};
    const DockFolderLibrary library{.folders = {folder}, .selectedFolderID = folder.id};
    QStringEncoder encoder(
        encoding, hasMark ? QStringConverter::Flag::WriteBom : QStringConverter::Flag::Default);
    const QByteArray json = encoder(QString::fromUtf8(encodeLibrary(library)));
    QCOMPARE(decodeTight(json), std::optional(library));
    for (qsizetype length = 0; length < json.size(); ++length)
        QVERIFY(!decodeTight(QByteArrayView(json).first(length)));
}

void LibraryJSONTest::refusesOtherEncodingsThatAreBroken_data()
{
    QTest::addColumn<QString>("replacement"); // UTF-16 units in place of the folder's name
    QTest::newRow("a lone high surrogate") << QString(QChar(0xd83d));
    QTest::newRow("a lone low surrogate") << QString(QChar(0xdc69));
    QTest::newRow("a pair in the wrong order") << QString(QChar(0xdc69)) + QChar(0xd83d);
}

void LibraryJSONTest::refusesOtherEncodingsThatAreBroken()
{
    QFETCH(QString, replacement);
    const QString text = QString::fromUtf8(namedFolder("\"@\"")).replace(u'@', replacement);
    QByteArray utf16;
    QByteArray utf32;
    for (const QChar c : text) {
        utf16 += QByteArray(1, char(c.unicode())) + char(c.unicode() >> 8);
        utf32 += QByteArray(1, char(c.unicode())) + char(c.unicode() >> 8) + '\0' + '\0';
    }
    QVERIFY(!decodeTight(utf16));
    QVERIFY(!decodeTight(utf32));
}

void LibraryJSONTest::refusesEveryTruncation()
{
    QByteArray json = encodeLibrary(LibraryGenerator(7).oddLibrary());
    json.replace("/", R"(\/)")
        .replace(R"("name")", R"("n\u0061me")")
        .replace(R"("items")", R"("x":-1.5e+3,"items")");
    QVERIFY(decodeTight(json));
    for (qsizetype length = 0; length < json.size(); ++length)
        QVERIFY2(!decodeTight(QByteArrayView(json).first(length)),
                 qPrintable(QString::number(length)));
}

void LibraryJSONTest::refusesDeepNesting()
{
    const auto nested = [](int depth) { // below the library, the list and the folder
        return folderWith(R"(,"deep":)" + QByteArray(depth - 3, '[') + QByteArray(depth - 3, ']'));
    };
    QVERIFY(decodeLibrary(nested(512)));
    QVERIFY(!decodeLibrary(nested(513)));
    QVERIFY(!decodeLibrary(folderWith(R"(,"deep":)" + QByteArray(10'000'000, '['))));
    QVERIFY(!decodeLibrary(QByteArray("{\"a\":").repeated(1'000'000)));
}

QTEST_APPLESS_MAIN(LibraryJSONTest)
#include "tst_libraryjson.moc"
