#pragma once

#include "builder/codesign.h"
#include "builder/proxybuilder.h"
#include "builder/proxydirectory.h"
#include "builder/templateapp.h"
#include "model/libraryfile.h"
#include "store/companionstore.h"
#include "store/proxylifecycle.h"
#include "system/docktiles.h"

/// All of the companion but its window: the store and the tools it works with, in the order in
/// which each needs those before it.
struct CompanionEngine {
    /// Not started. The platform is borrowed and outlives the engine. `longOperations` says whether
    /// Dock apps are built at once or after `proxies.release()`.
    CompanionEngine(Platform &platform, EventTurns::Start longOperations);
    /// With a library that may have begun to load.
    CompanionEngine(Platform &platform, EventTurns::Start longOperations, LibraryFile file);
    ~CompanionEngine();
    Q_DISABLE_COPY_MOVE(CompanionEngine)

    LibraryFile folderLibrary;
    CodeSign codeSign;
    TemplateApp templateApp;
    ProxyDirectory proxyDirectory;
    ProxyBuilder proxyBuilder;
    DockTiles dockTiles;
    ProxyLifecycle proxies;
    CompanionStore store;
};
