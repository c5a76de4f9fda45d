#pragma once

#include "platform/fileurl.h"

#include <optional>

/// The running program's own bundle.
class MainBundle {
public:
    virtual ~MainBundle() = default;

    /// The bundle; of a program outside any bundle, the directory that holds it.
    [[nodiscard]] virtual FileURL url() const = 0;
    /// "CFBundleVersion" of its information dictionary, when that is a string.
    [[nodiscard]] virtual std::optional<QString> version() const = 0;
};
