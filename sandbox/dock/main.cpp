#include "sandbox/common/signals.h"
#include "sandbox/common/standinmac.h"
#include "sandbox/common/statelog.h"
#include "sandbox/dock/dock.h"
#include "sandbox/scene/stage.h"

#include <QGuiApplication>
#include <QtQml/QQmlExtensionPlugin>

#include <cstdio>

Q_IMPORT_QML_PLUGIN(Sandbox_ScenePlugin)

namespace {

int fail(const char *reason)
{
    std::fprintf(stderr, "Dock: %s\n", reason);
    return 1;
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    Signals signals;
    QObject::connect(&signals, &Signals::terminationRequested, &application,
                     &QCoreApplication::quit);
    const auto mac = StandInMac::current();
    if (!mac)
        return fail("is no application of a stand-in Mac");
    logState(QStringLiteral("started Dock"));

    Stage stage;
    Dock dock(*mac, stage.icons());
    if (!stage.load(QStringLiteral("Sandbox/Dock/DockWindow.qml"),
                    {{QStringLiteral("dock"), QVariant::fromValue(&dock)}}))
        return fail("has no window");
    logState(QStringLiteral("ready"));
    return stage.run();
}
