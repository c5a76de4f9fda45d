#pragma once

#include "platform/processrunner.h"

#include <chrono>

/// Runs tools as tasks of the system.
class MacProcessRunner final : public ProcessRunner {
public:
    MacProcessRunner() = default;
    /// A tool that runs longer hangs.
    explicit MacProcessRunner(std::chrono::milliseconds hangLimit)
        : m_hangLimit(hangLimit)
    {
    }

    [[nodiscard]] ProcessResult run(const FileURL &tool, const QStringList &arguments) override;
    void start(const FileURL &tool, const QStringList &arguments) override;

private:
    std::chrono::milliseconds m_hangLimit{std::chrono::minutes(5)};
};
