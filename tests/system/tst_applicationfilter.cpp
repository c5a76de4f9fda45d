#include "system/installedapplications.h"

#include <QLocale>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

class ApplicationFilterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void emptySearchKeepsAll();
    void findsNames_data();
    void findsNames();
    void keepsTheOrderOfTheList();
    void nameThatMatchesTwiceIsListedOnce();
    void neverMatchesAcrossTwoNames();
    void listOfNoneMatchesNothing();
    void dottedAndDotlessIAreTwoLettersInTurkish();
    void agreesWithComparingNameByName();
};

namespace {

ApplicationFilter filterOf(const QStringList &names)
{
    QList<FileURL> urls;
    for (const QString &name : names)
        urls.append(FileURL::directory(u"/Applications/"_s + name + u".app"_s));
    return ApplicationFilter(urls);
}

using Positions = QList<qsizetype>;

} // namespace

void ApplicationFilterTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
}

void ApplicationFilterTest::cleanup()
{
    QLocale::setDefault(QLocale::system());
}

void ApplicationFilterTest::emptySearchKeepsAll()
{
    QCOMPARE(filterOf({u"B"_s, u"A"_s, u"C"_s}).matches(QString()), (Positions{0, 1, 2}));
}

void ApplicationFilterTest::findsNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("search");
    QTest::addColumn<bool>("isFound");
    const auto finds = [](const char *row, const QString &name, const QString &search) {
        QTest::newRow(row) << name << search << true;
    };
    const auto misses = [](const char *row, const QString &name, const QString &search) {
        QTest::newRow(row) << name << search << false;
    };
    finds("capitals in the search", u"Drawing"_s, u"DRAW"_s);
    finds("capitals in the name", u"DRAWING"_s, u"draw"_s);
    finds("the end of a name", u"Drawing"_s, u"wing"_s);
    finds("a whole name", u"Drawing"_s, u"drawing"_s);
    misses("a longer text than the name", u"Draw"_s, u"drawing"_s);
    misses("the extension", u"Chess"_s, u"app"_s);
    misses("the extension with its dot", u"Chess"_s, u".app"_s);
    finds("the extension's letters in the name", u"Happy Birds"_s, u"app"_s);
    finds("a dot in the name", u"Tool 2.1"_s, u"2.1"_s);
    finds("a space in a name", u"Photo Booth"_s, u" "_s);
    misses("a space where there is none", u"Chess"_s, u" "_s);
    misses("two spaces where there is one", u"Photo Booth"_s, u"  "_s);
    misses("a space before the text", u"Chess"_s, u" chess"_s);
    finds("an accent", u"Übersicht"_s, u"übe"_s);
    misses("a letter without its accent", u"Übersicht"_s, u"ube"_s);
    misses("an accent on a plain letter", u"Ubersicht"_s, u"übe"_s);
    finds("a decomposed name by composed typing", u"U\u0308bersicht"_s, u"Übe"_s);
    finds("a composed name by decomposed typing", u"Übersicht"_s, u"u\u0308be"_s);
    finds("Greek, whatever the sigma", u"ΟΔΥΣΣΕΥΣ"_s, u"οδυσσευς"_s);
    finds("Cyrillic", u"Шахматы"_s, u"ШАХ"_s);
    finds("sharp s by two", u"Straße"_s, u"STRASSE"_s);
    finds("emoji", u"Party 🎉 Time"_s, u"🎉"_s);
    finds("wildcards as themselves", u"100% *Real?*"_s, u"% *r"_s);
    misses("wildcards as wildcards", u"Chess"_s, u"c*s"_s);
    finds("i in English", u"INFO"_s, u"info"_s);
}

void ApplicationFilterTest::findsNames()
{
    QFETCH(QString, name);
    QFETCH(QString, search);
    QFETCH(bool, isFound);
    QCOMPARE(filterOf({name}).matches(search), isFound ? Positions{0} : Positions{});
}

void ApplicationFilterTest::keepsTheOrderOfTheList()
{
    const auto filter = filterOf({u"zebra"_s, u"none"_s, u"Abra"_s, u"BRA"_s, u"bar"_s});
    QCOMPARE(filter.matches(u"bra"_s), (Positions{0, 2, 3}));
}

void ApplicationFilterTest::nameThatMatchesTwiceIsListedOnce()
{
    QCOMPARE(filterOf({u"banana"_s, u"Anna"_s}).matches(u"an"_s), (Positions{0, 1}));
}

void ApplicationFilterTest::neverMatchesAcrossTwoNames()
{
    const auto filter = filterOf({u"ab"_s, u"cd"_s});
    QCOMPARE(filter.matches(u"bc"_s), Positions{});
    QCOMPARE(filter.matches(u"b\0c"_s), Positions{});
    QCOMPARE(filter.matches(u"\0"_s), Positions{});
}

void ApplicationFilterTest::listOfNoneMatchesNothing()
{
    QCOMPARE(filterOf({}).matches(u"a"_s), Positions{});
    QCOMPARE(filterOf({}).matches(QString()), Positions{});
    QCOMPARE(ApplicationFilter().matches(u"a"_s), Positions{});
}

void ApplicationFilterTest::dottedAndDotlessIAreTwoLettersInTurkish()
{
    QLocale::setDefault(QLocale(QLocale::Turkish));
    const auto filter = filterOf({u"İstanbul"_s, u"ISPARTA"_s});
    QCOMPARE(filter.matches(u"is"_s), Positions{0});
    QCOMPARE(filter.matches(u"ıs"_s), Positions{1});
}

void ApplicationFilterTest::agreesWithComparingNameByName()
{
    QRandomGenerator random(1);
    const auto word = [&random](int length) {
        QString text;
        for (int i = 0; i < length; ++i)
            text += QChar(u"abAB "_s.at(random.bounded(5)));
        return text;
    };
    QStringList names;
    for (int i = 0; i < 500; ++i)
        names.append(word(1 + random.bounded(8)));
    const auto filter = filterOf(names);
    for (int i = 0; i < 200; ++i) {
        const QString search = word(1 + random.bounded(3));
        Positions expected;
        for (qsizetype n = 0; n < names.size(); ++n) {
            if (names.at(n).contains(search, Qt::CaseInsensitive))
                expected.append(n);
        }
        QCOMPARE(filter.matches(search), expected);
    }
}

QTEST_GUILESS_MAIN(ApplicationFilterTest)
#include "tst_applicationfilter.moc"
