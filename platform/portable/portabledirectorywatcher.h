#pragma once

#include "platform/directorywatcher.h"

/// Watches by QFileSystemWatcher, which costs nothing while nothing happens.
class PortableDirectoryWatcher final : public DirectoryWatcher {
public:
    [[nodiscard]] std::unique_ptr<DirectoryWatch> watch(const FileURL &directory,
                                                        std::function<void()> changed) override;
};
