#include "builder/codesign.h"
#include "builder/proxybuilder.h"
#include "builder/proxydirectory.h"
#include "builder/templateapp.h"
#include "model/libraryfile.h"
#include "platform/clock.h"
#include "platform/directories.h"
#include "platform/filesystem.h"
#include "platform/mainbundle.h"
#include "platform/platform.h"
#include "platform/processrunner.h"
#include "platform/runningapplications.h"
#include "platform/userdefaults.h"
#include "platform/workspace.h"
#include "store/companionstore.h"
#include "store/proxylifecycle.h"
#include "system/docktiles.h"
#include "ui/companionviewmodel.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>

// Generated with the QML module. Naming it keeps the module's types in the program.
extern void qml_register_types_Nestlet_Companion(); // NOLINT(readability-identifier-naming)

namespace {

// Answers --help and --version without a display.
void answerCommandLine(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("main", "Makes Dock folders for Nestlet."));
    parser.addHelpOption();
    parser.addVersionOption();
    if (arguments.size() > 1)
        parser.process(arguments);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("Nestlet Companion"));
    QCoreApplication::setApplicationVersion(QStringLiteral(NESTLET_COMPANION_VERSION));
    if (argc > 1) {
        const QCoreApplication early(argc, argv);
        answerCommandLine(QCoreApplication::arguments());
    }

    const QGuiApplication application(argc, argv);
    Platform platform = makePlatform();

    const CodeSign codeSign(*platform.processes, *platform.files, *platform.directories);
    const TemplateApp templateApp({.files = *platform.files,
                                   .directories = *platform.directories,
                                   .mainBundle = *platform.mainBundle,
                                   .workspace = *platform.workspace,
                                   .codeSign = codeSign});
    const ProxyDirectory proxyDirectory(*platform.files, *platform.directories);
    const ProxyBuilder proxyBuilder(*platform.files, codeSign);
    const DockTiles dockTiles(*platform.dockDefaults, *platform.processes, *platform.directories);
    LibraryFile library(*platform.files, *platform.directories);

    CompanionStore *storeOfProxies = nullptr;
    ProxyLifecycle proxies(
        {.files = *platform.files,
         .templateApp = templateApp,
         .directory = proxyDirectory,
         .builder = proxyBuilder,
         .dockTiles = dockTiles,
         .applications = *platform.applications,
         .workspace = *platform.workspace,
         .clock = *platform.clock},
        [&](const QUuid &id) { return storeOfProxies->folder(id); }, EventTurns::Start::OnRelease);
    CompanionStore store({.platform = platform,
                          .library = library,
                          .templateApp = templateApp,
                          .proxyDirectory = proxyDirectory,
                          .proxies = proxies});
    storeOfProxies = &store;
    store.start();
    QObject::connect(&application, &QGuiApplication::applicationStateChanged, &store,
                     [&](Qt::ApplicationState state) {
                         if (state == Qt::ApplicationActive)
                             store.applicationBecameActive();
                     });

    [[maybe_unused]] auto *const volatile uiTypes = &qml_register_types_Nestlet_Companion;
    CompanionViewModel viewModel(store);
    QQmlApplicationEngine engine;
    engine.setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&viewModel)}});
    engine.addImportPath(QStringLiteral(":/qt/qml"));
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Nestlet/Companion/CompanionView.qml")));
    if (engine.rootObjects().isEmpty())
        return EXIT_FAILURE;

    // The rebuilds that a launch begins with block the main thread: the window comes first.
    const auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().first());
    QObject::connect(
        window, &QQuickWindow::frameSwapped, &proxies, [&] { proxies.release(); },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
    return QGuiApplication::exec();
}
