#pragma once

#include "platform/processrunner.h"

#include <chrono>

/// Runs the tools of a stand-in Mac. They learn its root from their environment.
class PortableProcessRunner final : public ProcessRunner {
public:
    static constexpr std::chrono::milliseconds defaultTimeLimit = std::chrono::minutes(2);

    /// A tool that runs longer than `timeLimit` is killed together with the processes it started.
    explicit PortableProcessRunner(const QString &root,
                                   std::chrono::milliseconds timeLimit = defaultTimeLimit)
        : m_root(root)
        , m_timeLimit(timeLimit)
    {
    }

    [[nodiscard]] ProcessResult run(const FileURL &tool, const QStringList &arguments) override;
    void start(const FileURL &tool, const QStringList &arguments) override;

private:
    QString m_root;
    std::chrono::milliseconds m_timeLimit;
};
