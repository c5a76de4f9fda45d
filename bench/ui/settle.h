#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>

/// Lets a window do what it has to do.
inline void settle(int milliseconds)
{
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < milliseconds;)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}
