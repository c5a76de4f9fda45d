#pragma once

#include "platform/posix/filedescriptor.h"

// The C library's own header for these lacks its C linkage in some releases.

/// A descriptor that stays with one process, whoever gets its id later, and that becomes readable
/// when it exits. Not open where there is no such process, or the kernel is too old.
[[nodiscard]] FileDescriptor openProcess(pid_t process);
void signalProcess(const FileDescriptor &process, int signal);
