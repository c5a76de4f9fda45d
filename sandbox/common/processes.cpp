#include "sandbox/common/processes.h"

#include "sandbox/common/appbundle.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <climits>

#include <unistd.h>

namespace {

QByteArray processFile(qint64 processID, const char *name)
{
    return "/proc/" + QByteArray::number(processID) + '/' + name;
}

QByteArray contents(const QByteArray &path)
{
    QFile file(QFile::decodeName(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString executableOf(qint64 processID)
{
    std::array<char, PATH_MAX> buffer{};
    const ssize_t length
        = readlink(processFile(processID, "exe").constData(), buffer.data(), buffer.size());
    if (length <= 0)
        return {};
    QString path = QFile::decodeName(QByteArray(buffer.data(), length));
    const QString deleted = QStringLiteral(" (deleted)");
    return path.endsWith(deleted) ? path.chopped(deleted.size()) : path;
}

bool belongsTo(const StandInMac &mac, qint64 processID)
{
    const QString root = environmentOfProcess(processID, StandInMac::rootVariable());
    return !root.isEmpty() && StandInMac(root).root() == mac.root();
}

} // namespace

QString environmentOfProcess(qint64 processID, const QByteArray &variable)
{
    const QByteArray prefix = variable + '=';
    const QList<QByteArray> environment = contents(processFile(processID, "environ")).split('\0');
    const auto entry = std::ranges::find_if(
        environment, [&](const QByteArray &text) { return text.startsWith(prefix); });
    return entry == environment.end() ? QString() : QFile::decodeName(entry->sliced(prefix.size()));
}

QList<StandInProcess> standInProcesses(const StandInMac &mac)
{
    QList<StandInProcess> found;
    const QString inside = mac.root() + u'/';
    for (const QString &name : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        bool isNumber = false;
        const qint64 processID = name.toLongLong(&isNumber);
        if (!isNumber)
            continue;
        const QString executable = executableOf(processID);
        if (executable.startsWith(inside) && AppBundle::pathForExecutable(executable)
            && belongsTo(mac, processID))
            found.append({.processID = processID, .executable = executable});
    }
    std::ranges::sort(found, {}, &StandInProcess::processID);
    return found;
}

bool handlesSignal(qint64 processID, int signal)
{
    for (const QByteArray &line : contents(processFile(processID, "status")).split('\n')) {
        if (!line.startsWith("SigCgt:"))
            continue;
        const quint64 caught = line.sliced(7).trimmed().toULongLong(nullptr, 16);
        return (caught >> (signal - 1)) & 1U;
    }
    return false;
}
