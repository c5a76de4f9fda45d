#pragma once

#include "platform/bookmarks.h"

/// The system's own bookmarks.
class MacBookmarks final : public Bookmarks {
public:
    [[nodiscard]] std::optional<QByteArray> securityScoped(const FileURL &url) const override;
};
