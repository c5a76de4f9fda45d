#pragma once

#include <QByteArray>
#include <QCoroTask>
#include <QUrl>

#include <optional>

/// Fetches from the network without blocking.
class URLFetcher {
public:
    virtual ~URLFetcher() = default;

    /// The body of the answer, whatever its HTTP status; nothing when none came.
    [[nodiscard]] virtual QCoro::Task<std::optional<QByteArray>> fetch(QUrl url) = 0;
};
