#include "sandbox/codesign/arguments.h"
#include "sandbox/codesign/requirement.h"

#include <QTest>

using Operation = CodesignArguments::Operation;

class CodesignArgumentsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void readsWhatTheProductAsks();
    void readsShortForms();
    void refusesWhatItDoesNotKnow_data();
    void refusesWhatItDoesNotKnow();
    void testsRequirements_data();
    void testsRequirements();

private:
    static std::optional<CodesignArguments> parse(const QString &line)
    {
        return parseCodesignArguments(line.split(u' ', Qt::SkipEmptyParts));
    }
};

void CodesignArgumentsTest::readsWhatTheProductAsks()
{
    const QString app = QStringLiteral("/A/x.app");
    QCOMPARE(parse(QStringLiteral("--verify --deep --strict /A/x.app")).value(),
             (CodesignArguments{
                 .operation = Operation::verify, .deep = true, .strict = true, .paths = {app}}));
    QCOMPARE(parse(QStringLiteral("-dvvv /A/x.app")).value(),
             (CodesignArguments{.operation = Operation::display, .verbosity = 3, .paths = {app}}));
    QCOMPARE(
        parse(QStringLiteral("--force --deep --sign - --entitlements /t/e.plist /A/x.app")).value(),
        (CodesignArguments{.operation = Operation::sign,
                           .identity = QStringLiteral("-"),
                           .entitlements = QStringLiteral("/t/e.plist"),
                           .deep = true,
                           .force = true,
                           .paths = {app}}));
}

void CodesignArgumentsTest::readsShortForms()
{
    QCOMPARE(parse(QStringLiteral("-fs - a b")), parse(QStringLiteral("--force --sign=- a b")));
    QCOMPARE(parse(QStringLiteral("-s- a")), parse(QStringLiteral("--sign - a")));
    QCOMPARE(parse(QStringLiteral("-v a")), parse(QStringLiteral("--verify a")));
    QCOMPARE(parse(QStringLiteral("-vv a")), parse(QStringLiteral("--verify --verbose=1 a")));
    QCOMPARE(parse(QStringLiteral("-d -v -v a")), parse(QStringLiteral("--display -vv a")));
    QCOMPARE(parse(QStringLiteral("-v -- -odd")).value().paths,
             QStringList(QStringLiteral("-odd")));
}

void CodesignArgumentsTest::refusesWhatItDoesNotKnow_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("nothing") << QString();
    QTest::newRow("no operation") << QStringLiteral("/A/x.app");
    QTest::newRow("no path") << QStringLiteral("--verify --deep");
    QTest::newRow("an unknown long option") << QStringLiteral("--verify --hard a");
    QTest::newRow("an unknown letter") << QStringLiteral("-dq a");
    QTest::newRow("two operations") << QStringLiteral("-d --verify a");
    QTest::newRow("an option without its value") << QStringLiteral("a --sign");
    QTest::newRow("an empty identity") << QStringLiteral("--sign= a");
    QTest::newRow("a value where none belongs") << QStringLiteral("--verify --deep=yes a");
    QTest::newRow("a verbosity that is no number") << QStringLiteral("-d --verbose=much a");
}

void CodesignArgumentsTest::refusesWhatItDoesNotKnow()
{
    QFETCH(QString, line);
    QVERIFY(!parse(line));
}

void CodesignArgumentsTest::testsRequirements_data()
{
    QTest::addColumn<QString>("requirement");
    QTest::addColumn<int>("expected"); // -1: not understood
    QTest::newRow("the identifier") << QStringLiteral("=identifier \"qx.Nestlet\"") << 1;
    QTest::newRow("another identifier") << QStringLiteral("=identifier qx.Other") << 0;
    QTest::newRow("identifier and team")
        << QStringLiteral("identifier qx.Nestlet and certificate leaf[subject.OU] = \"TEAM\"") << 1;
    QTest::newRow("another team") << QStringLiteral(
        "identifier qx.Nestlet and certificate leaf[subject.OU] = X")
                                  << 0;
    QTest::newRow("something else") << QStringLiteral("=anchor trusted") << -1;
}

void CodesignArgumentsTest::testsRequirements()
{
    QFETCH(QString, requirement);
    QFETCH(int, expected);
    const SignatureRecord record{.identifier = QStringLiteral("qx.Nestlet"),
                                 .signer = signingIdentity(QStringLiteral("Someone (TEAM)"))};
    const auto result = satisfiesRequirement(record, requirement);
    QCOMPARE(result ? static_cast<int>(*result) : -1, expected);
}

QTEST_GUILESS_MAIN(CodesignArgumentsTest)
#include "tst_codesignarguments.moc"
