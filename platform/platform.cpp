#include "platform/platform.h"

#include "platform/announcer.h"
#include "platform/appearance.h"
#include "platform/bookmarks.h"
#include "platform/clock.h"
#include "platform/colorpanel.h"
#include "platform/directories.h"
#include "platform/directorywatcher.h"
#include "platform/filesystem.h"
#include "platform/mainbundle.h"
#include "platform/openpanel.h"
#include "platform/processrunner.h"
#include "platform/runningapplications.h"
#include "platform/urlfetcher.h"
#include "platform/userdefaults.h"
#include "platform/workspace.h"

#include <utility>

// Here, where the interfaces are complete, so that users of the structs need only those they use.
PlatformFiles::PlatformFiles() = default;
PlatformFiles::~PlatformFiles() = default;
PlatformFiles::PlatformFiles(PlatformFiles &&) noexcept = default;
PlatformFiles &PlatformFiles::operator=(PlatformFiles &&) noexcept = default;

Platform::Platform(PlatformFiles platformFiles)
    : PlatformFiles(std::move(platformFiles))
{
}
Platform::Platform() = default;
Platform::~Platform() = default;
Platform::Platform(Platform &&) noexcept = default;
Platform &Platform::operator=(Platform &&) noexcept = default;
