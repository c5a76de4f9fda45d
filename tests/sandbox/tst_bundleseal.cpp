#include "sandbox/common/files.h"
#include "sandbox/make/bundlewriter.h"
#include "tests/sandbox/tool.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

/// The signing tool, run as a program on bundles on disk.
class BundleSealTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void acceptsWhatItSigned();
    void findsTampering_data();
    void findsTampering();
    void looksIntoNestedCodeOnlyWhenAsked();
    void mindsLinksThatLeaveOnlyWhenStrict();
    void refusesWhatIsNotSigned_data();
    void refusesWhatIsNotSigned();
    void signsOverASignatureOnlyWhenForced();
    void signsNestedCodeFirstOrNeedsItSigned();
    void signsTheSameBundleToTheSameBytes();
    void describesAnAdHocSignature();
    void describesAnIdentity();
    void recordsEntitlements();
    void refusesBadEntitlements();
    void explainsItsUsage();
    void tellsAnUnmetRequirementFromAFailure();
    void verifiesALargeBundle();

private:
    ToolResult codesign(const QString &options, const QString &path) const
    {
        QStringList arguments = options.split(u' ', Qt::SkipEmptyParts);
        for (QString &argument : arguments)
            argument.replace(u'~', u' ');
        return runTool(builtProgram(QStringLiteral("sandbox/parts/codesign")), arguments << path);
    }
    ToolResult verify() const
    {
        return codesign(QStringLiteral("--verify --deep --strict"), m_bundle);
    }
    // Runs a shell command inside the bundle.
    void tamper(const QString &command) const
    {
        QCOMPARE(runTool(QStringLiteral("sh"),
                         {QStringLiteral("-c"), QStringLiteral("cd \"$0\"/Contents && ") + command,
                          m_bundle})
                     .status,
                 0);
    }
    QString entitlements(const QByteArray &text)
    {
        QString path = m_dir->filePath(QStringLiteral("entitlements.plist"));
        writeFile(path, text);
        return path;
    }

    QTemporaryDir m_original;
    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_bundle;
};

void BundleSealTest::initTestCase()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    const QString bundle = m_original.filePath(QStringLiteral("Some App.app"));
    const QString program = builtProgram(QStringLiteral("sandbox/parts/sample-app"));
    const QString contents = bundle + u"/Contents/";
    writeApplication(bundle,
                     applicationInfo(QStringLiteral("Some App"), QStringLiteral("test.some"),
                                     QStringLiteral("Some App")),
                     program, {});
    writeFile(contents + u"Resources/a.txt", QByteArrayLiteral("a"));
    writeFile(contents + u"Resources/deep/down/b.txt", QByteArrayLiteral("b"));
    writeFile(contents + u"Resources/e\u0301.txt", QByteArrayLiteral("decomposed"));
    makeLink(contents + u"Resources/link", QStringLiteral("a.txt"));
    writeFramework(contents + u"Frameworks/Kit.framework", QStringLiteral("test.kit"), program);
    writeApplication(contents + u"Helpers/Helper.app",
                     applicationInfo(QStringLiteral("Helper"), QStringLiteral("test.helper"),
                                     QStringLiteral("Helper")),
                     program, {});
    QCOMPARE(codesign(QStringLiteral("--force --deep --sign -"), bundle).status, 0);
}

void BundleSealTest::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    m_bundle = m_dir->filePath(QStringLiteral("Some App.app"));
    copyTree(m_original.filePath(QStringLiteral("Some App.app")), m_bundle);
}

void BundleSealTest::acceptsWhatItSigned()
{
    const ToolResult result = verify();
    QCOMPARE(result.status, 0);
    QCOMPARE(result.standardError, QString());
    QCOMPARE(codesign(QStringLiteral("--verify -v"), m_bundle).standardError,
             m_bundle + QStringLiteral(": valid on disk\n"));
    QCOMPARE(codesign(QStringLiteral("--verify --deep --strict"), m_bundle + u'/').status, 0);
}

