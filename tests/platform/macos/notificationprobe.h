#pragma once

#include <QString>

#include <functional>
#include <memory>

class NotificationObserver;

/// NotificationObserver as plain C++ sees it: two senders, and what was received in their notes.
struct NotificationProbe {
    NotificationProbe();
    ~NotificationProbe();

    /// Listens to the first sender until stop().
    void listen(std::function<void(const QString &note)> received);
    void stop();
    void postFromTheFirst(const char *note) const;
    void postFromTheSecond(const char *note) const;
    void postAnotherNameFromTheFirst() const;

private:
    struct Senders;
    std::unique_ptr<Senders> m_senders;
    std::unique_ptr<NotificationObserver> m_observer;
};
