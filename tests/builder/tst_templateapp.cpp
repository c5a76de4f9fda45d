#include "builder/codesign.h"
#include "builder/companionerror.h"
#include "builder/templateapp.h"
#include "bundles.h"
#include "model/nestlet.h"
#include "tests/fakes/fakedirectories.h"
#include "tests/fakes/fakefilesystem.h"
#include "tests/fakes/fakemainbundle.h"
#include "tests/fakes/fakeprocessrunner.h"
#include "tests/fakes/fakeworkspace.h"

#include <QRegularExpression>
#include <QTest>

#include <filesystem>

namespace {

const QString genuine = QStringLiteral("Executable=/x\nIdentifier=qx.Nestlet\n"
                                       "Authority=Someone\nTeamIdentifier=NX7QK2D4TL\n");
const QString wrongIdentifier
    = QStringLiteral("The Nestlet app has an unexpected bundle identifier.");
const QString wrongTeam
    = QStringLiteral("The Nestlet app is not signed by the expected developer team.");
const QString wrongSigningIdentifier
    = QStringLiteral("The Nestlet app has an unexpected signing identifier.");

ProcessResult failure(const QByteArray &standardError)
{
    return {.exitStatus = 1, .standardError = standardError};
}

QString message(const QString &reason)
{
    return QStringLiteral("Nestlet Companion requires a signed Nestlet app. ") + reason;
}

} // namespace

class TemplateAppTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void namesATeamOfTenCharacters();
    void looksBesideItselfThenInBothApplicationsThenAsksTheWorkspace();
    void listsEachPlaceOnce();
    void listsAPlaceOnceUnderTwoSpellings();
    void givesDirectoryURLsOnly();
    void saysWhereItLookedWhenThereIsNone();
    void isInstalledWhereverSomethingIs_data();
    void isInstalledWhereverSomethingIs();
    void asksTheWorkspaceOnlyWhenNothingElseIsThere();
    void isNotInstalledWhereTheWorkspaceIsMistaken();
    void runsTheToolTwiceForAGenuineApp();
    void refusesAnotherBundleIdentifier_data();
    void refusesAnotherBundleIdentifier();
    void refusesABrokenSignature();
    void refusesAnotherSigner_data();
    void refusesAnotherSigner();
    void trustsTheCopyBesideItselfWhoeverSignedIt();
    void doesNotTrustTheSameCopyInApplications();
    void trustsTheCopyBesideItselfWhenThatIsApplications();
    void takesTheFirstThatPasses();
    void takesTheNextWhenTheFirstFails();
    void listsEveryFailureOnALineOfItsOwn();
    void countsAToolThatCannotBeRunAsAFailure();
    void remembersNothing();

private:
    FileURL applications() const
    {
        return m_directories->at(QStringLiteral("/Applications/Nestlet.app/"));
    }
    FileURL usersApplications() const
    {
        return m_directories->at(QStringLiteral("/Users/me/Applications/Nestlet.app/"));
    }
    FileURL sibling() const { return m_directories->at(QStringLiteral("/Tools/Nestlet.app/")); }
    void know(const FileURL &application)
    {
        m_workspace->applications.insert(nestletBundleIdentifier, application);
    }
    // An app at the place, and what the signing tool has to say of it.
    void place(const FileURL &bundle, const ProcessResult &verification,
               const ProcessResult &description)
    {
        writeInfoPlist(bundle, {{QStringLiteral("CFBundleIdentifier"), nestletBundleIdentifier}},
                       m_files);
        m_verifications.insert(bundle.path(), verification);
        m_descriptions.insert(bundle.path(), description);
    }
    void placeGenuine(const FileURL &bundle)
    {
        place(bundle, {}, {.standardError = genuine.toUtf8()});
    }
    // What locating says when it finds nothing.
    QString failureText() const
    {
        try {
            return QStringLiteral("found ") + m_app->locateNestletApp().path();
        } catch (const CompanionError &error) {
            return error.description();
        }
    }
    QString verificationFailure(const FileURL &bundle, bool checkSigner) const
    {
        try {
            m_app->verifyNestletApp(bundle, checkSigner);
            return QStringLiteral("accepted");
        } catch (const CompanionError &error) {
            return error.text();
        }
    }

    PosixFileSystem m_files;
    std::unique_ptr<FakeDirectories> m_directories;
    FakeMainBundle m_mainBundle;
    std::unique_ptr<FakeWorkspace> m_workspace;
    std::unique_ptr<FakeProcessRunner> m_processes;
    std::unique_ptr<CodeSign> m_codeSign;
    std::unique_ptr<TemplateApp> m_app;
    QHash<QString, ProcessResult> m_verifications;
    QHash<QString, ProcessResult> m_descriptions;
};

void TemplateAppTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_verifications.clear();
    m_descriptions.clear();
    m_directories = std::make_unique<FakeDirectories>();
    m_mainBundle.bundleURL = m_directories->at(QStringLiteral("/Tools/Nestlet Companion.app/"));
    m_workspace = std::make_unique<FakeWorkspace>();
    m_processes = std::make_unique<FakeProcessRunner>();
    m_processes->onRun = [this](const FakeProcessRunner::Call &call) {
        const bool isDescription = call.arguments.first() == u"-dvvv";
        return (isDescription ? m_descriptions : m_verifications)
            .value(call.arguments.last(), failure("unexpected"));
    };
    m_codeSign = std::make_unique<CodeSign>(*m_processes, m_files, *m_directories);
    m_app = std::make_unique<TemplateApp>(TemplateApp::Collaborators{
        .files = m_files,
        .directories = *m_directories,
        .mainBundle = m_mainBundle,
        .workspace = *m_workspace,
        .codeSign = *m_codeSign,
    });
}

void TemplateAppTest::namesATeamOfTenCharacters()
{
    QCOMPARE(expectedTeamIdentifier.size(), 10);
}

void TemplateAppTest::looksBesideItselfThenInBothApplicationsThenAsksTheWorkspace()
{
    QCOMPARE(m_app->candidateNestletURLs(),
             (QList<FileURL>{sibling(), applications(), usersApplications()}));
    const FileURL elsewhere = m_directories->at(QStringLiteral("/Volumes/X/Nestlet 2.app/"));
    know(elsewhere);
    QCOMPARE(m_app->candidateNestletURLs(),
             (QList<FileURL>{sibling(), applications(), usersApplications(), elsewhere}));
}

void TemplateAppTest::listsEachPlaceOnce()
{
    know(applications());
    m_mainBundle.bundleURL
        = m_directories->at(QStringLiteral("/Users/me/Applications/Nestlet Companion.app/"));
    QCOMPARE(m_app->candidateNestletURLs(), (QList<FileURL>{usersApplications(), applications()}));
}

void TemplateAppTest::listsAPlaceOnceUnderTwoSpellings()
{
    know(m_directories->at(QStringLiteral("/Users/../Applications/./Nestlet.app")));
    m_mainBundle.bundleURL = m_directories->at(QStringLiteral("/Applications//Companion.app/"));
    const QList<FileURL> urls = m_app->candidateNestletURLs();
    QCOMPARE(urls.size(), 2);
    QCOMPARE(urls.first().standardizedPath(), applications().path());
    QCOMPARE(urls.last(), usersApplications());
}

void TemplateAppTest::givesDirectoryURLsOnly()
{
    know(FileURL::file(m_directories->root.filePath(QStringLiteral("X/Nestlet.app"))));
    for (const FileURL &url : m_app->candidateNestletURLs())
        QVERIFY(url.hasDirectoryPath());
}

void TemplateAppTest::saysWhereItLookedWhenThereIsNone()
{
    const FileURL known = m_directories->at(QStringLiteral("/Volumes/X/Nestlet.app"));
    know(known);
    const QString places = QStringList{sibling().path(), applications().path(),
                                       usersApplications().path(), known.path()}
                               .join(QStringLiteral(", "));
    QCOMPARE(m_app->missingLocationsText(), places);
    QCOMPARE(failureText(),
             QStringLiteral("Nestlet was not found at ") + places
                 + QStringLiteral(". Install Nestlet first."));
    QVERIFY(m_processes->calls.isEmpty());
}

void TemplateAppTest::isInstalledWhereverSomethingIs_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("beside the companion") << QStringLiteral("/Tools/Nestlet.app/");
    QTest::newRow("in Applications") << QStringLiteral("/Applications/Nestlet.app/");
    QTest::newRow("in the user's Applications")
        << QStringLiteral("/Users/me/Applications/Nestlet.app/");
    QTest::newRow("where the workspace knows it") << QStringLiteral("/Volumes/X/Other.app/");
}

