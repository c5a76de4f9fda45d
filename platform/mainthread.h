#pragma once

#include <source_location>

/// Ends the program when called off the main thread, in release builds too, and names the line that
/// was reached: what is kept on the main thread has no locks.
void requireMainThread(std::source_location where = std::source_location::current());
