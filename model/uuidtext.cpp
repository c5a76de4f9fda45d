#include "model/uuidtext.h"

#include <array>

namespace {

using Bytes = std::array<quint8, 16>;

// Where each byte's two digits stand in the text.
constexpr std::array<qsizetype, 16> digitPositions{0,  2,  4,  6,  9,  11, 14, 16,
                                                   19, 21, 24, 26, 28, 30, 32, 34};
constexpr std::array<qsizetype, 4> hyphenPositions{8, 13, 18, 23};

constexpr quint8 noDigit = 0xff;

constexpr std::array<quint8, 256> makeDigitValues()
{
    std::array<quint8, 256> values{};
    values.fill(noDigit);
    for (quint8 digit = 0; digit < 10; ++digit)
        values.at(size_t('0') + digit) = digit;
    for (quint8 digit = 10; digit < 16; ++digit) {
        values.at(size_t('A') + digit - 10) = digit;
        values.at(size_t('a') + digit - 10) = digit;
    }
    return values;
}
constexpr std::array<quint8, 256> digitValues = makeDigitValues();

Bytes bytesOf(const QUuid &id)
{
    Bytes bytes{quint8(id.data1 >> 24), quint8(id.data1 >> 16), quint8(id.data1 >> 8),
                quint8(id.data1),       quint8(id.data2 >> 8),  quint8(id.data2),
                quint8(id.data3 >> 8),  quint8(id.data3)};
    std::copy(std::begin(id.data4), std::end(id.data4), bytes.begin() + 8);
    return bytes;
}

QUuid uuidOf(const Bytes &b)
{
    return {uint(b[0]) << 24 | uint(b[1]) << 16 | uint(b[2]) << 8 | uint(b[3]),
            ushort(b[4] << 8 | b[5]),
            ushort(b[6] << 8 | b[7]),
            b[8],
            b[9],
            b[10],
            b[11],
            b[12],
            b[13],
            b[14],
            b[15]};
}

quint8 digitValue(char c)
{
    return digitValues[quint8(c)]; // NOLINT(cppcoreguidelines-pro-bounds-constant-array-index)
}

quint8 digitValue(char16_t c)
{
    return c < digitValues.size() ? digitValues.at(c) : noDigit;
}

template <typename Character>
std::optional<QUuid> parseUUID(const Character *text, qsizetype length)
{
    if (length != uuidTextLength)
        return std::nullopt;
    for (const qsizetype position : hyphenPositions) {
        if (text[position] != Character('-'))
            return std::nullopt;
    }
    Bytes bytes{};
    unsigned bad = 0;
    for (size_t i = 0; i < bytes.size(); ++i) {
        const unsigned high = digitValue(text[digitPositions.at(i)]);
        const unsigned low = digitValue(text[digitPositions.at(i) + 1]);
        bad |= high | low;
        bytes.at(i) = quint8(high << 4 | low);
    }
    if (bad > 0x0f)
        return std::nullopt;
    return uuidOf(bytes);
}

} // namespace

char *writeUUIDText(char *out, const QUuid &id)
{
    static constexpr std::string_view digits = "0123456789ABCDEF";
    const Bytes bytes = bytesOf(id);
    for (size_t i = 0; i < bytes.size(); ++i) {
        char *pair = out + digitPositions.at(i);
        pair[0] = digits[bytes.at(i) >> 4];
        pair[1] = digits[bytes.at(i) & 0x0f];
    }
    for (const qsizetype position : hyphenPositions)
        out[position] = '-';
    return out + uuidTextLength;
}

QString uuidText(const QUuid &id)
{
    std::array<char, uuidTextLength> text{};
    writeUUIDText(text.data(), id);
    return QString::fromLatin1(text.data(), uuidTextLength);
}

std::optional<QUuid> uuidFromText(QStringView text)
{
    return parseUUID(text.utf16(), text.size());
}

std::optional<QUuid> uuidFromText(QByteArrayView text)
{
    return parseUUID(text.data(), text.size());
}