void TemplateAppTest::isInstalledWhereverSomethingIs()
{
    QFETCH(QString, path);
    know(m_directories->at(QStringLiteral("/Volumes/X/Other.app/")));
    QCOMPARE(m_app->installedNestletURL(), std::nullopt);
    m_files.createDirectories(m_directories->at(path)); // an empty directory will do
    QCOMPARE(m_app->installedNestletURL(), m_directories->at(path));
    QVERIFY(m_processes->calls.isEmpty());
}

void TemplateAppTest::asksTheWorkspaceOnlyWhenNothingElseIsThere()
{
    m_files.createDirectories(usersApplications());
    QCOMPARE(m_app->installedNestletURL(), usersApplications());
    QCOMPARE(m_workspace->lookups, 0);
    m_files.remove(usersApplications());
    QCOMPARE(m_app->installedNestletURL(), std::nullopt);
    QCOMPARE(m_workspace->lookups, 1);
}

void TemplateAppTest::isNotInstalledWhereTheWorkspaceIsMistaken()
{
    know(m_directories->at(QStringLiteral("/gone/Nestlet.app/")));
    QCOMPARE(m_app->installedNestletURL(), std::nullopt);
}

void TemplateAppTest::runsTheToolTwiceForAGenuineApp()
{
    placeGenuine(applications());
    QCOMPARE(m_app->locateNestletApp(), applications());
    const QString path = applications().path();
    QCOMPARE(m_processes->calls.size(), 2);
    for (const auto &run : m_processes->calls)
        QCOMPARE(run.tool, m_directories->system(QStringLiteral("/usr/bin/codesign")));
    QCOMPARE(m_processes->calls.at(0).arguments,
             (QStringList{QStringLiteral("--verify"), QStringLiteral("--deep"),
                          QStringLiteral("--strict"), path}));
    QCOMPARE(m_processes->calls.at(1).arguments, (QStringList{QStringLiteral("-dvvv"), path}));
}

void TemplateAppTest::refusesAnotherBundleIdentifier_data()
{
    QTest::addColumn<QByteArray>("infoPlist");
    const auto info = [](const char *value) {
        return xml(QByteArray("<dict><key>CFBundleIdentifier</key>") + value + "</dict>");
    };
    QTest::newRow("another case") << info("<string>qx.nestlet</string>");
    QTest::newRow("another app") << info("<string>qx.Nestlet.Companion</string>");
    QTest::newRow("a proxy") << info("<string>qx.Nestlet.folder.00</string>");
    QTest::newRow("with a blank") << info("<string>qx.Nestlet </string>");
    QTest::newRow("not a text") << info("<integer>1</integer>");
    QTest::newRow("none") << xml("<dict/>");
    QTest::newRow("an unreadable Info.plist") << QByteArray("hello");
}

void TemplateAppTest::refusesAnotherBundleIdentifier()
{
    QFETCH(QByteArray, infoPlist);
    placeGenuine(applications());
    writeInfoPlistBytes(applications(), infoPlist, m_files);
    QCOMPARE(failureText(),
             message(applications().path() + QStringLiteral(": ") + message(wrongIdentifier)));
    QVERIFY(m_processes->calls.isEmpty());

    writeInfoPlistBytes(sibling(), infoPlist, m_files); // not even beside the companion
    QCOMPARE(verificationFailure(sibling(), false), wrongIdentifier);
}

void TemplateAppTest::refusesABrokenSignature()
{
    place(applications(), failure("a sealed resource is missing or invalid\n"),
          {.standardError = genuine.toUtf8()});
    QCOMPARE(verificationFailure(applications(), true),
             QStringLiteral("a sealed resource is missing or invalid\n"));
    QCOMPARE(verificationFailure(applications(), false),
             QStringLiteral("a sealed resource is missing or invalid\n"));

    place(applications(), failure("\xff\xfe not text"), {});
    QCOMPARE(verificationFailure(applications(), true), QString());
    QCOMPARE(m_processes->calls.size(), 3); // a broken signature is not described
}

