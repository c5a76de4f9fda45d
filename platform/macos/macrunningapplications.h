#pragma once

#include "platform/runningapplications.h"

/// The applications that the system knows to be running.
class MacRunningApplications final : public RunningApplications {
public:
    [[nodiscard]] QList<RunningApplication>
    withBundleIdentifier(const QString &bundleIdentifier) const override;
    void terminate(const RunningApplication &application) override;
    void forceTerminate(const RunningApplication &application) override;
};
