// The signing tool as a real process, played by shell scripts.

#include "builder/codesign.h"
#include "builder/companionerror.h"
#include "bundles.h"
#include "platform/portable/portableprocessrunner.h"
#include "platform/posix/posixfilesystem.h"
#include "tests/fakes/fakedirectories.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

class CodeSignProcessTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void getsItsArgumentsWhole();
    void passesOnStatusZero();
    void failsOnAnyOtherEnd_data();
    void failsOnAnyOtherEnd();
    void readsMoreThanAPipeHolds();
    void readsWhatASucceedingToolPrints();
    void saysWhyAToolCannotBeLaunched_data();
    void saysWhyAToolCannotBeLaunched();
    void givesTheToolTheEntitlements();

private:
    // Makes the tool a script of that body.
    void play(const QByteArray &body) const
    {
        writeFile(m_tool, "#!/bin/sh\n" + body + '\n', m_files);
        QFile::setPermissions(m_tool.path(),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    // What signing says.
    QString signing() const
    {
        try {
            m_codeSign->adHocSign(m_bundle);
        } catch (const CompanionError &error) {
            return error.description();
        }
        return QStringLiteral("signed");
    }

    PosixFileSystem m_files;
    std::unique_ptr<FakeDirectories> m_directories;
    std::unique_ptr<PortableProcessRunner> m_processes;
    std::unique_ptr<CodeSign> m_codeSign;
    FileURL m_tool;
    FileURL m_bundle;
};

void CodeSignProcessTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_directories = std::make_unique<FakeDirectories>();
    m_processes = std::make_unique<PortableProcessRunner>(m_directories->root.path());
    m_codeSign = std::make_unique<CodeSign>(*m_processes, m_files, *m_directories);
    m_tool = m_directories->system(QStringLiteral("/usr/bin/codesign"));
    m_bundle = m_directories->at(QStringLiteral("/a 'quoted' \"é\" $HOME *.app"));
    m_files.createDirectories(m_directories->temporary());
    m_files.createDirectories(m_bundle);
}

void CodeSignProcessTest::getsItsArgumentsWhole()
{
    play(R"(printf '%s|' "$@" >&2; exit 1)");
    try {
        m_codeSign->codesignVerify(m_bundle);
        QFAIL("passed");
    } catch (const CompanionError &error) {
        QCOMPARE(error.text(),
                 QStringLiteral("--verify|--deep|--strict|") + m_bundle.path() + u'|');
    }
}

void CodeSignProcessTest::passesOnStatusZero()
{
    play("echo replacing >&2; echo noise");
    m_codeSign->codesignVerify(m_bundle);
    QCOMPARE(m_codeSign->codesignDescribe(m_bundle), QStringLiteral("replacing\n"));
    QCOMPARE(signing(), QStringLiteral("signed"));
}

void CodeSignProcessTest::failsOnAnyOtherEnd_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *what, const QByteArray &body, const char *expected) {
        QTest::newRow(what) << body
                            << QStringLiteral("Ad-hoc signing failed: ")
                + QString::fromUtf8(expected);
    };
    row("status 1 with a reason", "echo no identity >&2; exit 1", "no identity\n");
    row("status 1 in silence", "exit 1", "");
    row("status 255", "exit 255", "");
    row("killed", "kill -KILL $$", "");
    row("crashed after a word", "echo well >&2; kill -SEGV $$", "well\n");
    row("ended politely by somebody else", "kill -TERM $$", "");
    row("undecodable", R"(printf 'caf\351' >&2; exit 1)", "codesign failed");
    row("undecodable when killed", R"(printf '\377' >&2; kill -KILL $$)", "codesign failed");
    row("an empty tool that fails at once", "exec false", "");
}

void CodeSignProcessTest::failsOnAnyOtherEnd()
{
    QFETCH(QByteArray, body);
    QFETCH(QString, expected);
    play(body);
    QCOMPARE(signing(), expected);
    QVERIFY_THROWS_EXCEPTION(CompanionError, m_codeSign->codesignVerify(m_bundle));
    QVERIFY_THROWS_EXCEPTION(CompanionError, (void)m_codeSign->codesignDescribe(m_bundle));
    QVERIFY(m_files.contents(m_directories->temporary()).isEmpty());
}

void CodeSignProcessTest::readsMoreThanAPipeHolds()
{
    play("yes 'a long complaint' | head -n 100000 >&2; exit 1");
    QCOMPARE(signing(),
             QStringLiteral("Ad-hoc signing failed: ")
                 + QStringLiteral("a long complaint\n").repeated(100'000));
}

void CodeSignProcessTest::readsWhatASucceedingToolPrints()
{
    play("yes Identifier=qx.Nestlet | head -n 100000 >&2");
    QCOMPARE(m_codeSign->codesignDescribe(m_bundle),
             QStringLiteral("Identifier=qx.Nestlet\n").repeated(100'000));
}

void CodeSignProcessTest::saysWhyAToolCannotBeLaunched_data()
{
    QTest::addColumn<QString>("state");
    QTest::newRow("missing") << QStringLiteral("missing");
    QTest::newRow("a directory") << QStringLiteral("directory");
    QTest::newRow("without an interpreter") << QStringLiteral("interpreter");
    QTest::newRow("not executable") << QStringLiteral("mode");
}

void CodeSignProcessTest::saysWhyAToolCannotBeLaunched()
{
    QFETCH(QString, state);
    if (state == u"directory")
        m_files.createDirectories(m_tool);
    if (state == u"interpreter") {
        play("exit 0");
        m_files.writeAtomically(m_tool, QByteArrayView("#!/nowhere/sh\n"));
        QFile::setPermissions(m_tool.path(), QFile::ReadOwner | QFile::ExeOwner);
    }
    if (state == u"mode") {
        play("exit 0");
        QFile::setPermissions(m_tool.path(), QFile::ReadOwner | QFile::WriteOwner);
    }
    QVERIFY_THROWS_EXCEPTION(PlatformError, m_codeSign->codesignVerify(m_bundle));
    QVERIFY_THROWS_EXCEPTION(PlatformError, (void)m_codeSign->codesignDescribe(m_bundle));
    QVERIFY_THROWS_EXCEPTION(PlatformError, m_codeSign->adHocSign(m_bundle));
    QVERIFY(m_files.contents(m_directories->temporary()).isEmpty());
}

void CodeSignProcessTest::givesTheToolTheEntitlements()
{
    play(R"(cat "$6" >&2; exit 1)");
    const QString text = signing();
    QVERIFY(text.endsWith(QStringLiteral("\n<plist version=\"1.0\"><dict/></plist>")));
    QCOMPARE(text.size(), QStringLiteral("Ad-hoc signing failed: ").size() + 178);
}

QTEST_GUILESS_MAIN(CodeSignProcessTest)
#include "tst_codesignprocess.moc"
