#pragma once

#include <QByteArrayView>
#include <QString>
#include <QUuid>

#include <optional>

/// How many characters the text of a UUID has.
inline constexpr qsizetype uuidTextLength = 36;

/// The canonical text of a UUID: 36 characters, upper case, with hyphens.
[[nodiscard]] QString uuidText(const QUuid &id);
/// Writes the same text as ASCII and returns the end of it.
char *writeUUIDText(char *out, const QUuid &id);

/// The UUID of a canonical text in either case; nothing for any other text (no braces, no blanks).
[[nodiscard]] std::optional<QUuid> uuidFromText(QStringView text);
[[nodiscard]] std::optional<QUuid> uuidFromText(QByteArrayView text);
