#pragma once

#include <QByteArrayView>

#include <optional>

/// How many bytes the JSON number has that the text begins with; 0 if it begins with none.
[[nodiscard]] qsizetype jsonNumberLength(QByteArrayView text);

/// The value of a whole JSON number, if that is an integer that qint64 holds.
[[nodiscard]] std::optional<qint64> integerOfJSONNumber(QByteArrayView number);
