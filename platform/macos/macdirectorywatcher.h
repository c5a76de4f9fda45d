#pragma once

#include "platform/directorywatcher.h"

/// Watches directories by the kernel's vnode events, delivered on the main queue.
class MacDirectoryWatcher final : public DirectoryWatcher {
public:
    [[nodiscard]] std::unique_ptr<DirectoryWatch> watch(const FileURL &directory,
                                                        std::function<void()> changed) override;
};
