#include "platform/mainthread.h"

#include <QCoreApplication>
#include <QThread>

void requireMainThread(std::source_location where)
{
    const QCoreApplication *application = QCoreApplication::instance();
    if (!application || QThread::currentThread() != application->thread()) {
        qFatal("CompanionApp:%u: %s must be called on the main thread",
               static_cast<unsigned>(where.line()), where.function_name());
    }
}
