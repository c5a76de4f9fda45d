#pragma once

#include <cstddef>

/// Counts what is allocated in this program, which it can only be linked into once: it takes the
/// place of malloc and its kin. Single-threaded work only is measured right.
struct AllocationPeak {
    static void start(); ///< from what is allocated now
    /// How much more than at the start was allocated at any time since.
    [[nodiscard]] static std::size_t growth();
};
