#include "ui/throttle.h"

#include <utility>

Throttle::Throttle(Clock &clock, std::chrono::milliseconds interval)
    : m_interval(interval)
    , m_timer(clock.makeTimer([this] {
        m_isHoldingBack = false;
        carryOut();
    }))
{
}

void Throttle::submit(const std::function<void()> &action)
{
    m_waiting = action;
    if (!m_isHoldingBack)
        carryOut();
}

// The timer runs on only while there is something to hold back.
void Throttle::carryOut()
{
    if (!m_waiting)
        return;
    m_isHoldingBack = true;
    m_timer->start(m_interval);
    std::exchange(m_waiting, {})();
}
