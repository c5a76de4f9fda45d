#pragma once

#include "platform/runningapplications.h"

/// The real processes that were started as applications of a stand-in Mac, known by their
/// environment: also those of an earlier run of this program, and those whose bundle is gone. An
/// application leads a session of its own; what it starts in turn inherits the environment but not
/// the lead, and is no application.
class PortableRunningApplications final : public RunningApplications {
public:
    explicit PortableRunningApplications(const QString &root)
        : m_root(root)
    {
    }

    [[nodiscard]] QList<RunningApplication>
    withBundleIdentifier(const QString &bundleIdentifier) const override;
    void terminate(const RunningApplication &application) override;
    void forceTerminate(const RunningApplication &application) override;

private:
    QString m_root;
};
