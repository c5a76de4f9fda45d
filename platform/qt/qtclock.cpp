#include "platform/qt/qtclock.h"

#include <QCoroTimer>
#include <QTimer>

namespace {

using std::chrono::steady_clock;

class QtTimer final : public Timer {
public:
    explicit QtTimer(std::function<void()> fired)
        : m_fired(std::move(fired))
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setSingleShot(true);
        m_timer.callOnTimeout([this] { fireWhenDue(); });
    }

    void start(std::chrono::milliseconds delay) override
    {
        m_due = steady_clock::now() + delay;
        m_timer.start(delay);
    }

private:
    // Timers count whole milliseconds from the loop's last look at its clock: a fraction may be
    // missing.
    void fireWhenDue()
    {
        const auto left = m_due - steady_clock::now();
        if (left > steady_clock::duration::zero()) {
            m_timer.start(std::chrono::ceil<std::chrono::milliseconds>(left));
            return;
        }
        // Kept beyond the call, in which the timer may be destroyed.
        const std::function<void()> fired = m_fired;
        fired();
    }

    QTimer m_timer;
    std::function<void()> m_fired;
    steady_clock::time_point m_due{};
};

} // namespace

std::chrono::system_clock::time_point QtClock::now() const
{
    return std::chrono::system_clock::now();
}

QCoro::Task<> QtClock::sleep(std::chrono::milliseconds delay)
{
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.setSingleShot(true);
    const auto due = steady_clock::now() + delay;
    auto left = steady_clock::duration(delay);
    do {
        timer.start(std::chrono::ceil<std::chrono::milliseconds>(left));
        co_await timer;
        left = due - steady_clock::now();
    } while (left > steady_clock::duration::zero());
}

std::unique_ptr<Timer> QtClock::makeTimer(std::function<void()> fired)
{
    return std::make_unique<QtTimer>(std::move(fired));
}
