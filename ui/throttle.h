#pragma once

#include <QTimer>

#include <chrono>
#include <functional>

/// Keeps a burst of actions, each of which replaces the one before, from being carried out one by
/// one: the first at once, then the latest, at most one in an interval. None that came last is
/// lost.
class Throttle final {
public:
    explicit Throttle(std::chrono::milliseconds interval);
    ~Throttle() { flush(); }
    Q_DISABLE_COPY_MOVE(Throttle)

    void submit(const std::function<void()> &action);
    /// Carries out what waits, now.
    void flush();
    /// Forgets what waits.
    void cancel() { m_waiting = {}; }
    [[nodiscard]] bool isWaiting() const { return bool(m_waiting); }

private:
    void carryOut();

    QTimer m_timer;
    std::function<void()> m_waiting;
};
