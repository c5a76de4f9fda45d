#pragma once

/// Ends the program when called off the main thread, in release builds too, and names the line that
/// was reached: what is kept on the main thread has no locks. (The defaults stand for the caller's
/// place; clang 14 has no std::source_location.)
void requireMainThread(int line = __builtin_LINE(), const char *function = __builtin_FUNCTION());
