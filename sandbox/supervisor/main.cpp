#include "sandbox/common/signals.h"
#include "sandbox/common/standinmac.h"
#include "sandbox/supervisor/supervisor.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>

namespace {

std::optional<StandInMac> namedStandIn()
{
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() > 2 || (arguments.size() == 2 && arguments.at(1).startsWith(u'-')))
        return std::nullopt;
    const auto mac = arguments.size() == 2 ? std::optional(StandInMac(arguments.at(1)))
                                           : StandInMac::current();
    return mac && QFileInfo::exists(mac->marker()) ? mac : std::nullopt;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const auto mac = namedStandIn();
    if (!mac) {
        std::fputs("usage: sandbox-dock DIR\nRuns the Dock of the stand-in Mac in DIR until it is "
                   "told to quit.\n",
                   stderr);
        return 2;
    }
    Signals signals;
    Supervisor supervisor(*mac);
    QObject::connect(&signals, &Signals::terminationRequested, &supervisor, &Supervisor::stop);
    QObject::connect(&supervisor, &Supervisor::stopped, &application, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    supervisor.start();
    return QCoreApplication::exec();
}
