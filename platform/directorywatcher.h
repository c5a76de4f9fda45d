#pragma once

#include "platform/fileurl.h"

#include <functional>
#include <memory>

/// A running watch; ends when destroyed.
class DirectoryWatch {
public:
    virtual ~DirectoryWatch() = default;
};

/// Tells of changes to the entries of directories.
class DirectoryWatcher {
public:
    virtual ~DirectoryWatcher() = default;

    /// Calls `changed` on the main thread whenever an entry of `directory` was added, removed,
    /// renamed or replaced; one change may cause several calls. Null when the directory cannot be
    /// opened.
    [[nodiscard]] virtual std::unique_ptr<DirectoryWatch> watch(const FileURL &directory,
                                                                std::function<void()> changed)
        = 0;
};
