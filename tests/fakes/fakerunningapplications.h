#pragma once

#include "platform/runningapplications.h"

#include <QHash>

#include <functional>

/// Applications that run because the test says so. One that is asked to quit does so at once unless
/// it is stubborn.
struct FakeRunningApplications final : RunningApplications {
    QHash<QString, QList<RunningApplication>> running{}; ///< by bundle identifier
    bool isStubborn = false; ///< none heeds terminate()
    bool isUndying = false; ///< nor forceTerminate()
    QList<RunningApplication> terminated{}; ///< whom terminate() was called for
    QList<RunningApplication> forceTerminated{};
    mutable int queries = 0;
    std::function<void()>
        onQuery{}; ///< before each answer, so that copies can quit at the n-th poll

    RunningApplication launch(const QString &bundleIdentifier)
    {
        const RunningApplication application{.processID = ++m_lastID, .startTime = 1};
        running[bundleIdentifier].append(application);
        return application;
    }

    void quit(const RunningApplication &application)
    {
        for (QList<RunningApplication> &copies : running)
            copies.removeAll(application);
    }

    [[nodiscard]] QList<RunningApplication>
    withBundleIdentifier(const QString &bundleIdentifier) const override
    {
        ++queries;
        if (onQuery)
            onQuery();
        return running.value(bundleIdentifier);
    }

    void terminate(const RunningApplication &application) override
    {
        terminated.append(application);
        if (!isStubborn)
            quit(application);
    }

    void forceTerminate(const RunningApplication &application) override
    {
        forceTerminated.append(application);
        if (!isUndying)
            quit(application);
    }

private:
    qint64 m_lastID = 1000;
};
