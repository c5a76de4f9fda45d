#include "builder/companionerror.h"

#include <QCoreApplication>
#include <QTest>
#include <QTranslator>

#include <cstring>

namespace {

using Kind = CompanionError::Kind;

/// Answers one text in another language.
class OneTextTranslator final : public QTranslator {
public:
    [[nodiscard]] QString translate(const char *context, const char *sourceText,
                                    const char *disambiguation, int n) const override
    {
        Q_UNUSED(disambiguation)
        Q_UNUSED(n)
        const bool isKnown = std::strcmp(context, "CompanionError") == 0
            && std::strcmp(sourceText, "Ad-hoc signing failed: %@") == 0;
        return isKnown ? QStringLiteral("%@: Signieren schlug fehl.") : QString();
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};

} // namespace

class CompanionErrorTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void describesEachKind_data();
    void describesEachKind();
    void isDescribedInTheUsersLanguage();
    void isCaughtAsAnyError();
};

void CompanionErrorTest::describesEachKind_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("missing Nestlet")
        << Kind::missingNestletApp << QStringLiteral("/a, /b")
        << QStringLiteral("Nestlet was not found at /a, /b. Install Nestlet first.");
    QTest::newRow("invalid Info.plist")
        << Kind::invalidInfoPlist << QStringLiteral("/a/Contents/Info.plist")
        << QStringLiteral("Could not read Info.plist at /a/Contents/Info.plist.");
    QTest::newRow("invalid Nestlet")
        << Kind::invalidNestletApp << QStringLiteral("Why.")
        << QStringLiteral("Nestlet Companion requires a signed Nestlet app. Why.");
    QTest::newRow("signing failed") << Kind::signingFailed << QStringLiteral("no identity")
                                    << QStringLiteral("Ad-hoc signing failed: no identity");
    QTest::newRow("signing failed without a word")
        << Kind::signingFailed << QString() << QStringLiteral("Ad-hoc signing failed: ");
    QTest::newRow("the text is not looked into")
        << Kind::signingFailed << QStringLiteral("%@ %1 100% %lld\n%@")
        << QStringLiteral("Ad-hoc signing failed: %@ %1 100% %lld\n%@");
}

void CompanionErrorTest::describesEachKind()
{
    QFETCH(Kind, kind);
    QFETCH(QString, text);
    QFETCH(QString, expected);

    const CompanionError error(kind, text);
    QCOMPARE(error.description(), expected);
    QCOMPARE(error.kind(), kind);
    QCOMPARE(error.text(), text);
}

void CompanionErrorTest::isDescribedInTheUsersLanguage()
{
    OneTextTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCOMPARE(CompanionError(Kind::signingFailed, QStringLiteral("%@")).description(),
             QStringLiteral("%@: Signieren schlug fehl."));
}

void CompanionErrorTest::isCaughtAsAnyError()
{
    QString caught;
    try {
        throw CompanionError(Kind::invalidInfoPlist, QStringLiteral("/x"));
    } catch (const Error &error) {
        caught = error.description();
    }
    QCOMPARE(caught, QStringLiteral("Could not read Info.plist at /x."));
}

QTEST_GUILESS_MAIN(CompanionErrorTest)
#include "tst_companionerror.moc"
