#pragma once

#include "platform/clock.h"

/// Time by Qt's precise timers: the usual ones may fire 5 % early.
class QtClock final : public Clock {
public:
    [[nodiscard]] std::chrono::system_clock::time_point now() const override;
    [[nodiscard]] QCoro::Task<> sleep(std::chrono::milliseconds delay) override;
    [[nodiscard]] std::unique_ptr<Timer> makeTimer(std::function<void()> fired) override;
};
