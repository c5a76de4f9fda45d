#include "store/eventturns.h"

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto twoFrames = 34ms; // one may just have begun
constexpr auto longPause = 500ms;

} // namespace

EventTurns::EventTurns(Start start)
    : m_hasWindow(start == Start::OnRelease)
    , m_isReleased(!m_hasWindow)
{
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { grantOne(); });
}

void EventTurns::release()
{
    m_isReleased = true;
    schedule();
}

void EventTurns::schedule()
{
    if (!m_isReleased || m_waiters.empty() || m_timer.isActive())
        return;
    const bool isFirst = m_hasWindow
        && (!m_sinceLastTurn.isValid() || m_sinceLastTurn.hasExpired(longPause.count()));
    m_timer.start(isFirst ? twoFrames : 0ms); // after the events that are already there
}

void EventTurns::grantOne()
{
    const std::coroutine_handle<> waiter = m_waiters.front();
    m_waiters.pop_front();
    m_sinceLastTurn.start();
    schedule(); // first: the waiter may be the last to hold the owner of this object
    waiter.resume();
}

void EventTurns::Awaiter::await_suspend(std::coroutine_handle<> waiter)
{
    m_turns.m_waiters.push_back(waiter);
    m_turns.schedule();
}
