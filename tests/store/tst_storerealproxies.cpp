#include "sandbox/common/docktile.h"
#include "sandbox/common/processes.h"
#include "tests/store/filetree.h"
#include "tests/store/realscene.h"
#include "tests/store/storefixture.h"

#include "builder/infoplist.h"
#include "model/uuidtext.h"
#include "platform/propertylist.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include <csignal>

namespace {

const QStringList signatureArtifacts{QStringLiteral("_CodeSignature"),
                                     QStringLiteral("_MASReceipt"),
                                     QStringLiteral("embedded.provisionprofile")};

QString infoPlist(const QString &bundle)
{
    return bundle + u"/Contents/Info.plist";
}

QSet<QString> differingKeys(const QVariantMap &one, const QVariantMap &other)
{
    QSet<QString> keys;
    for (const QString &key : one.keys() + other.keys()) {
        if (one.value(key) != other.value(key) || one.contains(key) != other.contains(key))
            keys.insert(key);
    }
    return keys;
}

} // namespace

/// Dock apps from the first click to the last, all of it real: template, signing tool, processes.
class StoreRealProxiesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_scene.endCompanion(); }

    void anInstalledFolderIsASignedCopyOfTheTemplate_data();
    void anInstalledFolderIsASignedCopyOfTheTemplate();
    void itsProcessIsFoundByIdentifier();
    void aRenameRebuildsInPlaceAndStartsANewProcess();
    void showInDockAfterARenameMovesTheBundle();
    void aColumnChangeRebuildsInPlaceAndStartsANewProcess();
    void aRebuildOfTheUnchangedIsByteIdentical();
    void aRunningCopyQuitsPolitely();
    void aStubbornCopyIsForcedAfterFiveSeconds();
    void aCopyKilledUnderOurFeetIsNoHindrance();
    void aCopyKilledWhileItIsAwaitedIsNoHindrance();
    void aCopyWhoseBundleIsGoneIsStillFound();
    void aProgramThatCannotStartIsReported();
    void twoFoldersOfOneNameGetTwoDockApps();
    void deletingAFolderTakesEverythingOfItAway();
    void resetTakesEverythingAway();

private:
    CompanionStore &store() { return m_scene.store(); }
    QString work() const { return m_scene.proxy(QStringLiteral("Work.app")); }
    // Begins with the folder "Work", installed and running; returns its process.
    void startInstalled(qint64 &process);
    void pin(const QString &bundle) const;
    QStringList pinnedPaths() const;
    QString displayName(const QString &bundle) const
    {
        return AppBundle::at(bundle).value().name();
    }

    RealScene m_scene;
};

void StoreRealProxiesTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_scene.restore();
}

void StoreRealProxiesTest::startInstalled(qint64 &process)
{
    m_scene.startWith({folderNamed(QStringLiteral("Work"))});
    QVERIFY(m_scene.install(m_scene.folder()));
    QCOMPARE(store().errorMessage(), QString());
    process = m_scene.waitForProcess(m_scene.folder());
    QVERIFY(process != 0);
}

void StoreRealProxiesTest::pin(const QString &bundle) const
{
    const QString file = m_scene.standIn().mac().dockPreferences();
    const QVariantMap preferences = readDictionary(file).value();
    const QVariantList tiles = persistentApps(preferences)
        << dockTileFor(AppBundle::at(bundle).value(), bundle);
    writeFile(
        file,
        serializePropertyList(withPersistentApps(preferences, tiles), PropertyListFormat::Binary));
}

QStringList StoreRealProxiesTest::pinnedPaths() const
{
    QStringList paths;
    const QString file = m_scene.standIn().mac().dockPreferences();
    for (const QVariant &tile : persistentApps(readDictionary(file).value()))
        paths.append(pathOfDockTile(tile).value());
    return paths;
}