void TemplateAppTest::refusesAnotherSigner_data()
{
    QTest::addColumn<ProcessResult>("description");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *what, const QByteArray &text, const QString &reason) {
        QTest::newRow(what) << ProcessResult{.standardError = text} << reason;
    };
    row("another team", "Identifier=qx.Nestlet\nTeamIdentifier=ABCDEFGHIJ\n", wrongTeam);
    row("no team", "Identifier=qx.Nestlet\nTeamIdentifier=not set\n", wrongTeam);
    row("a team in lower case", "Identifier=qx.Nestlet\nTeamIdentifier=nx7qk2d4tl\n", wrongTeam);
    row("nothing", "", wrongTeam);
    row("undecodable", "Identifier=qx.Nestlet\nTeamIdentifier=NX7QK2D4TL\n\xff", wrongTeam);
    row("another identifier", "Identifier=qx.Other\nTeamIdentifier=NX7QK2D4TL\n",
        wrongSigningIdentifier);
    row("both are searched in the whole text",
        "x Identifier=qx.Nestlet.y TeamIdentifier=NX7QK2D4TLz", QStringLiteral("accepted"));
    QTest::newRow("a description that fails")
        << failure("code object is not signed at all\n")
        << QStringLiteral("code object is not signed at all\n");
    QTest::newRow("a description that fails undecodably") << failure("\xff") << QString();
}

void TemplateAppTest::refusesAnotherSigner()
{
    QFETCH(ProcessResult, description);
    QFETCH(QString, reason);
    place(applications(), {}, description);
    QCOMPARE(verificationFailure(applications(), true), reason);
    QCOMPARE(verificationFailure(applications(), false), QStringLiteral("accepted"));
}

void TemplateAppTest::trustsTheCopyBesideItselfWhoeverSignedIt()
{
    place(sibling(), {}, {.standardError = "Identifier=qx.Nestlet\nTeamIdentifier=ABCDEFGHIJ\n"});
    QCOMPARE(m_app->locateNestletApp(), sibling());
    QCOMPARE(m_processes->calls.size(), 1);
}

void TemplateAppTest::doesNotTrustTheSameCopyInApplications()
{
    place(applications(), {},
          {.standardError = "Identifier=qx.Nestlet\nTeamIdentifier=ABCDEFGHIJ\n"});
    QCOMPARE(failureText(),
             message(applications().path() + QStringLiteral(": ") + message(wrongTeam)));
}

void TemplateAppTest::trustsTheCopyBesideItselfWhenThatIsApplications()
{
    m_mainBundle.bundleURL
        = m_directories->at(QStringLiteral("/Applications/Nestlet Companion.app/"));
    place(applications(), {},
          {.standardError = "Identifier=qx.Nestlet\nTeamIdentifier=ABCDEFGHIJ\n"});
    QCOMPARE(m_app->locateNestletApp(), applications());
}

void TemplateAppTest::takesTheFirstThatPasses()
{
    placeGenuine(applications());
    placeGenuine(usersApplications());
    QCOMPARE(m_app->locateNestletApp(), applications());
    placeGenuine(sibling());
    QCOMPARE(m_app->locateNestletApp(), sibling());
}

void TemplateAppTest::takesTheNextWhenTheFirstFails()
{
    place(sibling(), failure("broken"), {});
    place(applications(), {}, {});
    const FileURL elsewhere = m_directories->at(QStringLiteral("/Volumes/X/Nestlet.app/"));
    know(elsewhere);
    placeGenuine(elsewhere);
    QCOMPARE(m_app->locateNestletApp(), elsewhere);
}

void TemplateAppTest::listsEveryFailureOnALineOfItsOwn()
{
    place(applications(), {}, {});
    place(usersApplications(), failure("100% %@ %1"), {});
    QCOMPARE(failureText(),
             message(applications().path() + QStringLiteral(": ") + message(wrongTeam) + u'\n'
                     + usersApplications().path() + QStringLiteral(": ")
                     + message(QStringLiteral("100% %@ %1"))));
}

void TemplateAppTest::countsAToolThatCannotBeRunAsAFailure()
{
    placeGenuine(applications());
    m_processes->launchError = PlatformError(QStringLiteral("There is no codesign."));
    QCOMPARE(failureText(),
             message(applications().path() + QStringLiteral(": There is no codesign.")));
    QVERIFY_THROWS_EXCEPTION(PlatformError, m_app->verifyNestletApp(applications(), true));
}

void TemplateAppTest::remembersNothing()
{
    placeGenuine(applications());
    QCOMPARE(m_app->locateNestletApp(), applications());
    m_verifications.insert(applications().path(), failure("tampered"));
    QVERIFY_THROWS_EXCEPTION(CompanionError, (void)m_app->locateNestletApp());
    m_files.remove(applications());
    QVERIFY(failureText().startsWith(QStringLiteral("Nestlet was not found at ")));
}

QTEST_GUILESS_MAIN(TemplateAppTest)
#include "tst_templateapp.moc"
