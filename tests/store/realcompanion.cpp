#include "tests/store/realcompanion.h"

#include "platform/clock.h"
#include "platform/directories.h"
#include "platform/filesystem.h"
#include "platform/mainbundle.h"
#include "platform/processrunner.h"
#include "platform/runningapplications.h"
#include "platform/userdefaults.h"
#include "platform/workspace.h"

namespace {

Platform platformBelow(const QString &root)
{
    qputenv("NESTLET_COMPANION_ROOT", root.toUtf8());
    qputenv("NESTLET_COMPANION_FEED", "http://127.0.0.1:9/feed.json"); // nobody answers there
    return makePlatform();
}

} // namespace

RealCompanion::RealCompanion(const QString &root)
    : platform(platformBelow(root))
    , codeSign(*platform.processes, *platform.files, *platform.directories)
    , templateApp({.files = *platform.files,
                   .directories = *platform.directories,
                   .mainBundle = *platform.mainBundle,
                   .workspace = *platform.workspace,
                   .codeSign = codeSign})
    , proxyDirectory(*platform.files, *platform.directories)
    , proxyBuilder(*platform.files, codeSign)
    , dockTiles(*platform.dockDefaults, *platform.processes, *platform.directories)
    , library(*platform.files, *platform.directories)
    , proxies(
          {.files = *platform.files,
           .templateApp = templateApp,
           .directory = proxyDirectory,
           .builder = proxyBuilder,
           .dockTiles = dockTiles,
           .applications = *platform.applications,
           .workspace = *platform.workspace,
           .clock = *platform.clock},
          [this](const QUuid &id) { return store.folder(id); }, EventTurns::Start::AtOnce)
    , store({.platform = platform,
             .library = library,
             .templateApp = templateApp,
             .proxyDirectory = proxyDirectory,
             .proxies = proxies})
{
}

RealCompanion::~RealCompanion() = default;
