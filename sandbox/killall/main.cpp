#include "sandbox/common/processes.h"
#include "sandbox/common/standinmac.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <csignal>
#include <cstdio>

namespace {

int terminateAll(const StandInMac &mac, const QString &name)
{
    int count = 0;
    for (const StandInProcess &process : standInProcesses(mac)) {
        if (QFileInfo(process.executable).fileName() == name
            && kill(static_cast<pid_t>(process.processID), SIGTERM) == 0)
            ++count;
    }
    return count;
}

} // namespace

/// Asks every program of this stand-in Mac that has one of the given names to quit. Programs
/// outside of it, and those of other stand-ins, are never touched.
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList names = QCoreApplication::arguments().sliced(1);
    const auto mac = StandInMac::current();
    if (names.isEmpty() || !mac) {
        std::fputs("usage: killall name ...\n", stderr);
        return 1;
    }
    int status = 0;
    for (const QString &name : names) {
        if (terminateAll(*mac, name) == 0) {
            std::fputs("No matching processes belonging to you were found\n", stderr);
            status = 1;
        }
    }
    return status;
}
