#include "builder/codesign.h"

#include "builder/companionerror.h"
#include "model/uuidtext.h"
#include "platform/directories.h"
#include "platform/filesystem.h"
#include "platform/processrunner.h"

#include <QScopeGuard>

#include <optional>

namespace {

// The signing tool reads this file; what it leaves out, the signed app may not do.
constexpr QByteArrayView emptyEntitlements = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0"><dict/></plist>)";

FileURL newEntitlementsURL(const Directories &directories)
{
    const QString id = uuidText(QUuid::createUuid());
    return directories.temporary().appendingFile(QStringLiteral("NLProxyEnt-") + id
                                                 + QStringLiteral(".plist"));
}

std::optional<QString> diagnostics(const ProcessResult &result)
{
    if (!result.standardError.isValidUtf8())
        return std::nullopt;
    return QString::fromUtf8(result.standardError);
}

} // namespace

CodeSign::CodeSign(ProcessRunner &processes, const FileSystem &files,
                   const Directories &directories)
    : m_processes(processes)
    , m_files(files)
    , m_directories(directories)
{
}

ProcessResult CodeSign::run(const QStringList &arguments) const
{
    return m_processes.run(m_directories.system(QStringLiteral("/usr/bin/codesign")), arguments);
}

void CodeSign::codesignVerify(const FileURL &bundle) const
{
    const ProcessResult result = run({QStringLiteral("--verify"), QStringLiteral("--deep"),
                                      QStringLiteral("--strict"), bundle.path()});
    if (!result.succeeded()) {
        throw CompanionError(CompanionError::Kind::invalidNestletApp,
                             diagnostics(result).value_or(QString()));
    }
}

QString CodeSign::codesignDescribe(const FileURL &bundle) const
{
    // The tool describes a signature on its standard error.
    const ProcessResult result = run({QStringLiteral("-dvvv"), bundle.path()});
    QString text = diagnostics(result).value_or(QString());
    if (!result.succeeded())
        throw CompanionError(CompanionError::Kind::invalidNestletApp, text);
    return text;
}

void CodeSign::adHocSign(const FileURL &bundle) const
{
    const FileURL entitlements = newEntitlementsURL(m_directories);
    m_files.writeAtomically(entitlements, emptyEntitlements);
    const auto removal
        = qScopeGuard([&] { ignoringErrors([&] { m_files.remove(entitlements); }); });

    const ProcessResult result
        = run({QStringLiteral("--force"), QStringLiteral("--deep"), QStringLiteral("--sign"),
               QStringLiteral("-"), QStringLiteral("--entitlements"), entitlements.path(),
               bundle.path()});
    if (!result.succeeded()) {
        throw CompanionError(CompanionError::Kind::signingFailed,
                             diagnostics(result).value_or(QStringLiteral("codesign failed")));
    }
}
