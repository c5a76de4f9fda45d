#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

/// How many characters the Base64 text of that many bytes has.
[[nodiscard]] constexpr qsizetype base64Length(qsizetype byteCount)
{
    return (byteCount + 2) / 3 * 4;
}

/// Writes the standard Base64 text, filled up with "=", and returns the end of it.
char *writeBase64(char *out, QByteArrayView bytes);

/// Whether bytesFromBase64 has bytes for the text, in less time.
[[nodiscard]] bool isBase64(QByteArrayView text);

/// The bytes of a standard Base64 text. Strict: whole groups of four, nothing but the 64
/// characters,
/// "=" only to fill the last group; bits that the fill leaves over are not looked at.
[[nodiscard]] std::optional<QByteArray> bytesFromBase64(QByteArrayView text);
