#include "sandbox/supervisor/supervisor.h"

#include "sandbox/common/statelog.h"

#include <QFileInfo>

#include <csignal>

#include <sys/prctl.h>

namespace {

constexpr std::chrono::milliseconds soon{150};
constexpr std::chrono::milliseconds later{5000};
constexpr int quitPatience = 1000;

} // namespace

Supervisor::Supervisor(const StandInMac &mac, QObject *parent)
    : QObject(parent)
    , m_mac(mac)
{
    m_restart.setSingleShot(true);
    connect(&m_restart, &QTimer::timeout, this, &Supervisor::startDock);
    connect(&m_dock, &QProcess::finished, this, &Supervisor::dockEnded);
    connect(&m_dock, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            dockEnded();
    });
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &Supervisor::checkStandIn);
    m_watcher.addPath(m_mac.root());
    m_dock.setProcessChannelMode(QProcess::ForwardedChannels);
    // However this process ends, the Dock is not left behind.
    m_dock.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
}

void Supervisor::start()
{
    startDock();
}

void Supervisor::startDock()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(StandInMac::rootVariable()), m_mac.root());
    environment.insert(QStringLiteral("__CFBundleIdentifier"), QStringLiteral("com.apple.dock"));
    m_dock.setProcessEnvironment(environment);
    m_dock.start(m_mac.dockApp() + u"/Contents/MacOS/Dock", {});
}

void Supervisor::dockEnded()
{
    checkStandIn();
    if (m_isStopping)
        return Q_EMIT stopped();
    logState(QStringLiteral("Dock ended"));
    const bool hasFailed = m_dock.error() == QProcess::FailedToStart
        || (m_dock.exitStatus() == QProcess::NormalExit && m_dock.exitCode() != 0);
    m_restart.start(hasFailed ? later : soon); // one that was killed comes back at once
}

void Supervisor::checkStandIn()
{
    if (!m_isStopping && !QFileInfo::exists(m_mac.marker()))
        stop();
}

void Supervisor::stop()
{
    if (std::exchange(m_isStopping, true))
        return;
    m_restart.stop();
    if (m_dock.state() == QProcess::NotRunning)
        return Q_EMIT stopped();
    m_dock.terminate();
    QTimer::singleShot(quitPatience, &m_dock, &QProcess::kill);
}