void StoreRealProxiesTest::anInstalledFolderIsASignedCopyOfTheTemplate_data()
{
    QTest::addColumn<PropertyListFormat>("format");
    QTest::newRow("with an XML Info.plist") << PropertyListFormat::XML;
    QTest::newRow("with a binary Info.plist") << PropertyListFormat::Binary;
}

void StoreRealProxiesTest::anInstalledFolderIsASignedCopyOfTheTemplate()
{
    QFETCH(PropertyListFormat, format);
    const QVariantMap original = readDictionary(infoPlist(m_scene.nestlet())).value();
    writeFile(infoPlist(m_scene.nestlet()), serializePropertyList(original, format));
    QVERIFY(m_scene.signTemplate());
    const FileTree before = fileTree(m_scene.nestlet());

    qint64 process = 0;
    startInstalled(process);
    const DockFolder folder = m_scene.folder();
    QCOMPARE(m_scene.sealComplaint(work()), QString());
    QCOMPARE(differences(fileTree(m_scene.nestlet()), before), QStringList());

    const QVariantMap info = readDictionary(infoPlist(work())).value();
    QCOMPARE(differingKeys(original, info),
             (QSet<QString>{QStringLiteral("CFBundleDisplayName"), QStringLiteral("CFBundleName"),
                            QStringLiteral("CFBundleIdentifier"), QStringLiteral("DockFolderID"),
                            QStringLiteral("NestletSourceStamp"), QStringLiteral("LSUIElement")}));
    QCOMPARE(info.value(QStringLiteral("DockFolderID")).toString(), uuidText(folder.id));
    QCOMPARE(info.value(QStringLiteral("CFBundleIdentifier")).toString(),
             proxyBundleIdentifier(folder.id));
    QCOMPARE(info.value(QStringLiteral("CFBundleDisplayName")).toString(), folder.name);
    QCOMPARE(info.value(QStringLiteral("LSUIElement")), QVariant(false));

    // Links, modes and times; then every byte.
    const QString plist = QStringLiteral("Contents/Info.plist");
    QCOMPARE(differences(fileTree(m_scene.nestlet(), signatureArtifacts),
                         fileTree(work(), signatureArtifacts)),
             QStringList(plist));
    QStringList arguments{QStringLiteral("-rq"), QStringLiteral("--no-dereference")};
    for (const QString &name : signatureArtifacts)
        arguments << QStringLiteral("-x") << name;
    QCOMPARE(
        runTool(QStringLiteral("diff"), arguments << m_scene.nestlet() << work()).standardOutput,
        QStringLiteral("Files %1 and %2 differ\n")
            .arg(infoPlist(m_scene.nestlet()), infoPlist(work())));
    QVERIFY(!QFileInfo::exists(work() + u"/Contents/_MASReceipt"));
    QVERIFY(!QFileInfo::exists(work() + u"/Contents/embedded.provisionprofile"));
}

void StoreRealProxiesTest::itsProcessIsFoundByIdentifier()
{
    qint64 process = 0;
    startInstalled(process);
    QVERIFY(m_scene.hasLogged(process, u"started " + proxyBundleIdentifier(m_scene.folder().id)));
    QVERIFY(m_scene.hasLogged(process, QStringLiteral("shown"))); // it came to the front
    QVERIFY(m_scene.running(folderNamed(QStringLiteral("Another"))).isEmpty());

    m_scene.endCompanion();
    m_scene.restart(); // finds it again and, as at every launch, renews it
    QVERIFY(store().isInstalled(m_scene.folder().id));
    QVERIFY(m_scene.waitForProcess(m_scene.folder(), process) != 0);
}

void StoreRealProxiesTest::aRenameRebuildsInPlaceAndStartsANewProcess()
{
    qint64 before = 0;
    startInstalled(before);
    store().renameFolder(m_scene.folder().id, QStringLiteral("Play"));
    const qint64 after = m_scene.waitForProcess(m_scene.folder(), before);
    QVERIFY(after != 0);
    QCOMPARE(m_scene.proxies(), QStringList(QStringLiteral("Work.app")));
    QCOMPARE(displayName(work()), QStringLiteral("Play"));
    QCOMPARE(m_scene.sealComplaint(work()), QString());
    QVERIFY(!m_scene.hasLogged(after, QStringLiteral("shown"))); // it took nobody's focus
}

