#include "platform/portable/portableprocessrunner.h"

#include "platform/portable/detachedprocess.h"
#include "platform/portable/environment.h"
#include "platform/portable/pidfd.h"
#include "platform/posix/filedescriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>

namespace {

using Action = PlatformError::Action;

using std::chrono::steady_clock;

constexpr Action launching = Action::Launch;

struct Pipe {
    FileDescriptor reader{};
    FileDescriptor writer{};
};

Pipe makePipe(const QByteArray &tool)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) < 0)
        throw lastError(launching, tool);
    Pipe pipe{.reader = FileDescriptor(ends[0]), .writer = FileDescriptor(ends[1])};
    ::fcntl(pipe.reader.get(), F_SETFL, O_NONBLOCK);
    return pipe;
}

// What becomes of the descriptors and signals of a new process.
class SpawnRules {
public:
    explicit SpawnRules(int standardError)
    {
        ::posix_spawn_file_actions_init(&m_actions);
        ::posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        ::posix_spawn_file_actions_adddup2(&m_actions, standardError, STDERR_FILENO);
        ::posix_spawn_file_actions_addclosefrom_np(&m_actions, STDERR_FILENO + 1);
        sigset_t signals;
        ::posix_spawnattr_init(&m_attributes);
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&m_attributes, &signals);
        ::sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&m_attributes, &signals);
        // A group of its own, so that its helpers can be killed with it.
        ::posix_spawnattr_setpgroup(&m_attributes, 0);
        ::posix_spawnattr_setflags(
            &m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
    }
    SpawnRules(const SpawnRules &) = delete;
    SpawnRules &operator=(const SpawnRules &) = delete;
    ~SpawnRules()
    {
        ::posix_spawn_file_actions_destroy(&m_actions);
        ::posix_spawnattr_destroy(&m_attributes);
    }

    [[nodiscard]] pid_t spawn(const Program &program) const
    {
        const QList<char *> arguments
            = pointersTo(QList<QByteArray>{program.path} + program.arguments);
        const QList<char *> environment = pointersTo(program.environment);
        pid_t process = 0;
        const int error
            = ::posix_spawn(&process, program.path.constData(), &m_actions, &m_attributes,
                            arguments.constData(), environment.constData());
        if (error != 0)
            throw systemError(launching, program.path, error);
        return process;
    }

private:
    posix_spawn_file_actions_t m_actions{};
    posix_spawnattr_t m_attributes{};
};

// Whoever started this program may have left it deaf to the ends of its children. The system would
// then clear a tool away, and nobody could tell how it ended.
void listenToChildren()
{
    struct sigaction present { };
    if (::sigaction(SIGCHLD, nullptr, &present) == 0 && present.sa_handler == SIG_IGN)
        static_cast<void>(::signal(SIGCHLD, SIG_DFL));
}

int waitForExit(pid_t process, const QByteArray &tool)
{
    int status = 0;
    while (::waitpid(process, &status, 0) < 0) {
        if (errno != EINTR) // never taken for success
            throw lastError(Action::WaitFor, tool);
    }
    return WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status);
}

// Takes what the pipe holds now. False at its end.
bool drain(int pipe, QByteArray &text)
{
    std::array<char, 65536> buffer{};
    for (;;) {
        const ssize_t count = ::read(pipe, buffer.data(), buffer.size());
        if (count > 0)
            text.append(buffer.data(), count);
        else if (count == 0)
            return false;
        else if (errno != EINTR)
            return errno == EAGAIN;
    }
}

int millisecondsUntil(steady_clock::time_point deadline)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - steady_clock::now());
    return static_cast<int>(std::clamp<qint64>(left.count(), 0, 60'000));
}

// Collects a tool's diagnostics until it exits; what it started and left running may hold the pipe
// open for ever. False when the time is up.
bool readUntilExit(pid_t process, int pipe, steady_clock::time_point deadline, QByteArray &text)
{
    const FileDescriptor exit = openProcess(process);
    std::array<pollfd, 2> waits{{{.fd = exit.get(), .events = POLLIN, .revents = 0},
                                 {.fd = pipe, .events = POLLIN, .revents = 0}}};
    for (;;) {
        const int ready = ::poll(waits.data(), waits.size(), millisecondsUntil(deadline));
        if (ready <= 0 && steady_clock::now() >= deadline)
            return false;
        if (ready > 0 && waits[1].revents != 0 && !drain(pipe, text)) {
            if (!exit.isOpen()) // an old kernel: the pipe's end must do for the tool's
                return true;
            waits[1].fd = -1;
        }
        if (ready > 0 && waits[0].revents != 0) {
            drain(pipe, text);
            return true;
        }
    }
}

Program programFor(const FileURL &tool, const QStringList &arguments, const QString &root)
{
    QList<QByteArray> encoded;
    for (const QString &argument : arguments)
        encoded.append(argument.toUtf8());
    return {.path = tool.nativePath(),
            .arguments = encoded,
            .environment = environmentWith({{rootVariable, root.toUtf8()}})};
}

} // namespace

ProcessResult PortableProcessRunner::run(const FileURL &tool, const QStringList &arguments)
{
    const Program program = programFor(tool, arguments, m_root);
    listenToChildren();
    Pipe pipe = makePipe(program.path);
    const pid_t process = SpawnRules(pipe.writer.get()).spawn(program);
    pipe.writer.close();
    ProcessResult result;
    if (readUntilExit(process, pipe.reader.get(), steady_clock::now() + m_timeLimit,
                      result.standardError)) {
        result.exitStatus = waitForExit(process, program.path);
        return result;
    }
    ::kill(-process, SIGKILL);
    waitForExit(process, program.path);
    throw PlatformError::tookTooLong(tool.path(), m_timeLimit);
}

void PortableProcessRunner::start(const FileURL &tool, const QStringList &arguments)
{
    startDetached(programFor(tool, arguments, m_root), Streams::Inherited);
}
