#include "model/utf8.h"

#include <QChar>

namespace {

constexpr unsigned continuationBits = 6;

char continuationByte(char32_t bits)
{
    return char(0x80 | (bits & 0x3f));
}

// How many bytes follow a first byte, what that byte brings, and the least that is worth the
// length.
struct Sequence {
    qsizetype following{};
    char32_t bits{};
    char32_t least{};
};

std::optional<Sequence> sequenceOf(unsigned char first)
{
    if (first < 0x80)
        return Sequence{0, first, 0};
    if (first >= 0xc0 && first < 0xe0)
        return Sequence{1, first & 0x1fu, 0x80};
    if (first >= 0xe0 && first < 0xf0)
        return Sequence{2, first & 0x0fu, 0x800};
    if (first >= 0xf0 && first < 0xf8)
        return Sequence{3, first & 0x07u, 0x10000};
    return std::nullopt;
}

int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

} // namespace

std::optional<DecodedCharacter> decodeUTF8(QByteArrayView text)
{
    if (text.isEmpty())
        return std::nullopt;
    const auto sequence = sequenceOf(static_cast<unsigned char>(text.front()));
    if (!sequence || text.size() <= sequence->following)
        return std::nullopt;
    char32_t character = sequence->bits;
    for (const char c : text.sliced(1, sequence->following)) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xc0) != 0x80)
            return std::nullopt;
        character = character << continuationBits | (byte & 0x3fu);
    }
    if (character < sequence->least || character > QChar::LastValidCodePoint
        || QChar::isSurrogate(character))
        return std::nullopt;
    return DecodedCharacter{character, sequence->following + 1};
}

char *writeUTF8(char *out, char32_t character)
{
    if (character < 0x80) {
        *out++ = char(character);
    } else if (character < 0x800) {
        *out++ = char(0xc0 | character >> continuationBits);
        *out++ = continuationByte(character);
    } else if (character < 0x10000) {
        *out++ = char(0xe0 | character >> 2 * continuationBits);
        *out++ = continuationByte(character >> continuationBits);
        *out++ = continuationByte(character);
    } else {
        *out++ = char(0xf0 | character >> 3 * continuationBits);
        *out++ = continuationByte(character >> 2 * continuationBits);
        *out++ = continuationByte(character >> continuationBits);
        *out++ = continuationByte(character);
    }
    return out;
}

std::optional<char16_t> hexUnit(QByteArrayView text)
{
    if (text.size() < hexUnitLength)
        return std::nullopt;
    int unit = 0;
    for (const char c : text.first(hexUnitLength)) {
        const int digit = hexDigit(c);
        if (digit < 0)
            return std::nullopt;
        unit = unit << 4 | digit;
    }
    return char16_t(unit);
}
