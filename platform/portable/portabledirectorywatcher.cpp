#include "platform/portable/portabledirectorywatcher.h"

#include <QFileInfo>
#include <QFileSystemWatcher>

namespace {

struct PortableDirectoryWatch final : DirectoryWatch {
    QFileSystemWatcher watcher{};
};

} // namespace

std::unique_ptr<DirectoryWatch> PortableDirectoryWatcher::watch(const FileURL &directory,
                                                                std::function<void()> changed)
{
    const QString path = directory.path();
    if (!directory.isFileURL() || !QFileInfo(path).isDir())
        return nullptr;
    auto watch = std::make_unique<PortableDirectoryWatch>();
    if (!watch->watcher.addPath(path))
        return nullptr;
    QObject::connect(&watch->watcher, &QFileSystemWatcher::directoryChanged, &watch->watcher,
                     [changed = std::move(changed)] {
                         const std::function<void()> keptBeyondTheWatch = changed;
                         keptBeyondTheWatch();
                     });
    return watch;
}
