#pragma once

#include <QByteArray>
#include <QVariant>

// The XML form of propertylist.h's values. Its numbers know no locale.

/// Throws PlatformError; `path` is for its text.
[[nodiscard]] QVariant parseXMLPropertyList(QByteArrayView bytes, const QString &path);
/// Throws PlatformError.
[[nodiscard]] QByteArray serializeXMLPropertyList(const QVariant &value);
