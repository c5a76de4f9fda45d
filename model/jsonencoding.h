#pragma once

#include <QByteArray>

#include <optional>

/// A JSON text as UTF-8 without a byte order mark. Its own encoding shows in such a mark or in
/// where its first characters, which are ASCII, have zero bytes. Nothing for broken UTF-16 or
/// UTF-32; UTF-8 is passed on as it is, sharing its bytes.
[[nodiscard]] std::optional<QByteArray> utf8OfJSONText(const QByteArray &text);
