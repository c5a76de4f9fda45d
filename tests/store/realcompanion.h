#pragma once

#include "builder/codesign.h"
#include "builder/proxybuilder.h"
#include "builder/proxydirectory.h"
#include "builder/templateapp.h"
#include "model/libraryfile.h"
#include "platform/platform.h"
#include "store/companionstore.h"
#include "store/proxylifecycle.h"
#include "system/docktiles.h"

/// The companion without its window: the parts that the program is made of, over the platform it
/// was built for. Not started.
struct RealCompanion {
    explicit RealCompanion(const QString &root);
    ~RealCompanion();

    Platform platform;
    CodeSign codeSign;
    TemplateApp templateApp;
    ProxyDirectory proxyDirectory;
    ProxyBuilder proxyBuilder;
    DockTiles dockTiles;
    LibraryFile library;
    ProxyLifecycle proxies;
    CompanionStore store;
};
