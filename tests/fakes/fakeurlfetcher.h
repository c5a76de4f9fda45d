#pragma once

#include "platform/urlfetcher.h"

#include <QList>

#include <coroutine>
#include <utility>

/// Fetches what the test prepared, at once or, while held, when it is released.
struct FakeURLFetcher final : URLFetcher {
    std::optional<QByteArray> body{}; ///< the answer to every fetch; nothing: no network
    QList<QUrl> fetched{};
    bool isHeld = false;

    /// Lets every waiting fetch go on.
    void release()
    {
        isHeld = false;
        for (const std::coroutine_handle<> waiting : std::exchange(m_waiting, {}))
            waiting.resume();
    }

    [[nodiscard]] QCoro::Task<std::optional<QByteArray>> fetch(QUrl url) override
    {
        fetched.append(url);
        co_await Held{this};
        co_return body;
    }

private:
    struct Held {
        FakeURLFetcher *fetcher;
        [[nodiscard]] bool await_ready() const noexcept { return !fetcher->isHeld; }
        void await_suspend(std::coroutine_handle<> fetch) const
        {
            fetcher->m_waiting.append(fetch);
        }
        void await_resume() const noexcept { }
    };

    QList<std::coroutine_handle<>> m_waiting;
};
