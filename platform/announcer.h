#pragma once

#include <QString>

/// Has texts read out to those who use a screen reader.
class Announcer {
public:
    virtual ~Announcer() = default;
    /// Says it once the screen reader has ended what it is saying. Main thread.
    virtual void announce(const QString &text) = 0;
};
