#pragma once

#include "platform/fileurl.h"

#include <QByteArray>

#include <optional>

/// Makes the bookmarks by which sandboxed applications reach a file again.
class Bookmarks {
public:
    virtual ~Bookmarks() = default;

    /// A security-scoped bookmark; nothing when none can be made.
    [[nodiscard]] virtual std::optional<QByteArray> securityScoped(const FileURL &url) const = 0;
};
