#pragma once

#include "platform/error.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QString>
#include <QVariantMap>

#include <optional>

// What the two forms of property lists have in common.

/// Deeper values are refused: they are no real property lists, and reading them would use up the
/// stack.
constexpr int deepestPropertyList = 512;

[[nodiscard]] inline PlatformError malformedPropertyList(const QString &path, const QString &reason)
{
    return {PlatformError::Action::Read, path, reason};
}

[[nodiscard]] inline PlatformError unwritableValue(const char *typeName)
{
    return PlatformError(QCoreApplication::translate(
                             "PlatformError", "A property list cannot hold a value of the type %1")
                             .arg(QString::fromLatin1(typeName ? typeName : "none")));
}

/// Keyed archives refer to their objects by number. XML shows such a reference as this dictionary.
[[nodiscard]] inline QVariantMap objectReference(quint64 number)
{
    return {{QStringLiteral("CF$UID"), static_cast<qint64>(number)}};
}

[[nodiscard]] inline std::optional<quint64> objectReferenceNumber(const QVariantMap &map)
{
    const QVariant number = map.value(QStringLiteral("CF$UID"));
    if (map.size() != 1 || number.typeId() != QMetaType::LongLong || number.toLongLong() < 0)
        return std::nullopt;
    return number.toULongLong();
}
