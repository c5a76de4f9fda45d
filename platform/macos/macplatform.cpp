#include "platform/platform.h"

#include "platform/macos/macannouncer.h"
#include "platform/macos/macappearance.h"
#include "platform/macos/macbookmarks.h"
#include "platform/macos/maccolorpanel.h"
#include "platform/macos/macdirectories.h"
#include "platform/macos/macdirectorywatcher.h"
#include "platform/macos/macfilesystem.h"
#include "platform/macos/macmainbundle.h"
#include "platform/macos/macopenpanel.h"
#include "platform/macos/macprocessrunner.h"
#include "platform/macos/macrunningapplications.h"
#include "platform/macos/macuserdefaults.h"
#include "platform/macos/macworkspace.h"
#include "platform/qt/qtclock.h"
#include "platform/qt/qturlfetcher.h"

PlatformFiles makePlatformFiles()
{
    PlatformFiles files;
    files.directories = std::make_unique<MacDirectories>();
    files.files = std::make_unique<MacFileSystem>();
    return files;
}

Platform makePlatform(PlatformFiles files)
{
    Platform platform(std::move(files));
    platform.processes = std::make_unique<MacProcessRunner>();
    platform.workspace = std::make_unique<MacWorkspace>();
    platform.applications = std::make_unique<MacRunningApplications>();
    platform.standardDefaults = std::make_unique<MacUserDefaults>();
    platform.dockDefaults = std::make_unique<MacUserDefaults>(QStringLiteral("com.apple.dock"));
    platform.watcher = std::make_unique<MacDirectoryWatcher>();
    platform.bookmarks = std::make_unique<MacBookmarks>();
    platform.mainBundle = std::make_unique<MacMainBundle>();
    platform.clock = std::make_unique<QtClock>();
    platform.network = std::make_unique<QtURLFetcher>();
    platform.appearance = std::make_unique<MacAppearance>();
    platform.announcer = std::make_unique<MacAnnouncer>();
    platform.colorPanel = std::make_unique<MacColorPanel>();
    platform.openPanel = std::make_unique<MacOpenPanel>();
    return platform;
}
