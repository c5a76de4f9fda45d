#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <coroutine>
#include <deque>

/// Lets work that blocks the main thread take turns with the user's events: each waiting coroutine
/// gets a pass of the event loop of its own, in the order in which they came. Where there is a
/// window, the first after a pause comes when that has shown what has begun. Main thread.
class EventTurns {
public:
    /// At once: nobody waits to see anything. On release: when there is a window.
    enum class Start { AtOnce, OnRelease };
    explicit EventTurns(Start start);

    /// Grants turns from now on; for those who started with Start::OnRelease.
    void release();

    class Awaiter {
    public:
        explicit Awaiter(EventTurns &turns)
            : m_turns(turns)
        {
        }
        [[nodiscard]] bool await_ready() const noexcept { return false; }
        void await_suspend(std::coroutine_handle<> waiter);
        void await_resume() const noexcept { }

    private:
        EventTurns &m_turns;
    };
    /// `co_await turns.next()` resumes in a later pass of the event loop.
    [[nodiscard]] Awaiter next() { return Awaiter(*this); }

private:
    void grantOne();
    void schedule();

    std::deque<std::coroutine_handle<>> m_waiters;
    QTimer m_timer;
    QElapsedTimer m_sinceLastTurn; ///< invalid: there was none
    const bool m_hasWindow;
    bool m_isReleased;
};
