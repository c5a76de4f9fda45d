#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QQuickItem>

/// What has an object's name, in or below an item; null when nothing has.
[[nodiscard]] inline QQuickItem *findItem(QQuickItem *root, QLatin1StringView objectName)
{
    if (root->objectName() == objectName)
        return root;
    for (QQuickItem *child : root->childItems()) {
        if (QQuickItem *found = findItem(child, objectName))
            return found;
    }
    return nullptr;
}

/// Lets a window do what it has to do.
inline void settle(int milliseconds)
{
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < milliseconds;)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}
