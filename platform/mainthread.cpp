#include "platform/mainthread.h"

#include <QCoreApplication>
#include <QThread>

void requireMainThread(int line, const char *function)
{
    const QCoreApplication *application = QCoreApplication::instance();
    if (!application || QThread::currentThread() != application->thread())
        qFatal("CompanionApp:%d: %s must be called on the main thread", line, function);
}
