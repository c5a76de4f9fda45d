#pragma once

#include "platform/error.h"
#include "platform/processrunner.h"

#include <functional>
#include <optional>

/// Runs nothing: notes each call and answers as the test says.
struct FakeProcessRunner final : ProcessRunner {
    struct Call {
        FileURL tool{};
        QStringList arguments{};
        bool isWaitedFor{};
        bool operator==(const Call &) const = default;
    };

    QList<Call> calls{};
    QList<ProcessResult> results{}; ///< taken from the front by each run(); then success
    std::optional<PlatformError> launchError{}; ///< of every call, while set
    std::function<ProcessResult(const Call &)> onRun{}; ///< answers in place of `results`, when set

    [[nodiscard]] ProcessResult run(const FileURL &tool, const QStringList &arguments) override
    {
        note({.tool = tool, .arguments = arguments, .isWaitedFor = true});
        if (onRun)
            return onRun(calls.constLast());
        return results.isEmpty() ? ProcessResult{} : results.takeFirst();
    }

    void start(const FileURL &tool, const QStringList &arguments) override
    {
        note({.tool = tool, .arguments = arguments, .isWaitedFor = false});
    }

private:
    void note(const Call &call)
    {
        calls.append(call);
        if (launchError)
            throw PlatformError(*launchError);
    }
};
