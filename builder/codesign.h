#pragma once

#include "platform/fileurl.h"

class Directories;
class FileSystem;
class ProcessRunner;
struct ProcessResult;

/// The system's code-signing tool. Each call runs it once and waits. Throws CompanionError when the
/// tool refuses and PlatformError when it cannot be run.
class CodeSign {
public:
    CodeSign(ProcessRunner &processes, const FileSystem &files, const Directories &directories);

    /// Passes when the bundle's signature, nested code included, is intact.
    void codesignVerify(const FileURL &bundle) const;
    /// The tool's description of the bundle's signature.
    [[nodiscard]] QString codesignDescribe(const FileURL &bundle) const;
    /// Signs the bundle ad hoc, nested code included, over any signature, without entitlements.
    void adHocSign(const FileURL &bundle) const;

private:
    [[nodiscard]] ProcessResult run(const QStringList &arguments) const;

    ProcessRunner &m_processes;
    const FileSystem &m_files;
    const Directories &m_directories;
};
