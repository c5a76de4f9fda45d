#include "sandbox/common/launcher.h"

#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>

#include <csignal>

namespace {

QProcessEnvironment environmentFor(const StandInMac &mac, const AppBundle &app, int anchor)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("__CFBundleIdentifier"), app.identifier());
    environment.insert(QString::fromLatin1(StandInMac::rootVariable()), mac.root());
    environment.insert(QStringLiteral("NESTLET_ACTIVATES"), QStringLiteral("1"));
    environment.insert(QStringLiteral("NESTLET_STANDIN_ANCHOR"), QString::number(anchor));
    return environment;
}

} // namespace

bool launch(const StandInMac &mac, const AppBundle &app, int anchor)
{
    QProcess process;
    // An application leads a session of its own; that tells it from what it starts in turn.
    process.setProgram(QStringLiteral("setsid"));
    process.setArguments({app.executable()});
    process.setProcessEnvironment(environmentFor(mac, app, anchor));
    process.setWorkingDirectory(mac.home());
    // Its output would otherwise keep a pipe of the launching program open.
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

void bringForward(const StandInProcess &process, int anchor)
{
    if (!handlesSignal(process.processID, SIGUSR1))
        return;
    sigval value{};
    value.sival_int = anchor;
    sigqueue(static_cast<pid_t>(process.processID), SIGUSR1, value);
}

bool openLikeDock(const StandInMac &mac, const QString &path, int anchor)
{
    const auto app = AppBundle::at(path);
    if (!app)
        return false;
    const QString executable
        = QFileInfo(path).canonicalFilePath() + u"/Contents/MacOS/" + app->executableName();
    for (const StandInProcess &process : standInProcesses(mac)) {
        if (process.executable == executable) {
            bringForward(process, anchor);
            return true;
        }
    }
    return launch(mac, *app, anchor);
}