void BundleSealTest::findsTampering_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QString>("detail");
    const QString seal = QStringLiteral(": a sealed resource is missing or invalid\n");
    const QString code
        = QStringLiteral(": invalid signature (code or signature have been modified)\n");
    const QString info
        = QStringLiteral(": invalid Info.plist (plist or signature have been modified)\n");
    const auto row = [](const char *name, const char *command, const QString &reason,
                        const char *detail = "") {
        QTest::newRow(name) << QString::fromUtf8(command) << reason << QString::fromUtf8(detail);
    };
    row("a modified file", "printf x > Resources/a.txt", seal,
        "file modified: %1/Contents/Resources/a.txt");
    row("a modified file far down", "printf x >> Resources/deep/down/b.txt", seal,
        "file modified: %1/Contents/Resources/deep/down/b.txt");
    row("a file of the same size", "printf z > Resources/a.txt", seal, "file modified: ");
    row("an added file", "printf x > Resources/new", seal, "file added: %1/Contents/Resources/new");
    row("an added hidden file", "printf x > Resources/.new", seal,
        "file added: %1/Contents/Resources/.new");
    row("an added receipt", "mkdir _MASReceipt; printf x > _MASReceipt/receipt", seal,
        "file added: %1/Contents/_MASReceipt/receipt");
    row("a missing file", "rm Resources/a.txt", seal, "file missing: %1/Contents/Resources/a.txt");
    row("a renamed file", "mv Resources/a.txt Resources/A.txt", seal, "file added: ");
    row("a file named by composed letters",
        "mv Resources/e*.txt Resources/$(printf '\\303\\251').txt", seal, "file missing: ");
    row("a link that leads elsewhere", "ln -sfn deep/down/b.txt Resources/link", seal,
        "file modified: %1/Contents/Resources/link");
    row("a link replaced by its file", "rm Resources/link; cp Resources/a.txt Resources/link", seal,
        "file modified: %1/Contents/Resources/link");
    row("a file replaced by a link", "rm Resources/a.txt; ln -s link2 Resources/a.txt", seal,
        "file modified: %1/Contents/Resources/a.txt");
    row("a folder replaced by a link", "rm -r Resources/deep; ln -s .. Resources/deep", seal,
        "file missing: ");
    row("a changed Info.plist", "sed -i s/test.some/test.none/ Info.plist", info);
    row("a spoilt Info.plist", "printf nonsense > Info.plist", info);
    row("a changed program", "printf x >> 'MacOS/Some App'", code);
    row("a missing program", "rm 'MacOS/Some App'", code);
    row("a second program", "printf x > MacOS/other", seal, "file added: %1/Contents/MacOS/other");
    row("a changed list of files", "sed -i s/hash2/hash1/ _CodeSignature/CodeResources", code);
    row("a missing list of files", "rm _CodeSignature/CodeResources", code);
    row("an edited record", "sed -i s/test.some/test.none/ _CodeSignature/CodeSignature", code);
    row("a missing record", "rm _CodeSignature/CodeSignature",
        QStringLiteral(": code object is not signed at all\n"));
    row("a missing signature", "rm -r _CodeSignature",
        QStringLiteral(": code object is not signed at all\n"));
    row("something beside Contents", "printf x > ../stray",
        QStringLiteral(": unsealed contents present in the bundle root\n"));
    row("a changed program of a framework", "printf x >> Frameworks/Kit.framework/Versions/A/Kit",
        seal, "In subcomponent: %1/Contents/Frameworks/Kit.framework");
    row("a link between versions that leads elsewhere",
        "ln -sfn Versions/A/Resources/Info.plist Frameworks/Kit.framework/Kit", seal,
        "file modified: %1/Contents/Frameworks/Kit.framework/Kit");
    row("a framework that lost its signature",
        "rm -r Frameworks/Kit.framework/Versions/A/_CodeSignature", seal,
        "In subcomponent: %1/Contents/Frameworks/Kit.framework");
    row("a missing framework", "rm -r Frameworks/Kit.framework", seal,
        "file missing: %1/Contents/Frameworks/Kit.framework");
    row("a file added to a helper", "printf x > Helpers/Helper.app/Contents/new", seal,
        "file added: %1/Contents/Helpers/Helper.app/Contents/new");
}

void BundleSealTest::findsTampering()
{
    QFETCH(QString, command);
    QFETCH(QString, reason);
    QFETCH(QString, detail);
    tamper(command);
    const ToolResult result = verify();
    QCOMPARE(result.status, 1);
    QVERIFY2(result.standardError.startsWith(m_bundle + reason), qPrintable(result.standardError));
    QVERIFY2(result.standardError.contains(detail.replace(QStringLiteral("%1"), m_bundle)),
             qPrintable(result.standardError));
}

