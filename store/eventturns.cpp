#include "store/eventturns.h"

EventTurns::EventTurns(Start start)
    : m_isReleased(start == Start::AtOnce)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(0); // fires after the events that are already there
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { grantOne(); });
}

void EventTurns::release()
{
    m_isReleased = true;
    schedule();
}

void EventTurns::schedule()
{
    if (m_isReleased && !m_waiters.empty() && !m_timer.isActive())
        m_timer.start();
}

void EventTurns::grantOne()
{
    const std::coroutine_handle<> waiter = m_waiters.front();
    m_waiters.pop_front();
    schedule(); // first: the waiter may be the last to hold the owner of this object
    waiter.resume();
}

void EventTurns::Awaiter::await_suspend(std::coroutine_handle<> waiter)
{
    m_turns.m_waiters.push_back(waiter);
    m_turns.schedule();
}
