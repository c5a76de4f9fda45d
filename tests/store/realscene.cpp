#include "tests/store/realscene.h"

#include "builder/infoplist.h"
#include "model/libraryjson.h"
#include "model/nestlet.h"
#include "sandbox/common/processes.h"

#include <QDir>
#include <QFileInfo>

#include <array>
#include <csignal>

namespace {

const QString templatePath = QStringLiteral("Applications/Nestlet.app");
const QString toolPath = QStringLiteral("usr/bin");

// What tests may spoil.
const std::array pristinePaths{templatePath, toolPath, QStringLiteral("Users/me/Applications"),
                               QStringLiteral("Users/me/Library")};

void removeAll(const QString &path)
{
    if (runTool(QStringLiteral("rm"), {QStringLiteral("-rf"), path}).status != 0)
        qFatal("Could not remove %s", qPrintable(path));
}

} // namespace

RealScene::RealScene()
{
    if (m_standIn.made().status != 0)
        qFatal("%s", qPrintable(m_standIn.made().standardError));
    qputenv("NESTLET_STANDIN_LOG", m_standIn.logPath().toUtf8());
    for (const QString &path : pristinePaths)
        keepPristine(path);
}

RealScene::~RealScene()
{
    m_companion.reset();
    endPrograms();
}

void RealScene::keepPristine(const QString &below) const
{
    const QString kept = m_pristine.filePath(below);
    makeDirectories(QFileInfo(kept).path());
    copyTree(m_standIn.path(below), kept);
}

void RealScene::putBack(const QString &below) const
{
    removeAll(m_standIn.path(below));
    copyTree(m_pristine.filePath(below), m_standIn.path(below));
}

void RealScene::endPrograms() const
{
    for (const StandInProcess &process : standInProcesses(m_standIn.mac()))
        ::kill(static_cast<pid_t>(process.processID), SIGKILL);
}

void RealScene::restore()
{
    m_companion.reset();
    endPrograms();
    QTRY_COMPARE(standInProcesses(m_standIn.mac()).size(), 0);
    for (const QString &path : pristinePaths)
        putBack(path);
    QFile::remove(m_standIn.logPath());
}

void RealScene::startWith(const QList<DockFolder> &folders)
{
    writeFile(m_standIn.mac().folderLibraryPath(),
              encodeLibrary({.folders = folders, .selectedFolderID = folders.first().id}));
    restart();
}

void RealScene::restart()
{
    m_companion.reset();
    m_companion = std::make_unique<RealCompanion>(m_standIn.mac().root());
    m_companion->engine.store.start();
}

QString RealScene::nestlet() const
{
    return m_standIn.path(templatePath);
}

QString RealScene::codesign() const
{
    return m_standIn.path(u"usr/bin/codesign");
}

QString RealScene::proxyDirectory() const
{
    return m_standIn.path(u"Users/me/Applications/Nestlet");
}

QString RealScene::proxy(const QString &fileName) const
{
    return proxyDirectory() + u'/' + fileName;
}

QStringList RealScene::proxies() const
{
    return QDir(proxyDirectory())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

QString RealScene::sealComplaint(const QString &bundle) const
{
    const ToolResult result = runTool(
        codesign(),
        {QStringLiteral("--verify"), QStringLiteral("--deep"), QStringLiteral("--strict"), bundle},
        m_standIn.environment());
    return result.status == 0 ? QString() : u"refused: " + result.standardError;
}

bool RealScene::signTemplate() const
{
    const QString maker
        = QStringLiteral("Developer ID Application: Nestlet (%1)").arg(expectedTeamIdentifier);
    return runTool(codesign(),
                   {QStringLiteral("--force"), QStringLiteral("--deep"), QStringLiteral("--sign"),
                    maker, nestlet()},
                   m_standIn.environment())
               .status
        == 0;
}

bool RealScene::install(const DockFolder &folder)
{
    store().installProxy(folder.id);
    return QTest::qWaitFor([&] { return !store().isInstalling(folder.id); }, patience);
}

qint64 RealScene::waitForProcess(const DockFolder &folder, qint64 before)
{
    qint64 process = 0;
    const auto isReady = [&] {
        const QList<RunningApplication> found = running(folder);
        process = found.size() == 1 ? found.first().processID : 0;
        return process != 0 && process != before && hasLogged(process, QStringLiteral("ready"));
    };
    return QTest::qWaitFor(isReady, patience) ? process : 0;
}

QList<RunningApplication> RealScene::running(const DockFolder &folder)
{
    return platform().applications->withBundleIdentifier(proxyBundleIdentifier(folder.id));
}

bool RealScene::waitUntilGone(const DockFolder &folder)
{
    return QTest::qWaitFor([&] { return running(folder).isEmpty(); }, patience);
}

bool RealScene::hasLogged(qint64 process, const QString &line) const
{
    return m_standIn.log().contains(QStringLiteral("%1 %2\n").arg(process).arg(line));
}
