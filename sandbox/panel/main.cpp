#include "sandbox/common/appbundle.h"
#include "sandbox/common/signals.h"
#include "sandbox/common/standinmac.h"
#include "sandbox/common/statelog.h"
#include "sandbox/panel/panel.h"
#include "sandbox/scene/stage.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QtQml/QQmlExtensionPlugin>

#include <cstdio>

Q_IMPORT_QML_PLUGIN(Sandbox_ScenePlugin)

namespace {

std::optional<AppBundle> ownBundle()
{
    const auto path = AppBundle::pathForExecutable(QCoreApplication::applicationFilePath());
    return path ? AppBundle::at(*path) : std::nullopt;
}

bool ignoresTermination(const AppBundle &bundle)
{
    return qEnvironmentVariableIntValue("NESTLET_STANDIN_IGNORE_TERM") != 0
        || QFileInfo::exists(bundle.resource(QStringLiteral("ignore-term")));
}

void obeySignals(Signals &signals, Panel &panel, bool ignoresTermination)
{
    signals.listenForShowRequests();
    QObject::connect(&signals, &Signals::showRequested, &panel, &Panel::showAt);
    QObject::connect(&signals, &Signals::terminationRequested, &panel, [ignoresTermination] {
        logState(ignoresTermination ? QStringLiteral("ignoring termination")
                                    : QStringLiteral("quitting"));
        if (!ignoresTermination)
            QCoreApplication::quit();
    });
}

int fail(const char *reason)
{
    std::fprintf(stderr, "Nestlet: %s\n", reason);
    return 1;
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    Signals signals;
    const auto bundle = ownBundle();
    const auto mac = StandInMac::current();
    if (!bundle || !mac)
        return fail("is no application of a stand-in Mac");
    QGuiApplication::setApplicationDisplayName(bundle->name());
    logState(u"started " + bundle->identifier());

    Panel panel(*mac, *bundle);
    obeySignals(signals, panel, ignoresTermination(*bundle));
    Stage stage;
    if (!stage.load(QStringLiteral("Sandbox/Panel/PanelWindow.qml"),
                    {{QStringLiteral("panel"), QVariant::fromValue(&panel)}}))
        return fail("has no window");
    if (qEnvironmentVariable("NESTLET_ACTIVATES") != u"0")
        panel.showAt(qEnvironmentVariableIntValue("NESTLET_STANDIN_ANCHOR"));
    logState(QStringLiteral("ready"));
    return stage.run();
}
