#include "platform/platform.h"

#include "platform/portable/environment.h"
#include "platform/portable/portableappearance.h"
#include "platform/portable/portablebookmarks.h"
#include "platform/portable/portabledirectories.h"
#include "platform/portable/portabledirectorywatcher.h"
#include "platform/portable/portablemainbundle.h"
#include "platform/portable/portableprocessrunner.h"
#include "platform/portable/portablerunningapplications.h"
#include "platform/portable/portableuserdefaults.h"
#include "platform/portable/portableworkspace.h"
#include "platform/posix/posixfilesystem.h"
#include "platform/qt/paletteappearance.h"
#include "platform/qt/qtclock.h"
#include "platform/qt/qturlfetcher.h"

#include <QCoreApplication>

namespace {

FileURL preferences(const Directories &directories)
{
    return directories.system(QStringLiteral("/Users/me/Library/Preferences/"));
}

FileURL preferencesFile(const Directories &directories, const QString &domain)
{
    return preferences(directories).appendingFile(domain + QStringLiteral(".plist"));
}

} // namespace

PlatformFiles makePlatformFiles()
{
    PlatformFiles files;
    files.directories = std::make_unique<PortableDirectories>(standInRoot());
    files.files = std::make_unique<PosixFileSystem>();
    return files;
}

Platform makePlatform(PlatformFiles files)
{
    const QString root = standInRoot();
    Platform platform(std::move(files));
    platform.processes = std::make_unique<PortableProcessRunner>(root);
    platform.applications = std::make_unique<PortableRunningApplications>(root);
    platform.workspace = std::make_unique<PortableWorkspace>(root, *platform.applications);
    platform.standardDefaults = std::make_unique<PortableUserDefaults>(
        preferencesFile(*platform.directories, QStringLiteral("qx.Nestlet.Companion")));
    platform.dockDefaults = std::make_unique<PortableUserDefaults>(
        preferencesFile(*platform.directories, QStringLiteral("com.apple.dock")));
    platform.watcher = std::make_unique<PortableDirectoryWatcher>();
    platform.bookmarks = std::make_unique<PortableBookmarks>();
    platform.mainBundle
        = std::make_unique<PortableMainBundle>(QCoreApplication::applicationDirPath());
    platform.clock = std::make_unique<QtClock>();
    platform.network = std::make_unique<QtURLFetcher>();
    platform.appearance = std::make_unique<PortableAppearance>(
        preferences(*platform.directories), std::make_unique<PaletteAppearance>());
    if (qEnvironmentVariableIsSet(feedVariable))
        platform.updateFeed = QUrl(qEnvironmentVariable(feedVariable));
    return platform;
}
