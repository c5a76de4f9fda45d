#include "sandbox/common/statelog.h"

#include <QCoreApplication>
#include <QFile>

#include <fcntl.h>
#include <unistd.h>

void logState(const QString &line)
{
    static const QByteArray path = qgetenv("NESTLET_STANDIN_LOG");
    if (path.isEmpty())
        return;
    // One write to a file opened for appending is whole, however many programs write.
    const int file = open(path.constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    if (file < 0)
        return;
    const QByteArray text
        = QByteArray::number(QCoreApplication::applicationPid()) + ' ' + line.toUtf8() + '\n';
    [[maybe_unused]] const ssize_t written
        = write(file, text.constData(), static_cast<size_t>(text.size()));
    close(file);
}
