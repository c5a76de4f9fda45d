#include "platform/portable/pidfd.h"

#include <sys/syscall.h>
#include <unistd.h>

FileDescriptor openProcess(pid_t process)
{
    return FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
}

void signalProcess(const FileDescriptor &process, int signal)
{
    static_cast<void>(::syscall(SYS_pidfd_send_signal, process.get(), signal, nullptr, 0));
}
