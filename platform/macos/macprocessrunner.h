#pragma once

#include "platform/processrunner.h"

#include <chrono>

/// Runs tools as tasks of the system.
class MacProcessRunner final : public ProcessRunner {
public:
    static constexpr std::chrono::milliseconds defaultTimeLimit = std::chrono::minutes(2);

    /// A tool that runs longer than `timeLimit` is killed.
    explicit MacProcessRunner(std::chrono::milliseconds timeLimit = defaultTimeLimit)
        : m_timeLimit(timeLimit)
    {
    }

    [[nodiscard]] ProcessResult run(const FileURL &tool, const QStringList &arguments) override;
    void start(const FileURL &tool, const QStringList &arguments) override;

private:
    std::chrono::milliseconds m_timeLimit;
};
