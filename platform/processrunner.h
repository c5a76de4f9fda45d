#pragma once

#include "platform/fileurl.h"

#include <QByteArray>
#include <QStringList>

/// How an external tool ended.
struct ProcessResult {
    int exitStatus{}; ///< of a tool killed by a signal: the signal's number
    QByteArray standardError{};
    [[nodiscard]] bool succeeded() const { return exitStatus == 0; }
};

/// Runs external tools.
class ProcessRunner {
public:
    virtual ~ProcessRunner() = default;

    /// Runs a tool to its end, with its standard error captured whole and its standard output left
    /// alone. Blocks the calling thread. Throws PlatformError when the tool cannot be launched, or
    /// when it hangs and had to be killed.
    [[nodiscard]] virtual ProcessResult run(const FileURL &tool, const QStringList &arguments) = 0;

    /// Launches a tool and does not wait. Throws PlatformError when it cannot be launched.
    virtual void start(const FileURL &tool, const QStringList &arguments) = 0;
};
