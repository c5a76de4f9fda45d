#include "tests/store/realcompanion.h"

#include "platform/directories.h"
#include "platform/filesystem.h"
#include "platform/mainbundle.h"
#include "platform/processrunner.h"
#include "platform/runningapplications.h"
#include "platform/userdefaults.h"
#include "platform/workspace.h"

namespace {

Platform platformBelow(const QString &root, std::unique_ptr<Clock> clock)
{
    qputenv("NESTLET_COMPANION_ROOT", root.toUtf8());
    qputenv("NESTLET_COMPANION_FEED", "http://127.0.0.1:9/feed.json"); // nobody answers there
    Platform platform = makePlatform();
    if (clock)
        platform.clock = std::move(clock);
    return platform;
}

} // namespace

RealCompanion::RealCompanion(const QString &root, std::unique_ptr<Clock> clock)
    : platform(platformBelow(root, std::move(clock)))
    , engine(platform, EventTurns::Start::AtOnce)
{
}

RealCompanion::~RealCompanion() = default;
