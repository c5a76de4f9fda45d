#include "store/companionengine.h"

#include "platform/clock.h"
#include "platform/directories.h"
#include "platform/filesystem.h"
#include "platform/mainbundle.h"
#include "platform/processrunner.h"
#include "platform/runningapplications.h"
#include "platform/userdefaults.h"
#include "platform/workspace.h"

CompanionEngine::CompanionEngine(Platform &platform, EventTurns::Start longOperations)
    : CompanionEngine(platform, longOperations, LibraryFile(*platform.files, *platform.directories))
{
}

CompanionEngine::CompanionEngine(Platform &platform, EventTurns::Start longOperations,
                                 LibraryFile file)
    : folderLibrary(std::move(file))
    , codeSign(*platform.processes, *platform.files, *platform.directories)
    , templateApp({.files = *platform.files,
                   .directories = *platform.directories,
                   .mainBundle = *platform.mainBundle,
                   .workspace = *platform.workspace,
                   .codeSign = codeSign})
    , proxyDirectory(*platform.files, *platform.directories)
    , proxyBuilder(*platform.files, codeSign)
    , dockTiles(*platform.dockDefaults, *platform.processes, *platform.directories)
    , proxies(
          {.files = *platform.files,
           .templateApp = templateApp,
           .directory = proxyDirectory,
           .builder = proxyBuilder,
           .dockTiles = dockTiles,
           .applications = *platform.applications,
           .workspace = *platform.workspace,
           .clock = *platform.clock},
          [this](const QUuid &id) { return store.folder(id); }, longOperations)
    , store({.platform = platform,
             .folderLibrary = folderLibrary,
             .templateApp = templateApp,
             .proxyDirectory = proxyDirectory,
             .proxies = proxies})
{
}

CompanionEngine::~CompanionEngine() = default;
