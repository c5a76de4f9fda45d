#pragma once

#include <QCoroTask>

#include <chrono>
#include <functional>
#include <memory>

/// A single-shot timer of a Clock. Destroying it stops it.
class Timer {
public:
    virtual ~Timer() = default;
    /// Fires once, `delay` from now and never early. A timer that already runs starts again.
    virtual void start(std::chrono::milliseconds delay) = 0;
};

/// Time, as the main thread sees it.
class Clock {
public:
    virtual ~Clock() = default;

    /// The time of day, for spans of hours.
    [[nodiscard]] virtual std::chrono::system_clock::time_point now() const = 0;
    /// Resumes on the main thread after `delay` of monotonic time, never early.
    [[nodiscard]] virtual QCoro::Task<> sleep(std::chrono::milliseconds delay) = 0;
    [[nodiscard]] virtual std::unique_ptr<Timer> makeTimer(std::function<void()> fired) = 0;
};
