#pragma once

#include <QByteArray>
#include <QString>
#include <QVariantMap>

#include <optional>

// Small file operations of the stand-in's programs. Failures throw PlatformErrors.

[[nodiscard]] QByteArray readFile(const QString &path);
/// Replaces the file by way of a temporary one; makes the directories above it.
void writeFile(const QString &path, const QByteArray &bytes);
/// The dictionary that a property-list file holds; nothing when there is none or it is another
/// value.
[[nodiscard]] std::optional<QVariantMap> readDictionary(const QString &path);
void makeDirectories(const QString &path);
void makeLink(const QString &path, const QString &target);
/// Copies a program and makes it executable.
void copyExecutable(const QString &from, const QString &to);
