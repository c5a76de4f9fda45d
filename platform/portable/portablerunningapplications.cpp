#include "platform/portable/portablerunningapplications.h"

#include "platform/error.h"
#include "platform/portable/environment.h"
#include "platform/portable/pidfd.h"
#include "platform/posix/directorylisting.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <optional>

namespace {

struct Process {
    RunningApplication application{};
    qint64 sessionID{};
};

// Files of /proc have no size. Empty when the process is gone or not ours to read.
QByteArray readProcessFile(const QByteArray &path)
{
    const FileDescriptor file = openAt(AT_FDCWD, path, O_RDONLY);
    QByteArray bytes;
    std::array<char, 8192> buffer{};
    for (;;) {
        const ssize_t count = file.isOpen() ? ::read(file.get(), buffer.data(), buffer.size()) : 0;
        if (count <= 0)
            return bytes;
        bytes.append(buffer.data(), count);
    }
}

QByteArray processPath(qint64 processID, const char *file)
{
    return "/proc/" + QByteArray::number(processID) + '/' + file;
}

bool isOwn(qint64 processID)
{
    struct stat status { };
    return ::stat(processPath(processID, "").constData(), &status) == 0
        && status.st_uid == ::geteuid();
}

// Nothing when there is no such process, or just its corpse.
std::optional<Process> processWithID(qint64 processID)
{
    // The name in parentheses may hold anything; behind it come state, parent, group, session.
    const QByteArray status = readProcessFile(processPath(processID, "stat"));
    const qsizetype nameEnd = status.lastIndexOf(')');
    const QList<QByteArray> fields = status.mid(nameEnd + 1).simplified().split(' ');
    constexpr qsizetype sessionField = 3;
    constexpr qsizetype startTimeField = 19;
    if (nameEnd < 0 || fields.size() <= startTimeField || fields[0] == "Z" || fields[0] == "X")
        return std::nullopt;
    return Process{.application
                   = {.processID = processID, .startTime = fields[startTimeField].toULongLong()},
                   .sessionID = fields[sessionField].toLongLong()};
}

QList<qint64> ownProcessIDs()
{
    const QByteArray proc = "/proc";
    FileDescriptor directory = openAt(AT_FDCWD, proc, O_RDONLY | O_DIRECTORY);
    if (!directory.isOpen())
        return {};
    QList<qint64> ids;
    ignoringErrors([&] {
        for (const ListedEntry &entry : listDirectory(std::move(directory), proc)) {
            bool isNumber = false;
            const qint64 id = entry.name.toLongLong(&isNumber);
            if (isNumber && isOwn(id))
                ids.append(id);
        }
    });
    return ids;
}

bool holdsEntry(const QByteArray &environment, const char *name, const QString &value)
{
    const QByteArray entry = QByteArray(name) + '=' + value.toUtf8() + '\0';
    return environment.startsWith(entry) || environment.contains(QByteArray('\0' + entry));
}

// The id could meanwhile belong to another process: what is opened stays the process it was, and
// the start time tells whether that is the one that is meant.
void send(const RunningApplication &application, int signal)
{
    const FileDescriptor process = openProcess(static_cast<pid_t>(application.processID));
    const std::optional<Process> found = processWithID(application.processID);
    if (!found || found->application != application)
        return;
    if (process.isOpen())
        signalProcess(process, signal);
    else // an old kernel
        static_cast<void>(::kill(static_cast<pid_t>(application.processID), signal));
}

} // namespace

QList<RunningApplication>
PortableRunningApplications::withBundleIdentifier(const QString &bundleIdentifier) const
{
    QList<RunningApplication> applications;
    for (const qint64 id : ownProcessIDs()) {
        const QByteArray environment = readProcessFile(processPath(id, "environ"));
        if (!holdsEntry(environment, identifierVariable, bundleIdentifier)
            || !holdsEntry(environment, rootVariable, m_root))
            continue;
        const std::optional<Process> process = processWithID(id);
        if (process && process->sessionID == id)
            applications.append(process->application);
    }
    return applications;
}

void PortableRunningApplications::terminate(const RunningApplication &application)
{
    send(application, SIGTERM);
}

void PortableRunningApplications::forceTerminate(const RunningApplication &application)
{
    send(application, SIGKILL);
}
