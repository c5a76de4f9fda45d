#pragma once

#include "platform/urlfetcher.h"

/// Fetches by Qt's network access, which lives only as long as a fetch: what idles has no threads
/// and no sockets. Redirections are followed; a body above the limit counts as no answer.
class QtURLFetcher final : public URLFetcher {
public:
    static constexpr qint64 largestBody = qint64{1024} * 1024;

    [[nodiscard]] QCoro::Task<std::optional<QByteArray>> fetch(QUrl url) override;
};