void StoreRealProxiesTest::showInDockAfterARenameMovesTheBundle()
{
    qint64 before = 0;
    startInstalled(before);
    pin(work());
    store().renameFolder(m_scene.folder().id, QStringLiteral("Play"));
    const qint64 renamed = m_scene.waitForProcess(m_scene.folder(), before);
    QVERIFY(renamed != 0);
    QVERIFY(m_scene.install(m_scene.folder()));
    QVERIFY(m_scene.waitForProcess(m_scene.folder(), renamed) != 0);
    QCOMPARE(m_scene.proxies(), QStringList(QStringLiteral("Play.app")));
    QCOMPARE(m_scene.sealComplaint(m_scene.proxy(QStringLiteral("Play.app"))), QString());
    QVERIFY(!pinnedPaths().contains(work()));
}

void StoreRealProxiesTest::aColumnChangeRebuildsInPlaceAndStartsANewProcess()
{
    qint64 before = 0;
    startInstalled(before);
    const FileTree bundle = fileTree(work());
    store().setGridColumns(m_scene.folder().id, 6);
    const qint64 after = m_scene.waitForProcess(m_scene.folder(), before);
    QVERIFY(after != 0);
    QCOMPARE(m_scene.proxies(), QStringList(QStringLiteral("Work.app")));
    QCOMPARE(m_scene.sealComplaint(work()), QString());
    QCOMPARE(fileTree(work()).keys(), bundle.keys());
    QVERIFY(m_scene.hasLogged(after,
                              QStringLiteral(R"(folder {"columns":6,"items":[],"name":"Work"})")));
}

void StoreRealProxiesTest::aRebuildOfTheUnchangedIsByteIdentical()
{
    qint64 before = 0;
    startInstalled(before);
    const QTemporaryDir kept;
    const QString earlier = kept.filePath(QStringLiteral("Work.app"));
    copyTree(work(), earlier);
    m_scene.restart();
    QVERIFY(m_scene.waitForProcess(m_scene.folder(), before) != 0);
    const ToolResult result
        = runTool(QStringLiteral("diff"),
                  {QStringLiteral("-r"), QStringLiteral("--no-dereference"), earlier, work()});
    QCOMPARE(result.standardOutput, QString());
    QCOMPARE(result.status, 0);
}

void StoreRealProxiesTest::aRunningCopyQuitsPolitely()
{
    qint64 process = 0;
    startInstalled(process);
    QVERIFY(m_scene.install(m_scene.folder()));
    QVERIFY(m_scene.waitForProcess(m_scene.folder(), process) != 0);
    QVERIFY(m_scene.hasLogged(process, QStringLiteral("quitting")));
}

