#pragma once

#include "platform/clock.h"

/// Keeps a burst of actions, each of which replaces the one before, from being carried out one by
/// one: the first at once, then the latest, at most one in an interval. None that came last is
/// lost.
class Throttle final {
public:
    Throttle(Clock &clock, std::chrono::milliseconds interval);
    ~Throttle() { flush(); }
    Q_DISABLE_COPY_MOVE(Throttle)

    void submit(const std::function<void()> &action);
    /// Carries out what waits, now.
    void flush() { carryOut(); }
    [[nodiscard]] bool isWaiting() const { return bool(m_waiting); }

private:
    void carryOut();

    std::chrono::milliseconds m_interval;
    std::unique_ptr<Timer> m_timer;
    bool m_isHoldingBack = false; ///< the timer runs
    std::function<void()> m_waiting;
};
