#include "platform/portable/detachedprocess.h"

#include "platform/posix/filedescriptor.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace {

using Action = PlatformError::Action;

// Between fork and exec only the plainest calls are allowed: no allocation, no locks, no
// exceptions.
struct Launch {
    const char *path;
    char *const *arguments;
    char *const *environment;
    int nullDevice;
    int report; ///< closes by itself when the program is executed; else takes the error number
    Streams streams;
};

[[noreturn]] void reportAndExit(const Launch &launch)
{
    const int error = errno;
    static_cast<void>(!::write(launch.report, &error, sizeof error));
    ::_exit(1);
}

void resetSignals()
{
    for (int number = 1; number < NSIG; ++number)
        static_cast<void>(::signal(number, SIG_DFL)); // those that cannot be set are default anyway
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

[[noreturn]] void execute(const Launch &launch)
{
    resetSignals();
    ::dup2(launch.nullDevice, STDIN_FILENO);
    if (launch.streams == Streams::Silent) {
        ::dup2(launch.nullDevice, STDOUT_FILENO);
        ::dup2(launch.nullDevice, STDERR_FILENO);
    }
    // Everything else closes when the program is executed, the report's end too.
    static_cast<void>(::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC));
    if (::chdir("/") < 0)
        reportAndExit(launch);
    ::execve(launch.path, launch.arguments, launch.environment);
    reportAndExit(launch);
}

// The child ends at once, so that its own child belongs to the system, which collects it.
pid_t forkTwice(const Launch &launch)
{
    const pid_t child = ::fork();
    if (child != 0)
        return child;
    ::setsid();
    const pid_t grandchild = ::fork();
    if (grandchild < 0)
        reportAndExit(launch);
    if (grandchild > 0)
        ::_exit(0);
    ::setsid();
    execute(launch);
}

void waitFor(pid_t child)
{
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) { }
}

// The error number that came through, or 0 when the program was executed.
int readReport(int descriptor)
{
    int error = 0;
    ssize_t count = -1;
    do {
        count = ::read(descriptor, &error, sizeof error);
    } while (count < 0 && errno == EINTR);
    return count == sizeof error ? error : 0;
}

} // namespace

QList<char *> pointersTo(const QList<QByteArray> &texts)
{
    QList<char *> pointers;
    for (const QByteArray &text : texts)
        pointers.append(const_cast<char *>(text.constData())); // exec does not write there
    pointers.append(nullptr);
    return pointers;
}

void startDetached(const Program &program, Streams streams)
{
    constexpr Action action = Action::Launch;
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) < 0)
        throw lastError(action, program.path);
    const FileDescriptor reader(ends[0]);
    FileDescriptor writer(ends[1]);
    const FileDescriptor nullDevice = openAt(AT_FDCWD, "/dev/null", O_RDWR);
    if (!nullDevice.isOpen())
        throw lastError(action, program.path);

    const QList<char *> arguments = pointersTo(QList<QByteArray>{program.path} + program.arguments);
    const QList<char *> environment = pointersTo(program.environment);
    const pid_t child = forkTwice({.path = program.path.constData(),
                                   .arguments = arguments.constData(),
                                   .environment = environment.constData(),
                                   .nullDevice = nullDevice.get(),
                                   .report = writer.get(),
                                   .streams = streams});
    if (child < 0)
        throw lastError(action, program.path);
    writer.close();
    waitFor(child);
    if (const int error = readReport(reader.get()))
        throw systemError(action, program.path, error);
}
