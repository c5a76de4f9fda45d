#include "sandbox/common/signals.h"
#include "sandbox/common/standinmac.h"
#include "sandbox/common/statelog.h"
#include "sandbox/dock/dock.h"
#include "sandbox/scene/appearance.h"
#include "sandbox/scene/iconprovider.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
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
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); // quick to start, and light
    QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    Signals signals;
    QObject::connect(&signals, &Signals::terminationRequested, &application,
                     &QCoreApplication::quit);
    const auto mac = StandInMac::current();
    if (!mac)
        return fail("is no application of a stand-in Mac");
    logState(QStringLiteral("started Dock"));

    auto *icons = new IconProvider; // the engine will own it
    QQmlApplicationEngine engine;
    engine.addImportPath(QStringLiteral(":/qt/qml"));
    engine.addImageProvider(QStringLiteral("icons"), icons);
    Dock dock(*mac, *icons);
    Appearance appearance;
    engine.setInitialProperties({{QStringLiteral("dock"), QVariant::fromValue(&dock)},
                                 {QStringLiteral("appearance"), QVariant::fromValue(&appearance)}});
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Sandbox/Dock/DockWindow.qml")));
    if (engine.rootObjects().isEmpty())
        return fail("has no window");
    logState(QStringLiteral("ready"));
    const int status = QGuiApplication::exec();
    for (QObject *root : engine.rootObjects()) // before what it shows goes
        delete root;
    // Their textures wait for an event loop to delete them.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return status;
}