void BundleSealTest::looksIntoNestedCodeOnlyWhenAsked()
{
    tamper(QStringLiteral("printf x > Helpers/Helper.app/Contents/new"));
    QCOMPARE(codesign(QStringLiteral("--verify"), m_bundle).status, 0);
    QCOMPARE(codesign(QStringLiteral("--verify --deep"), m_bundle).status, 1);
    QCOMPARE(
        codesign(QStringLiteral("--force --sign -"), m_bundle + u"/Contents/Helpers/Helper.app")
            .status,
        0);
    // Whole again, but not the helper that was sealed.
    const ToolResult result = codesign(QStringLiteral("--verify"), m_bundle);
    QCOMPARE(result.status, 1);
    QVERIFY(result.standardError.contains(
        QStringLiteral("file modified: %1/Contents/Helpers/Helper.app").arg(m_bundle)));
}

void BundleSealTest::mindsLinksThatLeaveOnlyWhenStrict()
{
    for (const QString &target :
         {QStringLiteral("/etc/hostname"), QStringLiteral("../../../outside"),
          QStringLiteral("../Resources/../../../x")}) {
        tamper(QStringLiteral("ln -sfn %1 Resources/link").arg(target));
        QCOMPARE(codesign(QStringLiteral("--force --deep --sign -"), m_bundle).status, 0);
        QCOMPARE(codesign(QStringLiteral("--verify --deep"), m_bundle).status, 0);
        const ToolResult result = verify();
        QCOMPARE(result.status, 1);
        QVERIFY(result.standardError.startsWith(
            m_bundle + u": invalid destination for symbolic link in bundle"));
    }
    tamper(QStringLiteral("ln -sfn ../Resources/missing Resources/link"));
    QCOMPARE(codesign(QStringLiteral("--force --deep --sign -"), m_bundle).status, 0);
    QCOMPARE(verify().status, 0); // leads nowhere, but inside
}

void BundleSealTest::refusesWhatIsNotSigned_data()
{
    QTest::addColumn<QString>("below");
    QTest::addColumn<QString>("reason");
    QTest::newRow("nothing there")
        << QStringLiteral("/missing.app") << QStringLiteral("No such file or directory");
    QTest::newRow("a plain file") << QStringLiteral("/Some App.app/Contents/Resources/a.txt")
                                  << QStringLiteral("code object is not signed at all");
    QTest::newRow("a plain folder")
        << QStringLiteral("/Some App.app/Contents/Resources/deep")
        << QStringLiteral("bundle format unrecognized, invalid, or unsuitable");
}

void BundleSealTest::refusesWhatIsNotSigned()
{
    QFETCH(QString, below);
    QFETCH(QString, reason);
    const QString path = m_dir->path() + below;
    for (const QString &options :
         {QStringLiteral("--verify --deep --strict"), QStringLiteral("-dvvv")}) {
        const ToolResult result = codesign(options, path);
        QCOMPARE(result.status, 1);
        QCOMPARE(result.standardError, QString(path + u": " + reason + u'\n'));
    }
}

void BundleSealTest::signsOverASignatureOnlyWhenForced()
{
    const ToolResult result = codesign(QStringLiteral("--sign -"), m_bundle);
    QCOMPARE(result.status, 1);
    QCOMPARE(result.standardError, QString(m_bundle + u": is already signed\n"));
    tamper(QStringLiteral("printf x > Resources/a.txt"));
    QCOMPARE(codesign(QStringLiteral("--force --sign -"), m_bundle).status, 0);
    QCOMPARE(verify().status, 0);
}

void BundleSealTest::signsNestedCodeFirstOrNeedsItSigned()
{
    tamper(QStringLiteral("rm -r _CodeSignature Helpers/Helper.app/Contents/_CodeSignature"));
    const ToolResult result = codesign(QStringLiteral("--sign -"), m_bundle);
    QCOMPARE(result.status, 1);
    QCOMPARE(result.standardError,
             QString(m_bundle + u": code object is not signed at all\nIn subcomponent: " + m_bundle
                     + u"/Contents/Helpers/Helper.app\n"));
    QCOMPARE(codesign(QStringLiteral("--force --deep --sign -"), m_bundle).status, 0);
    QCOMPARE(verify().status, 0);
}

void BundleSealTest::signsTheSameBundleToTheSameBytes()
{
    const QString record = m_bundle + u"/Contents/_CodeSignature/CodeSignature";
    const QByteArray before = readFile(record);
    QCOMPARE(codesign(QStringLiteral("--force --deep --sign -"), m_bundle).status, 0);
    QCOMPARE(readFile(record), before);
}

