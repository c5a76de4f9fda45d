#include "platform/macos/macprocessrunner.h"

#include "platform/macos/foundationtypes.h"

#include <QDeadlineTimer>

#include <array>
#include <cerrno>
#include <csignal>
#include <poll.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr std::chrono::milliseconds exitPollInterval {1};

NSTask *makeTask(const FileURL &tool, const QStringList &arguments)
{
    NSMutableArray *texts = [NSMutableArray array];
    for (const QString &argument : arguments)
        [texts addObject:nsString(argument)];
    NSTask *task = [[[NSTask alloc] init] autorelease];
    [task setExecutableURL:nsURL(tool)];
    [task setArguments:texts];
    return task;
}

void launch(NSTask *task)
{
    NSError *error = nil;
    if (![task launchAndReturnError:&error])
        throw platformErrorFrom(error);
}

bool hasInput(int descriptor, QDeadlineTimer deadline)
{
    pollfd input {.fd = descriptor, .events = POLLIN, .revents = 0};
    int ready = 0;
    do
        ready = poll(&input, 1, static_cast<int>(deadline.remainingTime()));
    while (ready < 0 && errno == EINTR);
    return ready > 0;
}

// What comes until the writers have closed the pipe or the time is up. Read by hand, because a file
// handle that reads to the end knows no deadline; closed by hand, because a task keeps its pipe.
QByteArray readToEnd(NSFileHandle *handle, QDeadlineTimer deadline)
{
    const int descriptor = [handle fileDescriptor];
    QByteArray whole;
    std::array<char, 65536> piece {};
    while (hasInput(descriptor, deadline)) {
        const ssize_t count = read(descriptor, piece.data(), piece.size());
        if (count > 0)
            whole.append(piece.data(), count);
        else if (count == 0 || errno != EINTR)
            break;
    }
    [handle closeFile];
    return whole;
}

// Polls, because waitUntilExit turns the run loop while it waits: events would be handled in the
// middle of the operation that runs the tool.
void waitForExit(NSTask *task, QDeadlineTimer deadline)
{
    while ([task isRunning] && !deadline.hasExpired())
        std::this_thread::sleep_for(exitPollInterval);
}

void killIfRunning(NSTask *task, const FileURL &tool)
{
    if (![task isRunning])
        return;
    kill([task processIdentifier], SIGKILL);
    throw PlatformError(
        QStringLiteral("“%1” did not finish and was stopped.").arg(tool.lastPathComponent()));
}

} // namespace

ProcessResult MacProcessRunner::run(const FileURL &tool, const QStringList &arguments)
{
    @autoreleasepool {
        NSTask *task = makeTask(tool, arguments);
        NSPipe *pipe = [NSPipe pipe];
        [task setStandardError:pipe];
        launch(task); // closes our copy of the pipe's writing end
        const QDeadlineTimer deadline(m_hangLimit);
        // Read first, then wait: a tool that has more to say than the pipe holds ends only when
        // read.
        const QByteArray diagnostics = readToEnd([pipe fileHandleForReading], deadline);
        waitForExit(task, deadline);
        killIfRunning(task, tool);
        return {.exitStatus = [task terminationStatus], .standardError = diagnostics};
    }
}

void MacProcessRunner::start(const FileURL &tool, const QStringList &arguments)
{
    @autoreleasepool {
        launch(makeTask(tool, arguments)); // a launched task keeps itself until the tool has ended
    }
}
