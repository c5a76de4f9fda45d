#include "builder/codesign.h"
#include "builder/companionerror.h"
#include "builder/infoplist.h"
#include "builder/proxybuilder.h"
#include "bundles.h"
#include "tests/fakes/fakedirectories.h"
#include "tests/fakes/fakefilesystem.h"
#include "tests/fakes/fakeprocessrunner.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <filesystem>

namespace {

using Operation = FakeFileSystem::Operation;

const DockFolder folder{.id = QUuid(QStringLiteral("1A2B3C4D-5E6F-4A8B-9CAD-0123456789EF")),
                        .name = QStringLiteral("Work")};

// What differs between two trees, as the system's own tool sees it.
QString differences(const FileURL &a, const FileURL &b)
{
    QProcess diff;
    diff.start(QStringLiteral("diff"),
               {QStringLiteral("-r"), QStringLiteral("--no-dereference"), a.path(), b.path()});
    diff.waitForFinished();
    return QString::fromUtf8(diff.readAll());
}

} // namespace

class ProxyBuilderTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void copiesRewritesStripsAndSigns();
    void leavesEverythingElseOfTheTemplateAlone();
    void leavesTheTemplateAlone();
    void copiesTheAppBehindALink();
    void buildsTheSameBytesAgain();
    void stripsTheSignatureThenTheReceiptThenTheProfile();
    void stripsNothingFromATemplateWithoutArtifacts();
    void stripsTheProfileOfATemplateWithoutReceipt();
    void stopsStrippingAtTheFirstThatStays();
    void stopsAtTheStepThatFails_data();
    void stopsAtTheStepThatFails();
    void leavesTheHalfMadeBundleWhereItIs();
    void refusesAnOccupiedPlace();

private:
    FileURL inside(const FileURL &bundle, const char *path) const
    {
        return bundle.appendingFile(QStringLiteral("Contents/") + QString::fromLatin1(path));
    }
    bool has(const FileURL &bundle, const char *path) const
    {
        return m_files->files.isOccupied(inside(bundle, path));
    }
    void build() const { m_builder->buildProxy(m_template, m_proxy, folder); }

    std::unique_ptr<FakeDirectories> m_directories;
    std::unique_ptr<FakeFileSystem> m_files;
    std::unique_ptr<FakeProcessRunner> m_processes;
    std::unique_ptr<CodeSign> m_codeSign;
    std::unique_ptr<ProxyBuilder> m_builder;
    FileURL m_template;
    FileURL m_proxy;
};

void ProxyBuilderTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_directories = std::make_unique<FakeDirectories>();
    m_files = std::make_unique<FakeFileSystem>();
    m_processes = std::make_unique<FakeProcessRunner>();
    m_codeSign = std::make_unique<CodeSign>(*m_processes, *m_files, *m_directories);
    m_builder = std::make_unique<ProxyBuilder>(*m_files, *m_codeSign);
    m_template = m_directories->at(QStringLiteral("/Applications/Nestlet.app"));
    m_proxy = m_directories->at(QStringLiteral("/Users/me/Applications/Nestlet/Work.app"));
    m_files->files.createDirectories(m_directories->temporary());
    m_files->files.createDirectories(m_proxy.deletingLastPathComponent());
    makeTemplateApp(m_template, m_files->files);
}

void ProxyBuilderTest::copiesRewritesStripsAndSigns()
{
    // What the signing tool finds in front of it.
    QVariantMap info;
    bool hasSignature = true;
    m_processes->onRun = [&](const FakeProcessRunner::Call &call) {
        info = readInfoPlist(m_proxy, m_files->files);
        hasSignature = has(m_proxy, "_CodeSignature");
        return call.arguments.last() == m_proxy.path() ? ProcessResult() : ProcessResult{1, {}};
    };
    build();
    QCOMPARE(m_processes->calls.size(), 1);
    QCOMPARE(info.value(QStringLiteral("DockFolderID")),
             QVariant(QStringLiteral("1A2B3C4D-5E6F-4A8B-9CAD-0123456789EF")));
    QVERIFY(!hasSignature);
}

void ProxyBuilderTest::leavesEverythingElseOfTheTemplateAlone()
{
    build();
    QString expected;
    m_files->files.remove(infoPlistURL(m_proxy));
    m_files->files.copy(infoPlistURL(m_template), infoPlistURL(m_proxy));
    QString only = QStringLiteral("Only in %1/Contents: %2\n");
    for (const char *gone : {"_CodeSignature", "_MASReceipt", "embedded.provisionprofile"})
        expected += only.arg(m_template.path(), QString::fromLatin1(gone));
    QCOMPARE(differences(m_template, m_proxy), expected);

    const std::filesystem::path link
        = inside(m_proxy, "Frameworks/Grid.framework/Versions/Current").path().toStdString();
    QCOMPARE(std::filesystem::read_symlink(link), std::filesystem::path("A"));
    const std::filesystem::path executable = inside(m_proxy, "MacOS/Nestlet").path().toStdString();
    QCOMPARE(std::filesystem::status(executable).permissions(), std::filesystem::perms(0755));
}