void BundleSealTest::describesAnAdHocSignature()
{
    const ToolResult result = codesign(QStringLiteral("-dvvv"), m_bundle);
    QCOMPARE(result.status, 0);
    QCOMPARE(result.standardOutput, QString());
    const QStringList lines = result.standardError.split(u'\n');
    QCOMPARE(lines.first(), QString(u"Executable=" + m_bundle + u"/Contents/MacOS/Some App"));
    QVERIFY(lines.contains(QStringLiteral("Identifier=test.some")));
    QVERIFY(lines.contains(QStringLiteral("Signature=adhoc")));
    QVERIFY(lines.contains(QStringLiteral("TeamIdentifier=not set")));
    QVERIFY(result.standardError.contains(QStringLiteral("flags=0x2(adhoc)")));
    QVERIFY(result.standardError.contains(QStringLiteral("Format=app bundle with Mach-O thin (")));
    QVERIFY(result.standardError.contains(QStringLiteral("Sealed Resources version=2 rules=")));
    QCOMPARE(codesign(QStringLiteral("-d"), m_bundle).standardError.count(u'\n'), 1);
}

void BundleSealTest::describesAnIdentity()
{
    QCOMPARE(
        codesign(QStringLiteral("-f --deep -s Developer~ID~Application:~Some~One~(TEAM123456)"),
                 m_bundle)
            .status,
        0);
    const QString text = codesign(QStringLiteral("-dvvv"), m_bundle).standardError;
    QVERIFY(text.contains(
        QStringLiteral("Authority=Developer ID Application: Some One (TEAM123456)\n")));
    QVERIFY(text.contains(QStringLiteral("TeamIdentifier=TEAM123456\n")));
    QVERIFY(!text.contains(QStringLiteral("adhoc")));
    const QString nested
        = codesign(QStringLiteral("-dvvv"), m_bundle + u"/Contents/Frameworks/Kit.framework")
              .standardError;
    QVERIFY(nested.contains(QStringLiteral("Identifier=test.kit\n")));
    QVERIFY(nested.contains(QStringLiteral("TeamIdentifier=TEAM123456\n")));
}

void BundleSealTest::recordsEntitlements()
{
    const QByteArray text = QByteArrayLiteral("<plist version=\"1.0\"><dict/></plist>");
    const QString options
        = QStringLiteral("--force --deep --sign - --entitlements ") + entitlements(text);
    QCOMPARE(codesign(options, m_bundle).status, 0);
    QCOMPARE(verify().status, 0);
    QCOMPARE(codesign(QStringLiteral("-d --entitlements -"), m_bundle).standardOutput.toUtf8(),
             text);
}

void BundleSealTest::refusesBadEntitlements()
{
    const QString sign = QStringLiteral("--force --sign - --entitlements ");
    QCOMPARE(codesign(sign + entitlements(QByteArrayLiteral("nonsense")), m_bundle).status, 1);
    QCOMPARE(codesign(sign + entitlements(QByteArrayLiteral("<plist><array/></plist>")), m_bundle)
                 .status,
             1);
    QCOMPARE(codesign(sign + u"/missing.plist", m_bundle).status, 1);
    QCOMPARE(verify().status, 0); // left as it was
}

void BundleSealTest::explainsItsUsage()
{
    const ToolResult result = codesign(QStringLiteral("--verify --unheard-of"), m_bundle);
    QCOMPARE(result.status, 2);
    QVERIFY(result.standardError.startsWith(u"Usage: codesign"));
}

void BundleSealTest::tellsAnUnmetRequirementFromAFailure()
{
    QCOMPARE(codesign(QStringLiteral("--verify -R=identifier~test.some"), m_bundle).status, 0);
    QCOMPARE(codesign(QStringLiteral("--verify -R=identifier~test.none"), m_bundle).status, 3);
    tamper(QStringLiteral("printf x > Resources/a.txt"));
    QCOMPARE(codesign(QStringLiteral("--verify -R=identifier~test.none"), m_bundle).status, 1);
}

void BundleSealTest::verifiesALargeBundle()
{
    const QByteArray block(75'000, 'n');
    for (int i = 0; i < 400; ++i)
        writeFile(m_bundle + QStringLiteral("/Contents/Resources/many/%1").arg(i), block);
    QCOMPARE(codesign(QStringLiteral("--force --deep --sign -"), m_bundle).status, 0);
    QCOMPARE(verify().status, 0);
}

QTEST_GUILESS_MAIN(BundleSealTest)
#include "tst_bundleseal.moc"
