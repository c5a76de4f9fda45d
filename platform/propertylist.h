#pragma once

#include <QByteArray>
#include <QVariant>

/// Property lists, XML or binary. A dictionary is a QVariantMap, an array a QVariantList, a string
/// a QString, an integer a qint64 (quint64 above its range), a real a double, a boolean a bool, a
/// date a QDateTime in UTC and data a QByteArray.

/// The value that the bytes hold. Throws PlatformError when they hold none; `path` is for its text.
[[nodiscard]] QVariant parsePropertyList(QByteArrayView bytes, const QString &path);

enum class PropertyListFormat { XML, Binary };

/// The bytes for a value made of the types above, dictionary keys in order: equal values give equal
/// bytes. Throws PlatformError for any other type.
[[nodiscard]] QByteArray serializePropertyList(const QVariant &value, PropertyListFormat format);
