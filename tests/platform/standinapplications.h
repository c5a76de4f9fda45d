#pragma once

#include "platform/posix/posixfilesystem.h"
#include "platform/propertylist.h"

#include <QTemporaryDir>
#include <QVariantMap>

#include <sys/stat.h>

/// A stand-in Mac of a test's own, with applications whose programs are shell scripts.
struct StandInApplications {
    QTemporaryDir directory{};
    PosixFileSystem files{};

    [[nodiscard]] QString root() const { return directory.path(); }
    [[nodiscard]] FileURL at(const QString &path) const { return FileURL::file(root() + path); }

    /// An application at a path below the root, made of Info.plist's keys and a program's text.
    FileURL make(const QString &path, const QVariantMap &info, const QByteArray &program) const
    {
        FileURL bundle = FileURL::directory(root() + path);
        const FileURL contents = bundle.appendingDirectory(QStringLiteral("Contents"));
        const FileURL executable = contents.appendingDirectory(QStringLiteral("MacOS"))
                                       .appendingFile(QStringLiteral("tool"));
        files.createDirectories(executable.deletingLastPathComponent());
        files.writeAtomically(contents.appendingFile(QStringLiteral("Info.plist")),
                              serializePropertyList(info, PropertyListFormat::XML));
        files.writeAtomically(executable, program);
        ::chmod(executable.nativePath().constData(), 0755);
        return bundle;
    }

    /// The same with a usual Info.plist.
    FileURL make(const QString &path, const QString &identifier,
                 const QByteArray &program = "#!/bin/sh\nexec sleep 600\n") const
    {
        return make(path,
                    {{QStringLiteral("CFBundleIdentifier"), identifier},
                     {QStringLiteral("CFBundleExecutable"), QStringLiteral("tool")}},
                    program);
    }
};
