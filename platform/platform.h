#pragma once

#include <QUrl>

#include <memory>
#include <optional>

class Announcer;
class Appearance;
class Bookmarks;
class Clock;
class ColorPanel;
class Directories;
class DirectoryWatcher;
class FileSystem;
class MainBundle;
class OpenPanel;
class ProcessRunner;
class RunningApplications;
class URLFetcher;
class UserDefaults;
class Workspace;

/// What can be used before there is an application object.
struct PlatformFiles {
    PlatformFiles();
    ~PlatformFiles();
    PlatformFiles(PlatformFiles &&) noexcept;
    PlatformFiles &operator=(PlatformFiles &&) noexcept;

    std::unique_ptr<Directories> directories;
    std::unique_ptr<FileSystem> files;
};

/// Everything that only the operating system can do, one interface per facility.
struct Platform : PlatformFiles {
    Platform();
    explicit Platform(PlatformFiles platformFiles);
    ~Platform();
    Platform(Platform &&) noexcept;
    Platform &operator=(Platform &&) noexcept;

    std::unique_ptr<ProcessRunner> processes;
    std::unique_ptr<Workspace> workspace;
    std::unique_ptr<RunningApplications> applications;
    std::unique_ptr<UserDefaults> standardDefaults;
    std::unique_ptr<UserDefaults> dockDefaults; ///< the domain "com.apple.dock"
    std::unique_ptr<DirectoryWatcher> watcher;
    std::unique_ptr<Bookmarks> bookmarks;
    std::unique_ptr<MainBundle> mainBundle;
    std::unique_ptr<Clock> clock;
    std::unique_ptr<URLFetcher> network;
    std::unique_ptr<Appearance> appearance;
    std::unique_ptr<Announcer> announcer; ///< none where screen readers follow the window's texts
    // Where the system has none, the window brings its own.
    std::unique_ptr<ColorPanel> colorPanel;
    std::unique_ptr<OpenPanel> openPanel;
    std::optional<QUrl> updateFeed; ///< in place of the built-in one; a portable system only
};

[[nodiscard]] PlatformFiles makePlatformFiles();
/// The platform this program was built for. Needs the application object; main thread.
[[nodiscard]] Platform makePlatform(PlatformFiles files = makePlatformFiles());
