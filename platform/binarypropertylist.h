#pragma once

#include <QByteArray>
#include <QVariant>

// The binary form of propertylist.h's values.

[[nodiscard]] bool isBinaryPropertyList(QByteArrayView bytes);
/// Throws PlatformError; `path` is for its text.
[[nodiscard]] QVariant parseBinaryPropertyList(QByteArrayView bytes, const QString &path);
/// Throws PlatformError.
[[nodiscard]] QByteArray serializeBinaryPropertyList(const QVariant &value);
