// From a signed template app to a signed Dock app, with the stand-in signing tool.

#include "builder/codesign.h"
#include "builder/companionerror.h"
#include "builder/infoplist.h"
#include "builder/proxybuilder.h"
#include "builder/proxydirectory.h"
#include "builder/templateapp.h"
#include "bundles.h"
#include "platform/portable/portableprocessrunner.h"
#include "platform/posix/posixfilesystem.h"
#include "tests/fakes/fakedirectories.h"
#include "tests/fakes/fakemainbundle.h"
#include "tests/fakes/fakeworkspace.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

namespace {

const QString maker = QStringLiteral("Developer ID Application: Nestlet (NX7QK2D4TL)");
const QString somebodyElse = QStringLiteral("Developer ID Application: Other (ABCDEFGHIJ)");
const DockFolder folder{.id = QUuid(QStringLiteral("1A2B3C4D-5E6F-4A8B-9CAD-0123456789EF")),
                        .name = QStringLiteral("Wörk/🚀")};

} // namespace

class SignedProxyTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void becomesASignedDockApp();
    void isSignedWithoutEntitlements();
    void isByteIdenticalWhenBuiltAgain();
    void isBuiltFromAnUnsignedCopyOnlyWhenThatVerifies();
    void refusesATamperedTemplate_data();
    void refusesATamperedTemplate();
    void refusesAnotherTeamInApplications();
    void acceptsAnotherTeamBesideTheCompanion();
    void refusesAnAdHocSignatureInApplications();
    void noticesTamperingWithTheDockApp();

private:
    FileURL inside(const FileURL &bundle, const QString &path) const
    {
        return bundle.appendingFile(QStringLiteral("Contents/") + path);
    }
    FileURL placeTemplate(const FileURL &bundle, const QString &identity) const
    {
        makeTemplateApp(bundle, m_files);
        m_files.remove(inside(bundle, QStringLiteral("_CodeSignature")));
        const ProcessResult result
            = tool({QStringLiteral("--deep"), QStringLiteral("--sign"), identity, bundle.path()});
        if (!result.succeeded())
            qFatal("%s", result.standardError.constData());
        return bundle;
    }
    ProcessResult tool(const QStringList &arguments) const
    {
        return m_processes->run(m_directories->system(QStringLiteral("/usr/bin/codesign")),
                                arguments);
    }
    FileURL build() const
    {
        FileURL proxy = m_proxies->proxyAppURL(folder);
        m_files.createDirectories(m_proxies->url());
        try {
            m_builder->buildProxy(m_templateApp->locateNestletApp(), proxy, folder);
        } catch (const Error &error) {
            qFatal("%s", qPrintable(error.description()));
        }
        return proxy;
    }
    QString failure() const
    {
        try {
            (void)m_templateApp->locateNestletApp();
        } catch (const CompanionError &error) {
            return error.description();
        }
        return QStringLiteral("accepted");
    }

    PosixFileSystem m_files;
    std::unique_ptr<FakeDirectories> m_directories;
    std::unique_ptr<PortableProcessRunner> m_processes;
    std::unique_ptr<FakeMainBundle> m_mainBundle;
    std::unique_ptr<FakeWorkspace> m_workspace;
    std::unique_ptr<CodeSign> m_codeSign;
    std::unique_ptr<TemplateApp> m_templateApp;
    std::unique_ptr<ProxyBuilder> m_builder;
    std::unique_ptr<ProxyDirectory> m_proxies;
    FileURL m_installed;
};

void SignedProxyTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_directories = std::make_unique<FakeDirectories>();
    m_processes = std::make_unique<PortableProcessRunner>(m_directories->root.path());
    m_mainBundle = std::make_unique<FakeMainBundle>();
    m_mainBundle->bundleURL = m_directories->at(QStringLiteral("/Tools/Nestlet Companion.app"));
    m_workspace = std::make_unique<FakeWorkspace>();
    m_codeSign = std::make_unique<CodeSign>(*m_processes, m_files, *m_directories);
    m_templateApp
        = std::make_unique<TemplateApp>(TemplateApp::Collaborators{.files = m_files,
                                                                   .directories = *m_directories,
                                                                   .mainBundle = *m_mainBundle,
                                                                   .workspace = *m_workspace,
                                                                   .codeSign = *m_codeSign});
    m_builder = std::make_unique<ProxyBuilder>(m_files, *m_codeSign);
    m_proxies = std::make_unique<ProxyDirectory>(m_files, *m_directories);
    m_installed = m_directories->at(QStringLiteral("/Applications/Nestlet.app"));

    m_files.createDirectories(m_directories->temporary());
    m_files.createDirectories(m_directories->at(QStringLiteral("/usr/bin")));
    QVERIFY(QFile::link(QStringLiteral(STAND_IN_CODESIGN),
                        m_directories->system(QStringLiteral("/usr/bin/codesign")).path()));
}

