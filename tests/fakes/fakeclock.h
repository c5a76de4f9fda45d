#pragma once

#include "platform/clock.h"

#include <algorithm>
#include <coroutine>
#include <cstdint>
#include <map>
#include <utility>

/// Time that stands still until a test moves it. Timers fire and sleepers wake in the order of
/// their times, on the line that calls advance(). Outlives the timers it made.
struct FakeClock final : Clock {
    using Milliseconds = std::chrono::milliseconds;
    /// When it is due, and a number that keeps those of one moment in order.
    using Key = std::pair<Milliseconds, std::uint64_t>;

    std::chrono::system_clock::time_point start{
        std::chrono::sys_days{std::chrono::year{2024} / 5 / 1}};
    Milliseconds elapsed{0};
    std::map<Key, std::function<void()>> due{}; ///< what is waited for
    QList<Milliseconds> sleeps{}; ///< every sleep asked for, in order

    [[nodiscard]] std::chrono::system_clock::time_point now() const override
    {
        return start + elapsed;
    }

    [[nodiscard]] QCoro::Task<> sleep(Milliseconds delay) override
    {
        sleeps.append(delay);
        co_await Wait{this, delay};
    }

    [[nodiscard]] std::unique_ptr<Timer> makeTimer(std::function<void()> fired) override
    {
        return std::make_unique<FakeTimer>(this, std::move(fired));
    }

    /// Moves the time on, stopping at everything that falls due, also at what that adds.
    void advance(Milliseconds by)
    {
        const Milliseconds end = elapsed + by;
        while (!due.empty() && due.begin()->first.first <= end) {
            auto next = due.extract(due.begin());
            elapsed = std::max(elapsed, next.key().first);
            next.mapped()();
        }
        elapsed = end;
    }

    /// Moves on to the next thing that falls due. False when nothing does.
    bool advanceToNext()
    {
        if (due.empty())
            return false;
        advance(std::max(due.begin()->first.first - elapsed, Milliseconds{0}));
        return true;
    }

    Key call(Milliseconds delay, std::function<void()> action)
    {
        const Key key{elapsed + delay, m_next++};
        due.emplace(key, std::move(action));
        return key;
    }

private:
    struct Wait {
        FakeClock *clock;
        Milliseconds delay;
        [[nodiscard]] bool await_ready() const noexcept { return false; }
        void await_suspend(std::coroutine_handle<> sleeper) const
        {
            clock->call(delay, [sleeper] { sleeper.resume(); });
        }
        void await_resume() const noexcept { }
    };

    class FakeTimer final : public Timer {
    public:
        FakeTimer(FakeClock *clock, std::function<void()> fired)
            : m_clock(clock)
            , m_fired(std::move(fired))
        {
        }
        FakeTimer(const FakeTimer &) = delete;
        FakeTimer &operator=(const FakeTimer &) = delete;
        ~FakeTimer() override { m_clock->due.erase(m_key); }
        void start(Milliseconds delay) override
        {
            m_clock->due.erase(m_key);
            m_key = m_clock->call(delay, m_fired);
        }

    private:
        FakeClock *m_clock;
        std::function<void()> m_fired;
        Key m_key{-1, 0};
    };

    std::uint64_t m_next = 0;
};
