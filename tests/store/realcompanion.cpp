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
    , engine(platform, EventTurns::Start::AtOnce)
{
}

RealCompanion::~RealCompanion() = default;
