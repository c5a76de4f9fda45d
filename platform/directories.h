#pragma once

#include "platform/fileurl.h"

/// Where the user's and the system's folders are. All are directory URLs; none needs to exist.
class Directories {
public:
    virtual ~Directories() = default;

    /// The user's Application Support directory. There being none is a fatal error.
    [[nodiscard]] virtual FileURL applicationSupport() const = 0;
    /// The user's own Applications directory (not "/Applications").
    [[nodiscard]] virtual FileURL userApplications() const = 0;
    [[nodiscard]] virtual FileURL home() const = 0;
    [[nodiscard]] virtual FileURL temporary() const = 0;
    /// A directory or tool that the system keeps at a fixed path, such as "/Applications" or
    /// "/usr/bin/codesign". A path that ends in a slash gives a directory URL.
    [[nodiscard]] virtual FileURL system(const QString &absolutePath) const = 0;
};
