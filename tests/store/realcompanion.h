#pragma once

#include "platform/platform.h"
#include "store/companionengine.h"

/// The companion without its window, over the platform it was built for. Not started.
struct RealCompanion {
    explicit RealCompanion(const QString &root);
    ~RealCompanion();

    Platform platform;
    CompanionEngine engine;
};
