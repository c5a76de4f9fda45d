#pragma once

#include "platform/bookmarks.h"

#include <QHash>

/// Bookmarks for the URLs that the test names, none for others.
struct FakeBookmarks final : Bookmarks {
    QHash<FileURL, QByteArray> bookmarks{};

    [[nodiscard]] std::optional<QByteArray> securityScoped(const FileURL &url) const override
    {
        const auto found = bookmarks.constFind(url);
        return found == bookmarks.constEnd() ? std::nullopt : std::optional(*found);
    }
};
