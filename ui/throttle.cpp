#include "ui/throttle.h"

#include <utility>

Throttle::Throttle(std::chrono::milliseconds interval)
{
    m_timer.setInterval(interval);
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { carryOut(); });
}

void Throttle::submit(const std::function<void()> &action)
{
    m_waiting = action;
    if (!m_timer.isActive())
        carryOut();
}

void Throttle::flush()
{
    if (m_waiting)
        carryOut();
}

// The timer runs on only while there is something to hold back.
void Throttle::carryOut()
{
    if (!m_waiting)
        return;
    m_timer.start();
    std::exchange(m_waiting, {})();
}
