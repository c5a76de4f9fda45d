#pragma once

#include <QString>
#include <QUuid>

#include <optional>

/// The canonical text of a UUID: 36 characters, upper case, with hyphens.
[[nodiscard]] QString uuidText(const QUuid &id);

/// The UUID of a canonical text in either case; nothing for any other text (no braces, no blanks).
[[nodiscard]] std::optional<QUuid> uuidFromText(QStringView text);