void ProxyBuilderTest::leavesTheTemplateAlone()
{
    const FileURL before = m_directories->at(QStringLiteral("/Before.app"));
    m_files->files.copy(m_template, before);
    build();
    QCOMPARE(differences(before, m_template), QString());
}

void ProxyBuilderTest::copiesTheAppBehindALink()
{
    const FileURL elsewhere = m_directories->at(QStringLiteral("/Elsewhere.app"));
    m_files->files.move(m_template, elsewhere);
    std::filesystem::create_directory_symlink(elsewhere.path().toStdString(),
                                              m_template.path().toStdString());
    build();
    QVERIFY(!std::filesystem::is_symlink(m_proxy.path().toStdString()));
    QCOMPARE(readFolderID(m_proxy, *m_files), folder.id);
    QCOMPARE(readFolderID(elsewhere, *m_files), std::nullopt);
}

void ProxyBuilderTest::buildsTheSameBytesAgain()
{
    build();
    const FileURL earlier = m_directories->at(QStringLiteral("/Earlier.app"));
    m_files->files.move(m_proxy, earlier);
    build();
    QCOMPARE(differences(earlier, m_proxy), QString());
}

void ProxyBuilderTest::stripsTheSignatureThenTheReceiptThenTheProfile()
{
    m_files->calls.clear();
    m_builder->stripSignatureArtifacts(m_template);
    QStringList removed;
    for (const auto &call : std::as_const(m_files->calls)) {
        if (call.operation == Operation::Remove)
            removed.append(call.path);
    }
    QCOMPARE(removed,
             (QStringList{inside(m_template, "_CodeSignature").path(),
                          inside(m_template, "_MASReceipt").path(),
                          inside(m_template, "embedded.provisionprofile").path()}));
    for (const QString &path : std::as_const(removed))
        QVERIFY(!m_files->files.exists(FileURL::file(path)));
    QVERIFY(has(m_template, "Info.plist"));
}

void ProxyBuilderTest::stripsNothingFromATemplateWithoutArtifacts()
{
    m_builder->stripSignatureArtifacts(m_template);
    m_files->calls.clear();
    m_builder->stripSignatureArtifacts(m_template);
    QCOMPARE(m_files->count(Operation::Remove), 0);
}

void ProxyBuilderTest::stripsTheProfileOfATemplateWithoutReceipt()
{
    m_files->files.remove(inside(m_template, "_MASReceipt"));
    m_builder->stripSignatureArtifacts(m_template);
    QVERIFY(!has(m_template, "embedded.provisionprofile"));
}

void ProxyBuilderTest::stopsStrippingAtTheFirstThatStays()
{
    m_files->fail(Operation::Remove, QStringLiteral("_MASReceipt"), EACCES);
    QVERIFY_THROWS_EXCEPTION(PlatformError, m_builder->stripSignatureArtifacts(m_template));
    QVERIFY(!has(m_template, "_CodeSignature"));
    QVERIFY(has(m_template, "embedded.provisionprofile"));
}

void ProxyBuilderTest::stopsAtTheStepThatFails_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QString>("pathEnd");
    QTest::newRow("copying") << Operation::Copy << QStringLiteral("Work.app");
    QTest::newRow("reading the Info.plist") << Operation::Read << QStringLiteral("Info.plist");
    QTest::newRow("writing the Info.plist") << Operation::Write << QStringLiteral("Info.plist");
    QTest::newRow("removing the signature")
        << Operation::Remove << QStringLiteral("_CodeSignature");
    QTest::newRow("writing the entitlements") << Operation::Write << QStringLiteral(".plist");
}

void ProxyBuilderTest::stopsAtTheStepThatFails()
{
    QFETCH(Operation, operation);
    QFETCH(QString, pathEnd);
    m_files->fail(operation, pathEnd, ENOSPC);
    QVERIFY_THROWS_EXCEPTION(PlatformError, build());
    QVERIFY(m_processes->calls.isEmpty());
}

void ProxyBuilderTest::leavesTheHalfMadeBundleWhereItIs()
{
    m_processes->results.append({.exitStatus = 1, .standardError = "no"});
    QVERIFY_THROWS_EXCEPTION(CompanionError, build());
    QCOMPARE(readFolderID(m_proxy, *m_files), folder.id);
}

void ProxyBuilderTest::refusesAnOccupiedPlace()
{
    writeFile(m_proxy.appendingFile(QStringLiteral("mine")), "mine", m_files->files);
    QVERIFY_THROWS_EXCEPTION(PlatformError, build());
    QCOMPARE(m_files->files.read(m_proxy.appendingFile(QStringLiteral("mine"))), "mine");
}

QTEST_GUILESS_MAIN(ProxyBuilderTest)
#include "tst_proxybuilder.moc"
