#pragma once

#include <QList>
#include <QString>

/// One running application. The start time tells it from a later process with the same id.
struct RunningApplication {
    qint64 processID{};
    quint64 startTime{}; ///< in the system's own unit
    bool operator==(const RunningApplication &) const = default;
};

/// The applications that run now. Asking an application that is gone is no error.
class RunningApplications {
public:
    virtual ~RunningApplications() = default;

    [[nodiscard]] virtual QList<RunningApplication>
    withBundleIdentifier(const QString &bundleIdentifier) const = 0;
    /// Asks politely; the application may take its time or refuse.
    virtual void terminate(const RunningApplication &application) = 0;
    virtual void forceTerminate(const RunningApplication &application) = 0;
};
