#include "i18n/translations.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>

/// Which texts the program shows in which language.
class TranslationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".?"))); }
    void englishHasPlurals_data();
    void englishHasPlurals();
    void numbersAreWrittenByTheLocale();
    void theProgramSpeaksTheUsersLanguage_data();
    void theProgramSpeaksTheUsersLanguage();
    void aCatalogueEndsWithItsOwner();
    void texts_data();
    void texts();

private:
    static QString itemCount(int count)
    {
        return QCoreApplication::translate("FolderItemsSection", "%Ln item(s)", nullptr, count);
    }
    static QString cancel() { return QCoreApplication::translate("ResetAlert", "Cancel"); }
};

void TranslationsTest::englishHasPlurals_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0 << QStringLiteral("0 items");
    QTest::newRow("one") << 1 << QStringLiteral("1 item");
    QTest::newRow("two") << 2 << QStringLiteral("2 items");
    QTest::newRow("a hundred and one") << 101 << QStringLiteral("101 items");
}

void TranslationsTest::englishHasPlurals()
{
    QFETCH(int, count);
    const Translations english(QStringLiteral("en_GB"));
    QTEST(itemCount(count), "text");
    QCOMPARE(QCoreApplication::translate("AppPickerSheet", "%Ln app(s)", nullptr, count),
             count == 1 ? QStringLiteral("1 app") : QStringLiteral("%1 apps").arg(count));
}

void TranslationsTest::numbersAreWrittenByTheLocale()
{
    const QLocale former;
    QLocale::setDefault(QLocale(QStringLiteral("en_US")));
    const auto restore = qScopeGuard([&] { QLocale::setDefault(former); });
    const Translations english(QStringLiteral("en_US"));
    QCOMPARE(itemCount(12345), QStringLiteral("12,345 items"));
}

void TranslationsTest::theProgramSpeaksTheUsersLanguage_data()
{
    QTest::addColumn<QString>("languages");
    QTest::addColumn<QByteArray>("says");
    const QByteArray english("Makes Dock folders for Nestlet.");
    const QByteArray pseudo("[Måķéŝ Ðöçķ föļðéŕŝ föŕ Ñéŝţļéţ. ~~~~~~~~~~~~]");
    QTest::newRow("English") << QStringLiteral("en_GB") << english;
    QTest::newRow("one that there is a catalogue for") << QStringLiteral("en_XA") << pseudo;
    QTest::newRow("one without a catalogue") << QStringLiteral("eo") << english;
    QTest::newRow("the second choice") << QStringLiteral("eo:en_XA") << pseudo;
}

void TranslationsTest::theProgramSpeaksTheUsersLanguage()
{
    QFETCH(QString, languages);
    QFETCH(QByteArray, says);
    QProcess program;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LANGUAGE"), languages);
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(COMPANION_BINARY_DIR "/bin/nestlet-companion"),
                  {QStringLiteral("--help")});
    QVERIFY(program.waitForFinished());
    const QByteArray said = program.readAll();
    QVERIFY2(said.split('\n').contains(says), said.constData());
}

void TranslationsTest::aCatalogueEndsWithItsOwner()
{
    {
        const Translations pseudo(QStringLiteral("en_XA"));
        QCOMPARE(cancel(), QStringLiteral("[Çåñçéļ ~]"));
    }
    QCOMPARE(cancel(), QStringLiteral("Cancel"));
}

void TranslationsTest::texts_data()
{
    QTest::addColumn<QByteArray>("context");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("QML") << QByteArray("CompanionFolderDetail") << QByteArray("Folder Actions");
    QTest::newRow("C++") << QByteArray("FolderListModel") << QByteArray("Ready in Dock");
    QTest::newRow("tables") << QByteArray("AppearanceOptions") << QByteArray("Game Controller");
    QTest::newRow("with places") << QByteArray("CompanionViewModel")
                                 << QByteArray("%1 is in the Dock.");
}

// The pseudo-locale is made from what the sources hold: a text that is not there is no key.
void TranslationsTest::texts()
{
    QFETCH(QByteArray, context);
    QFETCH(QByteArray, text);
    const Translations pseudo(QStringLiteral("en_XA"));
    const QString translated = QCoreApplication::translate(context.constData(), text.constData());
    QVERIFY2(translated.startsWith(u'[') && translated.endsWith(u']'), qUtf8Printable(translated));
    QVERIFY(translated.size() >= text.size() * 3 / 2);
    QCOMPARE(translated.contains(QLatin1StringView("%1")), text.contains("%1"));
}

QTEST_GUILESS_MAIN(TranslationsTest)
#include "tst_translations.moc"
