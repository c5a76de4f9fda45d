#include "bench/ui/shownprogram.h"

#include "bench/monotonic.h"
#include "bench/require.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <vector>

namespace {

std::vector<char *> pointersTo(QList<QByteArray> &texts)
{
    std::vector<char *> pointers;
    for (QByteArray &text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

pid_t run(const ProgramCall &call, const Display &display)
{
    QList<QByteArray> environment = call.environment + display.environment();
    const std::vector<char *> variables = pointersTo(environment);
    QByteArray path = call.path;
    const std::array<char *, 2> arguments{path.data(), nullptr};
    const pid_t process = fork();
    if (process != 0)
        return process;
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nowhere, stream);
    if (geteuid() == 0 && call.user != 0 && setresuid(call.user, call.user, call.user) != 0)
        _exit(EXIT_FAILURE);
    execve(path.data(), arguments.data(), variables.data());
    _exit(EXIT_FAILURE);
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The number behind a name in one of the system's tables.
double entry(const QByteArray &table, const QByteArray &name)
{
    for (const QByteArray &line : table.split('\n')) {
        if (line.startsWith(name))
            return line.mid(name.size()).simplified().split(' ').constFirst().toDouble();
    }
    return 0;
}

} // namespace

ShownProgram::ShownProgram(const ProgramCall &call, const Display &display)
{
    WindowWatch watch(display.name());
    const double begin = monotonicSeconds();
    m_process = run(call, display);
    require(m_process > 0, "no program can be started");
    const WindowWatch::Times times
        = watch.watch([this] { m_start.processorTime = processorTime(); });
    m_start.firstFrame = times.first - begin;
    m_start.complete = times.last - begin;
}

ShownProgram::~ShownProgram()
{
    kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
}

double ShownProgram::processorTime() const
{
    clockid_t clock{};
    return clock_getcpuclockid(m_process, &clock) == 0 ? monotonicSeconds(clock) : 0;
}

ShownProgram::Activity ShownProgram::activity() const
{
    const QDir threads(QStringLiteral("/proc/%1/task").arg(m_process));
    Activity sum{.seconds = processorTime()};
    for (const QString &thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QByteArray status = contents(threads.filePath(thread + QStringLiteral("/status")));
        sum.switches += entry(status, "voluntary_ctxt_switches:")
            + entry(status, "nonvoluntary_ctxt_switches:");
    }
    return sum;
}

double ShownProgram::memory() const
{
    constexpr double kilobyte = 1024;
    const double share
        = entry(contents(QStringLiteral("/proc/%1/smaps_rollup").arg(m_process)), "Pss:");
    require(share > 0, "the program's memory is not told");
    return share * kilobyte;
}
