#pragma once

#include "platform/clock.h"
#include "platform/platform.h"
#include "store/companionengine.h"

/// The companion without its window, over the platform it was built for. Not started.
struct RealCompanion {
    /// With a clock of the test's, or else the platform's.
    explicit RealCompanion(const QString &root, std::unique_ptr<Clock> clock = nullptr);
    ~RealCompanion();

    Platform platform;
    CompanionEngine engine;
};
