#include "model/libraryjson.h"
#include "tests/librarygenerator.h"
#include "tests/model/qtlibraryjson.h"

#include <QRegularExpression>
#include <QTest>

#include <array>

/// Our reader and writer beside Qt's, on generated documents and on ones with a few bytes changed.
class LibraryJSONOracleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void readsWhatQtWrites();
    void writesWhatQtReads();
    void readsNoMoreThanQtDoes();
};

namespace {

constexpr int libraries = 300;

// A few bytes inserted, removed, doubled or changed, mostly to such as mean something in JSON.
QByteArray mutated(QByteArray json, LibraryGenerator &random)
{
    static const QByteArray telling(
        "\"\\/{}[]:,0123456789.eE+-ntfu=AZaz \n\t\x7f\x1f\x80\xc3\xe6\xff");
    for (int left = 1 + random.number(3); left > 0; --left) {
        const int place = random.number(int(json.size()));
        const char byte = telling.at(random.number(int(telling.size())));
        switch (random.number(4)) {
        case 0:
            json[place] = byte;
            break;
        case 1:
            json.insert(place, byte);
            break;
        case 2:
            json.remove(place, 1 + random.number(4));
            break;
        default:
            json.insert(place, json.mid(place, 1 + random.number(8)));
        }
    }
    return json;
}

} // namespace

void LibraryJSONOracleTest::readsWhatQtWrites()
{
    for (quint32 seed = 0; seed < libraries; ++seed) {
        const DockFolderLibrary library = LibraryGenerator(seed).oddLibrary();
        QCOMPARE(decodeLibrary(encodeLibraryByQt(library)), std::optional(library));
    }
}

void LibraryJSONOracleTest::writesWhatQtReads()
{
    for (quint32 seed = 0; seed < libraries; ++seed) {
        const DockFolderLibrary library = LibraryGenerator(seed).oddLibrary();
        QCOMPARE(decodeLibraryByQt(encodeLibrary(library)), std::optional(library));
    }
}

// Qt's reader is the more lenient one: it takes control characters in strings and lone surrogates.
// What ours takes, Qt's must take too, and as the same library.
void LibraryJSONOracleTest::readsNoMoreThanQtDoes()
{
    std::array<int, 2> counts{}; // refused, taken
    for (quint32 seed = 0; seed < libraries; ++seed) {
        LibraryGenerator random(seed);
        const QByteArray json = encodeLibrary(random.oddLibrary());
        for (int i = 0; i < 50; ++i) {
            const QByteArray changed = mutated(json, random);
            const std::optional<DockFolderLibrary> ours = decodeLibrary(changed);
            ++counts.at(ours ? 1 : 0);
            if (ours)
                QCOMPARE(decodeLibraryByQt(changed), ours);
        }
    }
    QVERIFY(counts.at(0) > 1000);
    QVERIFY(counts.at(1) > 1000);
}

QTEST_APPLESS_MAIN(LibraryJSONOracleTest)
#include "tst_libraryjsonoracle.moc"
