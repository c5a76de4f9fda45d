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

constexpr std::chrono::milliseconds pollInterval{2};

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

bool hasInput(int descriptor, std::chrono::milliseconds patience)
{
    pollfd input{.fd = descriptor, .events = POLLIN, .revents = 0};
    return poll(&input, 1, static_cast<int>(patience.count())) > 0;
}

// False at the end of the input.
bool readPiece(int descriptor, QByteArray &text)
{
    std::array<char, 65536> piece{};
    const ssize_t count = read(descriptor, piece.data(), piece.size());
    if (count > 0)
        text.append(piece.data(), count);
    return count > 0 || (count < 0 && errno == EINTR);
}

// What the tool says until it exits or the time is up. Read as it comes, because a tool that has
// more to say than the pipe holds ends only when read; not to the end of the pipe, which a helper
// that it left running may keep open for ever. And polled for its exit, because waitUntilExit turns
// the run loop: events would be handled in the middle of the operation that runs the tool.
QByteArray readUntilExit(NSTask *task, int descriptor, QDeadlineTimer deadline)
{
    using namespace std::chrono_literals;
    QByteArray text;
    bool isOpen = true;
    while (!deadline.hasExpired()) {
        const bool isRunning = [task isRunning]; // asked before the pipe: what is there then is all
        if (isOpen && hasInput(descriptor, isRunning ? pollInterval : 0ms))
            isOpen = readPiece(descriptor, text);
        else if (!isRunning)
            break;
        else if (!isOpen)
            std::this_thread::sleep_for(pollInterval);
    }
    return text;
}

void endIfRunning(NSTask *task, const FileURL &tool, std::chrono::duration<double> limit)
{
    if (![task isRunning])
        return;
    kill([task processIdentifier], SIGKILL);
    throw PlatformError::tookTooLong(tool.path(), limit);
}

} // namespace

ProcessResult MacProcessRunner::run(const FileURL &tool, const QStringList &arguments)
{
    @autoreleasepool {
        NSTask *task = makeTask(tool, arguments);
        NSPipe *pipe = [NSPipe pipe];
        [task setStandardError:pipe];
        launch(task); // closes our copy of the pipe's writing end
        NSFileHandle *reader = [pipe fileHandleForReading];
        const QByteArray diagnostics
            = readUntilExit(task, [reader fileDescriptor], QDeadlineTimer(m_timeLimit));
        [reader closeFile]; // a task keeps its pipe, and may outlive this call
        endIfRunning(task, tool, m_timeLimit);
        return {.exitStatus = [task terminationStatus], .standardError = diagnostics};
    }
}

void MacProcessRunner::start(const FileURL &tool, const QStringList &arguments)
{
    @autoreleasepool {
        launch(makeTask(tool, arguments)); // a launched task keeps itself until the tool has ended
    }
}
