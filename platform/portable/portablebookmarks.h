#pragma once

#include "platform/bookmarks.h"

/// Nothing here is sandboxed, and so there are no bookmarks.
class PortableBookmarks final : public Bookmarks {
public:
    [[nodiscard]] std::optional<QByteArray> securityScoped(const FileURL &) const override
    {
        return std::nullopt;
    }
};
