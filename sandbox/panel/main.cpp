#include "sandbox/common/appbundle.h"
#include "sandbox/common/signals.h"
#include "sandbox/common/standinmac.h"
#include "sandbox/common/statelog.h"
#include "sandbox/panel/panel.h"
#include "sandbox/scene/appearance.h"
#include "sandbox/scene/iconprovider.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
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
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); // quick to start, and light
    QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    Signals signals;
    const auto bundle = ownBundle();
    const auto mac = StandInMac::current();
    if (!bundle || !mac)
        return fail("is no application of a stand-in Mac");
    QGuiApplication::setApplicationDisplayName(bundle->name());
    logState(u"started " + bundle->identifier());

    Panel panel(*mac, *bundle);
    obeySignals(signals, panel, ignoresTermination(*bundle));
    Appearance appearance;
    QQmlApplicationEngine engine;
    engine.addImportPath(QStringLiteral(":/qt/qml"));
    engine.addImageProvider(QStringLiteral("icons"), new IconProvider);
    engine.setInitialProperties({{QStringLiteral("panel"), QVariant::fromValue(&panel)},
                                 {QStringLiteral("appearance"), QVariant::fromValue(&appearance)}});
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Sandbox/Panel/PanelWindow.qml")));
    if (engine.rootObjects().isEmpty())
        return fail("has no window");
    if (qEnvironmentVariable("NESTLET_ACTIVATES") != u"0")
        panel.showAt(qEnvironmentVariableIntValue("NESTLET_STANDIN_ANCHOR"));
    logState(QStringLiteral("ready"));
    const int status = QGuiApplication::exec();
    for (QObject *root : engine.rootObjects()) // before what it shows goes
        delete root;
    // Their textures wait for an event loop to delete them.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return status;
}
