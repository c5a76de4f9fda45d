#include "builder/codesign.h"
#include "builder/companionerror.h"
#include "tests/fakes/fakedirectories.h"
#include "tests/fakes/fakefilesystem.h"
#include "tests/fakes/fakeprocessrunner.h"

#include <QRegularExpression>
#include <QTest>

namespace {

using Kind = CompanionError::Kind;
using Operation = FakeFileSystem::Operation;

constexpr int entitlementsArgument = 5;

ProcessResult failure(const QByteArray &standardError)
{
    return {.exitStatus = 1, .standardError = standardError};
}

// "kind: text" of the CompanionError that an action ends with.
template <typename Action> QString failureOf(Action &&action)
{
    try {
        action();
    } catch (const CompanionError &error) {
        return QString::number(static_cast<int>(error.kind())) + QStringLiteral(": ")
            + error.text();
    }
    return QStringLiteral("passed");
}

QString failed(Kind kind, const QString &text)
{
    return QString::number(static_cast<int>(kind)) + QStringLiteral(": ") + text;
}

} // namespace

class CodeSignTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void verifiesDeeplyAndStrictly();
    void describesOnStandardError();
    void carriesTheToolsDiagnostics_data();
    void carriesTheToolsDiagnostics();
    void passesWhateverAToolSaysThatSucceeds();
    void signsAdHocWithTheseArguments();
    void signsWithNoEntitlements();
    void signsWithAFreshFileEachTime();
    void leavesNoEntitlementsBehind_data();
    void leavesNoEntitlementsBehind();
    void runsNoToolWhenTheEntitlementsCannotBeWritten();
    void keepsQuietWhenTheEntitlementsCannotBeRemoved();
    void passesOnWhyTheToolCannotBeRun();

private:
    QStringList temporaryFiles() const
    {
        QStringList names;
        for (const FileURL &url : m_files->files.contents(m_directories->temporary()))
            names.append(url.lastPathComponent());
        return names;
    }

    std::unique_ptr<FakeDirectories> m_directories;
    std::unique_ptr<FakeFileSystem> m_files;
    std::unique_ptr<FakeProcessRunner> m_processes;
    std::unique_ptr<CodeSign> m_codeSign;
    FileURL m_bundle;
};

void CodeSignTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_directories = std::make_unique<FakeDirectories>();
    m_files = std::make_unique<FakeFileSystem>();
    m_processes = std::make_unique<FakeProcessRunner>();
    m_codeSign = std::make_unique<CodeSign>(*m_processes, *m_files, *m_directories);
    m_bundle = m_directories->at(QStringLiteral("/My Öther #1%.app"));
    m_files->files.createDirectories(m_directories->temporary());
}

void CodeSignTest::verifiesDeeplyAndStrictly()
{
    m_codeSign->codesignVerify(m_bundle);
    QCOMPARE(m_processes->calls,
             (QList<FakeProcessRunner::Call>{
                 {.tool = m_directories->system(QStringLiteral("/usr/bin/codesign")),
                  .arguments = {QStringLiteral("--verify"), QStringLiteral("--deep"),
                                QStringLiteral("--strict"),
                                m_directories->root.filePath(QStringLiteral("My Öther #1%.app"))},
                  .isWaitedFor = true}}));
}

void CodeSignTest::describesOnStandardError()
{
    m_processes->results.append({.standardError = "Identifier=é\n"});
    QCOMPARE(m_codeSign->codesignDescribe(m_bundle), QStringLiteral("Identifier=é\n"));
    QCOMPARE(m_processes->calls.first().arguments,
             (QStringList{QStringLiteral("-dvvv"), m_bundle.path()}));
}

