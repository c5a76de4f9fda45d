#pragma once

#include <ctime>

/// Seconds of a clock, by default the one that nobody sets.
inline double monotonicSeconds(clockid_t clock = CLOCK_MONOTONIC)
{
    timespec time{};
    clock_gettime(clock, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}
