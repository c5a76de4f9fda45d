#pragma once

#include "sandbox/common/files.h"
#include "sandbox/common/standinmac.h"
#include "tests/sandbox/tool.h"

#include <QTemporaryDir>

/// A stand-in Mac of a test's own, made by the real program, and the log of what its programs do.
class StandIn {
public:
    StandIn()
        : m_made(runTool(builtProgram(QStringLiteral("bin/sandbox-make")),
                         {m_dir.filePath(QStringLiteral("mac"))}))
        , m_mac(m_dir.filePath(QStringLiteral("mac")))
    {
    }

    [[nodiscard]] const ToolResult &made() const { return m_made; }
    [[nodiscard]] const StandInMac &mac() const { return m_mac; }
    [[nodiscard]] QString path(QStringView below) const { return m_mac.path(below); }
    [[nodiscard]] QString logPath() const { return m_dir.filePath(QStringLiteral("log")); }
    [[nodiscard]] QString log() const
    {
        QFile file(logPath());
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    /// What a program of this stand-in is started with.
    [[nodiscard]] QProcessEnvironment environment() const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("NESTLET_COMPANION_ROOT"), m_mac.root());
        environment.insert(QStringLiteral("NESTLET_STANDIN_LOG"), logPath());
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        return environment;
    }

private:
    QTemporaryDir m_dir;
    ToolResult m_made;
    StandInMac m_mac;
};
