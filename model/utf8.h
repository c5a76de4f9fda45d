#pragma once

#include <QByteArrayView>

#include <optional>

/// The most bytes that one character has in UTF-8.
inline constexpr size_t maximumUTF8Length = 4;

/// One character of a UTF-8 text.
struct DecodedCharacter {
    char32_t character{};
    qsizetype length{}; ///< in bytes
};

/// The first character of a text. Strict: nothing for cut off or needlessly long forms, surrogates
/// and what lies beyond Unicode.
[[nodiscard]] std::optional<DecodedCharacter> decodeUTF8(QByteArrayView text);

/// Writes a character and returns the end of it.
char *writeUTF8(char *out, char32_t character);

/// How many digits name a UTF-16 code unit.
inline constexpr qsizetype hexUnitLength = 4;

/// The code unit that the four hexadecimal digits at the front of the text name.
[[nodiscard]] std::optional<char16_t> hexUnit(QByteArrayView text);
