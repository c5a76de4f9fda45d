#pragma once

#include <QFile>
#include <QProcess>
#include <QString>
#include <QTest>

/// How a program that was run to its end ended.
struct ToolResult {
    int status{-1}; ///< -1: it could not be started or did not end
    QString standardOutput{};
    QString standardError{};
};

inline ToolResult runTool(const QString &program, const QStringList &arguments,
                          const QProcessEnvironment &environment
                          = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    if (!process.waitForFinished(60'000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {.status = process.exitCode(),
            .standardOutput = QString::fromUtf8(process.readAllStandardOutput()),
            .standardError = QString::fromUtf8(process.readAllStandardError())};
}

inline QString builtProgram(const QString &below)
{
    return QStringLiteral(COMPANION_BINARY_DIR "/") + below;
}

inline void copyTree(const QString &from, const QString &to)
{
    QCOMPARE(runTool(QStringLiteral("cp"), {QStringLiteral("-a"), from, to}).status, 0);
}