void StoreRealProxiesTest::aStubbornCopyIsForcedAfterFiveSeconds()
{
    writeFile(m_scene.nestlet() + u"/Contents/Resources/ignore-term", QByteArrayLiteral("\n"));
    QVERIFY(m_scene.signTemplate());
    qint64 stubborn = 0;
    startInstalled(stubborn);

    QElapsedTimer timer;
    timer.start();
    store().renameFolder(m_scene.folder().id, QStringLiteral("Play"));
    QVERIFY(
        QTest::qWaitFor([&] { return ::kill(static_cast<pid_t>(stubborn), 0) != 0; }, patience));
    const qint64 elapsed = timer.elapsed();
    QVERIFY(m_scene.hasLogged(stubborn, QStringLiteral("ignoring termination")));
    QVERIFY2(elapsed >= 4900, qPrintable(QString::number(elapsed)));
    QVERIFY2(elapsed < 30'000, qPrintable(QString::number(elapsed)));
    qInfo("forced after %lld ms", elapsed);
    QVERIFY(m_scene.waitForProcess(m_scene.folder(), stubborn) != 0);
    QCOMPARE(displayName(work()), QStringLiteral("Play"));
}

void StoreRealProxiesTest::aCopyKilledUnderOurFeetIsNoHindrance()
{
    qint64 process = 0;
    startInstalled(process);
    QCOMPARE(::kill(static_cast<pid_t>(process), SIGKILL), 0);
    QVERIFY(m_scene.waitUntilGone(m_scene.folder()));
    QVERIFY(store().isInstalled(m_scene.folder().id));
    store().setGridColumns(m_scene.folder().id, 3);
    QVERIFY(m_scene.waitForProcess(m_scene.folder(), process) != 0);
    QCOMPARE(m_scene.sealComplaint(work()), QString());
}

void StoreRealProxiesTest::aCopyKilledWhileItIsAwaitedIsNoHindrance()
{
    writeFile(m_scene.nestlet() + u"/Contents/Resources/ignore-term", QByteArrayLiteral("\n"));
    QVERIFY(m_scene.signTemplate());
    qint64 stubborn = 0;
    startInstalled(stubborn);
    store().setGridColumns(m_scene.folder().id, 3);
    const QString refusal = QStringLiteral("ignoring termination");
    QVERIFY(QTest::qWaitFor([&] { return m_scene.hasLogged(stubborn, refusal); }, patience));
    QCOMPARE(::kill(static_cast<pid_t>(stubborn), SIGKILL), 0);
    QVERIFY(m_scene.waitForProcess(m_scene.folder(), stubborn) != 0);
    QCOMPARE(m_scene.sealComplaint(work()), QString());
}

void StoreRealProxiesTest::aCopyWhoseBundleIsGoneIsStillFound()
{
    qint64 process = 0;
    startInstalled(process);
    QVERIFY(QDir(work()).removeRecursively());
    store().refreshPresence();
    QVERIFY(!store().isInstalled(m_scene.folder().id));
    QCOMPARE(m_scene.running(m_scene.folder()).size(), 1);
    QVERIFY(m_scene.install(m_scene.folder()));
    QVERIFY(m_scene.waitForProcess(m_scene.folder(), process) != 0);
    QVERIFY(m_scene.hasLogged(process, QStringLiteral("quitting")));
}

void StoreRealProxiesTest::aProgramThatCannotStartIsReported()
{
    const QString program = QStringLiteral("/Contents/MacOS/Nestlet");
    QVERIFY(QFile::setPermissions(m_scene.nestlet() + program, QFile::ReadOwner));
    QVERIFY(m_scene.signTemplate());
    m_scene.startWith({folderNamed(QStringLiteral("Work"))});
    QVERIFY(m_scene.install(m_scene.folder()));
    QTRY_COMPARE(store().errorMessage(),
                 QStringLiteral("Could not launch “%1”: Permission denied").arg(work() + program));
    QVERIFY(m_scene.running(m_scene.folder()).isEmpty());
}

void StoreRealProxiesTest::twoFoldersOfOneNameGetTwoDockApps()
{
    m_scene.startWith({folderNamed(QStringLiteral("Work")), folderNamed(QStringLiteral("Work"))});
    store().installAllProxies();
    const qint64 first = m_scene.waitForProcess(m_scene.folder(0));
    const qint64 second = m_scene.waitForProcess(m_scene.folder(1));
    QVERIFY(first != 0 && second != 0 && first != second);
    QTRY_VERIFY(!store().isInstalling(m_scene.folder(1).id));
    QCOMPARE(store().errorMessage(), QString());
    const QString distinct
        = QStringLiteral("Work %1.app").arg(uuidText(m_scene.folder(1).id).left(8));
    QCOMPARE(m_scene.proxies(), (QStringList{distinct, QStringLiteral("Work.app")}));
    QCOMPARE(AppBundle::at(work()).value().dockFolderID(), m_scene.folder(0).id);
    QCOMPARE(AppBundle::at(m_scene.proxy(distinct)).value().dockFolderID(), m_scene.folder(1).id);
    QCOMPARE(m_scene.sealComplaint(work()) + m_scene.sealComplaint(m_scene.proxy(distinct)),
             QString());

    store().deleteFolder(m_scene.folder(0).id);
    QCOMPARE(m_scene.proxies(), QStringList(distinct));
    QCOMPARE(m_scene.waitForProcess(m_scene.folder(0)), second); // the other one is left alone
}

void StoreRealProxiesTest::deletingAFolderTakesEverythingOfItAway()
{
    qint64 process = 0;
    startInstalled(process);
    const QStringList others = pinnedPaths();
    pin(work());
    QVERIFY(pinnedPaths().contains(work()));
    QProcess dock;
    dock.setProcessEnvironment(m_scene.standIn().environment());
    dock.start(builtProgram(QStringLiteral("bin/sandbox-dock")), {m_scene.standIn().mac().root()});
    const QRegularExpression ready(QStringLiteral("(\\d+) started Dock\n(?=.*\\b\\1 ready\n)"),
                                   QRegularExpression::DotMatchesEverythingOption);
    const auto docksReady = [&] {
        int count = 0;
        for (auto match = ready.globalMatch(m_scene.standIn().log()); match.hasNext(); ++count)
            match.next();
        return count;
    };
    QTRY_COMPARE_WITH_TIMEOUT(docksReady(), 1, patience);

    const DockFolder folder = m_scene.folder();
    store().deleteFolder(folder.id);
    QCOMPARE(store().errorMessage(), QString());
    QCOMPARE(m_scene.proxies(), QStringList());
    QCOMPARE(pinnedPaths(), others);
    QVERIFY(m_scene.waitUntilGone(folder));
    QVERIFY(m_scene.hasLogged(process, QStringLiteral("quitting")));
    QTRY_COMPARE_WITH_TIMEOUT(docksReady(), 2, patience); // it came back, and reads the tiles anew
    dock.kill(); // the thread sanitizer would hold back what asks it to end
    QVERIFY(dock.waitForFinished(patience));
}

void StoreRealProxiesTest::resetTakesEverythingAway()
{
    qint64 process = 0;
    startInstalled(process);
    const DockFolder folder = m_scene.folder();
    const QStringList others = pinnedPaths();
    pin(work());
    const QString foreign = m_scene.proxy(QStringLiteral("Foreign.app"));
    copyTree(m_scene.standIn().path(u"Applications/Beta.app"), foreign);
    writeFile(m_scene.proxy(QStringLiteral("Notes.txt")), QByteArrayLiteral("not an app"));
    const QString support = m_scene.standIn().path(u"Users/me/Library/Application Support");
    writeFile(support + u"/Nestlet Companion/Backups/earlier.json", QByteArrayLiteral("kept"));
    const FileTree nestlet = fileTree(m_scene.nestlet());

    store().resetEverything();
    QCOMPARE(store().errorMessage(), QString());
    QCOMPARE(namesOf(store().folders()), QStringList(QStringLiteral("Dock Folder 1")));
    QVERIFY(!QFileInfo::exists(m_scene.proxyDirectory()));
    QVERIFY(!QFileInfo::exists(m_scene.standIn().mac().folderLibraryPath()));
    QVERIFY(!QFileInfo::exists(support + u"/Nestlet Companion"));
    QCOMPARE(pinnedPaths(), others);
    QVERIFY(m_scene.waitUntilGone(folder));
    QCOMPARE(differences(fileTree(m_scene.nestlet()), nestlet), QStringList());
    QVERIFY(QFileInfo::exists(m_scene.standIn().path(u"Applications/Beta.app")));
}

QTEST_MAIN(StoreRealProxiesTest)
#include "tst_storerealproxies.moc"
