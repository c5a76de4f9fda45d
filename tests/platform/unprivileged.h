#pragma once

#include <QString>

#include <unistd.h>

/// While it lives, the process has no more rights than any user: root would be stopped by no
/// permission. Its folders must be handed to that user before.
class Unprivileged {
public:
    Unprivileged()
    {
        if (m_isRoot)
            m_isDropped = ::seteuid(user) == 0;
    }
    Unprivileged(const Unprivileged &) = delete;
    Unprivileged &operator=(const Unprivileged &) = delete;
    ~Unprivileged()
    {
        if (m_isDropped && ::seteuid(0) != 0)
            ::_exit(70);
    }

    [[nodiscard]] bool isInForce() const { return !m_isRoot || m_isDropped; }

    /// Lets that user own a file or folder.
    static bool handOver(const QString &path)
    {
        return ::geteuid() != 0 || ::lchown(path.toUtf8().constData(), user, user) == 0;
    }

private:
    static constexpr uid_t user = 65534; // nobody

    bool m_isRoot = ::geteuid() == 0;
    bool m_isDropped = false;
};