void CodeSignTest::carriesTheToolsDiagnostics_data()
{
    QTest::addColumn<ProcessResult>("result");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("signingText");
    const auto row
        = [](const char *what, const ProcessResult &result, const QString &text,
             const QString &signingText) { QTest::newRow(what) << result << text << signingText; };
    const QString spoken = QStringLiteral("Work.app: not signed – at all\n");
    const QString none = QStringLiteral("codesign failed");
    row("text", failure(spoken.toUtf8()), spoken, spoken);
    row("nothing", failure({}), {}, {});
    row("another status", {.exitStatus = 255, .standardError = "usage"}, QStringLiteral("usage"),
        QStringLiteral("usage"));
    row("killed by a signal", {.exitStatus = 9, .standardError = {}}, {}, {});
    row("not UTF-8", failure("caf\xe9 is closed"), {}, none);
    row("UTF-8 that breaks off", failure("caf\xc3"), {}, none);
    row("an encoded surrogate", failure("\xed\xa0\x80"), {}, none);
    const QString long_ = QStringLiteral("many words ").repeated(100'000);
    row("a megabyte", failure(long_.toUtf8()), long_, long_);
}

void CodeSignTest::carriesTheToolsDiagnostics()
{
    QFETCH(ProcessResult, result);
    QFETCH(QString, text);
    QFETCH(QString, signingText);
    m_processes->results = {result, result, result};
    QCOMPARE(failureOf([&] { m_codeSign->codesignVerify(m_bundle); }),
             failed(Kind::invalidNestletApp, text));
    QCOMPARE(failureOf([&] { (void)m_codeSign->codesignDescribe(m_bundle); }),
             failed(Kind::invalidNestletApp, text));
    QCOMPARE(failureOf([&] { m_codeSign->adHocSign(m_bundle); }),
             failed(Kind::signingFailed, signingText));
}

void CodeSignTest::passesWhateverAToolSaysThatSucceeds()
{
    const ProcessResult chatty{.exitStatus = 0,
                               .standardError = "replacing existing signature\xff"};
    m_processes->results = {chatty, chatty, chatty};
    m_codeSign->codesignVerify(m_bundle);
    QCOMPARE(m_codeSign->codesignDescribe(m_bundle), QString());
    m_codeSign->adHocSign(m_bundle);
    QCOMPARE(m_processes->calls.size(), 3);
}

void CodeSignTest::signsAdHocWithTheseArguments()
{
    m_codeSign->adHocSign(m_bundle);
    const QStringList arguments = m_processes->calls.first().arguments;
    QCOMPARE(
        arguments.first(entitlementsArgument),
        (QStringList{QStringLiteral("--force"), QStringLiteral("--deep"), QStringLiteral("--sign"),
                     QStringLiteral("-"), QStringLiteral("--entitlements")}));
    QCOMPARE(arguments.sliced(entitlementsArgument + 1), QStringList{m_bundle.path()});
    static const QRegularExpression name(
        QStringLiteral("^.*/tmp/NLProxyEnt-[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}[.]plist$"));
    QVERIFY2(name.match(arguments.at(entitlementsArgument)).hasMatch(),
             qPrintable(arguments.at(entitlementsArgument)));
}

void CodeSignTest::signsWithNoEntitlements()
{
    QByteArray entitlements;
    m_processes->onRun = [&](const FakeProcessRunner::Call &call) {
        entitlements = m_files->files.read(FileURL::file(call.arguments.at(entitlementsArgument)));
        return ProcessResult();
    };
    m_codeSign->adHocSign(m_bundle);
    QCOMPARE(entitlements.size(), 178);
    QCOMPARE(entitlements.split('\n'),
             (QByteArrayList{R"(<?xml version="1.0" encoding="UTF-8"?>)",
                             R"(<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" )"
                             R"("http://www.apple.com/DTDs/PropertyList-1.0.dtd">)",
                             R"(<plist version="1.0"><dict/></plist>)"}));
}

void CodeSignTest::signsWithAFreshFileEachTime()
{
    m_codeSign->adHocSign(m_bundle);
    m_codeSign->adHocSign(m_bundle);
    QVERIFY(m_processes->calls.at(0).arguments.at(entitlementsArgument)
            != m_processes->calls.at(1).arguments.at(entitlementsArgument));
}

void CodeSignTest::leavesNoEntitlementsBehind_data()
{
    QTest::addColumn<ProcessResult>("result");
    QTest::addColumn<bool>("isLaunched");
    QTest::newRow("after success") << ProcessResult() << true;
    QTest::newRow("after a refusal") << failure("no") << true;
    QTest::newRow("after a failed launch") << ProcessResult() << false;
}

void CodeSignTest::leavesNoEntitlementsBehind()
{
    QFETCH(ProcessResult, result);
    QFETCH(bool, isLaunched);
    m_processes->results = {result, result};
    if (!isLaunched)
        m_processes->launchError = PlatformError(QStringLiteral("no such tool"));
    ignoringErrors([&] { m_codeSign->adHocSign(m_bundle); });
    ignoringErrors([&] { m_codeSign->adHocSign(m_bundle); });
    QCOMPARE(m_processes->calls.size(), 2);
    QCOMPARE(temporaryFiles(), QStringList());
}

void CodeSignTest::runsNoToolWhenTheEntitlementsCannotBeWritten()
{
    m_files->fail(Operation::Write, QStringLiteral(".plist"), ENOSPC);
    QVERIFY_THROWS_EXCEPTION(PlatformError, m_codeSign->adHocSign(m_bundle));
    QVERIFY(m_processes->calls.isEmpty());
}

void CodeSignTest::keepsQuietWhenTheEntitlementsCannotBeRemoved()
{
    m_files->fail(Operation::Remove, QStringLiteral(".plist"), EACCES);
    m_codeSign->adHocSign(m_bundle);
    m_processes->results = {failure("no")};
    QCOMPARE(failureOf([&] { m_codeSign->adHocSign(m_bundle); }),
             failed(Kind::signingFailed, QStringLiteral("no")));
}

void CodeSignTest::passesOnWhyTheToolCannotBeRun()
{
    m_processes->launchError = PlatformError(QStringLiteral("no such tool"));
    const auto reason = [](auto &&action) {
        try {
            action();
        } catch (const PlatformError &error) {
            return error.description();
        }
        return QString();
    };
    const QString expected = QStringLiteral("no such tool");
    QCOMPARE(reason([&] { m_codeSign->codesignVerify(m_bundle); }), expected);
    QCOMPARE(reason([&] { (void)m_codeSign->codesignDescribe(m_bundle); }), expected);
    QCOMPARE(reason([&] { m_codeSign->adHocSign(m_bundle); }), expected);
}

QTEST_GUILESS_MAIN(CodeSignTest)
#include "tst_codesign.moc"