void SignedProxyTest::becomesASignedDockApp()
{
    placeTemplate(m_installed, maker);
    const FileURL proxy = build();
    m_codeSign->codesignVerify(proxy);
    QCOMPARE(proxy.lastPathComponent(), QStringLiteral("Wörk 🚀.app"));
    QCOMPARE(m_proxies->installedProxyURLs(folder.id), QList<FileURL>{proxy});

    const QString description = m_codeSign->codesignDescribe(proxy);
    QVERIFY(description.contains(QStringLiteral("Signature=adhoc")));
    QVERIFY(description.contains(QStringLiteral("Identifier=") + proxyBundleIdentifier(folder.id)));
    const QString framework = QStringLiteral("Frameworks/Grid.framework");
    QVERIFY(m_codeSign->codesignDescribe(inside(proxy, framework))
                .contains(QStringLiteral("Signature=adhoc")));
    m_codeSign->codesignVerify(m_installed); // still as it was
}

void SignedProxyTest::isSignedWithoutEntitlements()
{
    placeTemplate(m_installed, maker);
    const FileURL proxy = build();
    QProcess codesign;
    codesign.start(QStringLiteral(STAND_IN_CODESIGN),
                   {QStringLiteral("-d"), QStringLiteral("--entitlements"), QStringLiteral("-"),
                    proxy.path()});
    QVERIFY(codesign.waitForFinished());
    QVERIFY(codesign.readAllStandardOutput().contains("<dict/>"));
}

void SignedProxyTest::isByteIdenticalWhenBuiltAgain()
{
    placeTemplate(m_installed, maker);
    const FileURL earlier = m_directories->at(QStringLiteral("/Earlier.app"));
    m_files.move(build(), earlier);
    QProcess diff;
    diff.start(
        QStringLiteral("diff"),
        {QStringLiteral("-r"), QStringLiteral("--no-dereference"), earlier.path(), build().path()});
    QVERIFY(diff.waitForFinished());
    QCOMPARE(diff.readAll(), QByteArray());
    QCOMPARE(diff.exitCode(), 0);
}

void SignedProxyTest::isBuiltFromAnUnsignedCopyOnlyWhenThatVerifies()
{
    makeTemplateApp(m_installed, m_files);
    m_files.remove(inside(m_installed, QStringLiteral("_CodeSignature")));
    QVERIFY(failure().contains(m_installed.path() + QStringLiteral(": ")));
}

void SignedProxyTest::refusesATamperedTemplate_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("a resource") << QStringLiteral("Resources/panel.txt");
    QTest::newRow("the executable") << QStringLiteral("MacOS/Nestlet");
    QTest::newRow("code inside") << QStringLiteral("Frameworks/Grid.framework/Versions/A/Grid");
    QTest::newRow("an added file") << QStringLiteral("Resources/added.txt");
}

void SignedProxyTest::refusesATamperedTemplate()
{
    QFETCH(QString, path);
    placeTemplate(m_installed, maker);
    QCOMPARE(failure(), QStringLiteral("accepted"));
    m_files.writeAtomically(inside(m_installed, path), QByteArrayView("tampered"));
    const QString message = QStringLiteral("Nestlet Companion requires a signed Nestlet app. ");
    QVERIFY2(failure().startsWith(message + m_installed.path() + QStringLiteral(": ") + message),
             qPrintable(failure()));

    // Beside the companion it is refused just so: no signer is asked for, but an intact signature.
    const FileURL sibling = m_directories->at(QStringLiteral("/Tools/Nestlet.app"));
    m_files.createDirectories(m_directories->at(QStringLiteral("/Tools")));
    m_files.move(m_installed, sibling);
    QVERIFY(failure().startsWith(message + sibling.path()));
}

void SignedProxyTest::refusesAnotherTeamInApplications()
{
    placeTemplate(m_installed, somebodyElse);
    QVERIFY(failure().endsWith(
        QStringLiteral("The Nestlet app is not signed by the expected developer team.")));
}

void SignedProxyTest::acceptsAnotherTeamBesideTheCompanion()
{
    const FileURL sibling = m_directories->at(QStringLiteral("/Tools/Nestlet.app"));
    placeTemplate(sibling, somebodyElse);
    QCOMPARE(m_templateApp->locateNestletApp(), sibling);
    m_codeSign->codesignVerify(build());
}

void SignedProxyTest::refusesAnAdHocSignatureInApplications()
{
    placeTemplate(m_installed, QStringLiteral("-"));
    QVERIFY(failure().endsWith(
        QStringLiteral("The Nestlet app is not signed by the expected developer team.")));
}

void SignedProxyTest::noticesTamperingWithTheDockApp()
{
    placeTemplate(m_installed, maker);
    const FileURL proxy = build();
    writeInfoPlist(proxy, {{QStringLiteral("CFBundleIdentifier"), QStringLiteral("qx.Evil")}},
                   m_files);
    QVERIFY_THROWS_EXCEPTION(CompanionError, m_codeSign->codesignVerify(proxy));
}

QTEST_GUILESS_MAIN(SignedProxyTest)
#include "tst_signedproxy.moc"
