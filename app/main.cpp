#include "i18n/translations.h"
#include "model/libraryfile.h"
#include "platform/announcer.h"
#include "platform/appearance.h"
#include "platform/directories.h"
#include "platform/filesystem.h"
#include "platform/platform.h"
#include "store/companionengine.h"
#include "system/installedapplications.h"
#include "ui/companionviewmodel.h"
#include "ui/firstpictures.h"
#include "ui/keyrepeats.h"
#include "ui/picturestore.h"
#include "ui/systemappearance.h"
#include "ui/systempanels.h"
#include "ui/windowengine.h"

#include <QCommandLineParser>
#include <QEventLoop>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string_view>
#include <utility>

using namespace std::chrono_literals;

namespace {

// A window that is hidden, or on a screen that sleeps, is never painted.
constexpr auto longestWaitForTheWindow = 5s;

// Ends the program for --help, --version and what it does not know.
void answerCommandLine(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("main", "Makes Dock folders for Nestlet."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(arguments);
}

// Questions that need no display.
bool isQuestion(std::string_view argument)
{
    return argument == "--help" || argument == "-h" || argument == "--version" || argument == "-v";
}

void waitUntilLoaded(const QQmlComponent &component)
{
    QEventLoop waiting;
    QObject::connect(&component, &QQmlComponent::statusChanged, &waiting, &QEventLoop::quit);
    if (component.isLoading())
        waiting.exec();
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("Nestlet Companion"));
    QCoreApplication::setApplicationVersion(QStringLiteral(NESTLET_COMPANION_VERSION));
    if (std::any_of(argv + 1, argv + argc, isQuestion)) {
        QCoreApplication early(argc, argv);
        const Translations translations;
        answerCommandLine(QCoreApplication::arguments());
    }

    // The library and the window's types are read on threads of their own, while this one makes
    // contact with the display and reads the fonts.
    PlatformFiles files = makePlatformFiles();
    LibraryFile folderLibrary(*files.files, *files.directories);
    folderLibrary.beginLoading();

    QGuiApplication application(argc, argv);
    const KeyRepeats keyRepeats;
    const Translations translations;
    answerCommandLine(QCoreApplication::arguments()); // without the toolkit's own
    Platform platform = makePlatform(std::move(files));
    CompanionEngine companion(platform, EventTurns::Start::OnRelease, std::move(folderLibrary));
    PictureStore pictures;
    SystemPanels panels(platform);

    QQmlEngine engine;
    addWindowTypes(engine);
    addPictureProviders(engine, *platform.workspace, pictures);
    setAppearance(engine, *platform.appearance);
    QObject::connect(&engine, &QQmlEngine::quit, &application, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    QQmlComponent component(&engine,
                            QUrl(QStringLiteral("qrc:/qt/qml/Nestlet/Companion/CompanionView.qml")),
                            QQmlComponent::Asynchronous);

    loadFonts(*platform.appearance);

    companion.store.start();
    QObject::connect(&application, &QGuiApplication::applicationStateChanged, &engine,
                     [&, wasActive = false](Qt::ApplicationState state) mutable {
                         if (state != Qt::ApplicationActive)
                             return;
                         companion.store.applicationBecameActive();
                         if (std::exchange(wasActive, true)) // apps may have been updated
                             refreshIcons(engine);
                     });
    CompanionViewModel viewModel(companion.store, pictures, [&] {
        return scanInstalledApplications(*platform.files, *platform.directories);
    });
    beginFirstPictures(engine, *viewModel.folders(), application.devicePixelRatio());
    if (platform.announcer)
        QObject::connect(&viewModel, &CompanionViewModel::announced,
                         [&](const QString &text) { platform.announcer->announce(text); });

    waitUntilLoaded(component);
    const std::unique_ptr<QObject> root(component.createWithInitialProperties(
        {{QStringLiteral("model"), QVariant::fromValue(&viewModel)},
         {QStringLiteral("panels"), QVariant::fromValue(&panels)}}));
    const auto *window = qobject_cast<QQuickWindow *>(root.get());
    if (!window) {
        qCritical().noquote() << component.errorString();
        return EXIT_FAILURE;
    }

    // The rebuilds that a launch begins with block the main thread: the window comes first.
    const auto release = [&] { companion.proxies.release(); };
    QObject::connect(
        window, &QQuickWindow::frameSwapped, &companion.proxies, release,
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
    QTimer::singleShot(longestWaitForTheWindow, &companion.proxies, release);
    return QGuiApplication::exec();
}
