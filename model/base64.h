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

/// How much of the text, from its front, bytesFromBase64 has bytes for, found in less time: as far
/// as the characters and their fill go; 0 when those are no whole groups.
[[nodiscard]] qsizetype base64FrontLength(QByteArrayView text);

/// Whether bytesFromBase64 has bytes for all of the text.
[[nodiscard]] inline bool isBase64(QByteArrayView text)
{
    return base64FrontLength(text) == text.size();
}

/// The bytes of a standard Base64 text. Strict: whole groups of four, nothing but the 64
/// characters,
/// "=" only to fill the last group; bits that the fill leaves over are not looked at.
[[nodiscard]] std::optional<QByteArray> bytesFromBase64(QByteArrayView text);
