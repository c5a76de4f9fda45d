#include "sandbox/common/files.h"

#include "platform/error.h"
#include "platform/propertylist.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cstring>

#include <unistd.h>

using Action = PlatformError::Action;

QByteArray readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw PlatformError(Action::Read, path, file.errorString());
    return file.readAll();
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    makeDirectories(QFileInfo(path).path());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw PlatformError(Action::Write, path, file.errorString());
}

std::optional<QVariantMap> readDictionary(const QString &path)
{
    try {
        const QVariant value = parsePropertyList(readFile(path), path);
        if (value.metaType() == QMetaType::fromType<QVariantMap>())
            return value.toMap();
    } catch (const Error &) { // NOLINT(bugprone-empty-catch): then there is no dictionary
    }
    return std::nullopt;
}

void makeDirectories(const QString &path)
{
    if (!QDir().mkpath(path))
        throw PlatformError(Action::Create, path, QString::fromLocal8Bit(std::strerror(errno)));
}

void makeLink(const QString &path, const QString &target)
{
    makeDirectories(QFileInfo(path).path());
    QFile::remove(path); // the link itself, when there is one
    // QFile::link would make the target absolute.
    if (symlink(QFile::encodeName(target).constData(), QFile::encodeName(path).constData()) != 0)
        throw PlatformError::fromErrno(Action::Create, path, errno);
}

void copyExecutable(const QString &from, const QString &to)
{
    writeFile(to, readFile(from));
    QFile::setPermissions(to, QFile::permissions(from));
}
