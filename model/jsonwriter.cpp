#include "model/jsonwriter.h"

#include "model/base64.h"
#include "model/utf8.h"
#include "model/uuidtext.h"

#include <QtEndian>

#include <array>
#include <bit>
#include <charconv>
#include <cstring>

namespace {

// The longest that one UTF-16 code unit becomes: "\u001f".
constexpr qsizetype maximumUnitLength = 6;

char *writeEscape(char *out, char letter)
{
    *out++ = '\\';
    *out++ = letter;
    return out;
}

char *writeASCII(char *out, char c)
{
    switch (c) {
    case '"':
    case '\\':
        return writeEscape(out, c);
    case '\b':
        return writeEscape(out, 'b');
    case '\f':
        return writeEscape(out, 'f');
    case '\n':
        return writeEscape(out, 'n');
    case '\r':
        return writeEscape(out, 'r');
    case '\t':
        return writeEscape(out, 't');
    default:
        break;
    }
    if (c >= ' ') {
        *out++ = c;
        return out;
    }
    static constexpr std::string_view digits = "0123456789abcdef";
    out = writeEscape(out, 'u');
    for (const char digit : {'0', '0', digits[size_t(c >> 4)], digits[size_t(c & 0x0f)]})
        *out++ = digit;
    return out;
}

// Four code units at a time, as far as they are ASCII that needs no escape. Returns how many it
// wrote.
qsizetype writePlainUnits(char *out, const char16_t *units, qsizetype count)
{
    constexpr quint64 ones = 0x0001000100010001;
    constexpr quint64 beyondASCII = ones * 0xff80;
    constexpr quint64 top = ones << 15;
    const auto hasZero = [](quint64 lanes) { return (lanes - ones) & ~lanes & top; };
    qsizetype done = 0;
    for (; count - done >= 4; done += 4) {
        quint64 four = 0;
        std::memcpy(&four, units + done, sizeof four);
        const quint64 special = (four & beyondASCII) | ((four - ones * ' ') & top)
            | hasZero(four ^ ones * '"') | hasZero(four ^ ones * '\\');
        if (special != 0)
            break;
        for (qsizetype i = 0; i < 4; ++i)
            out[done + i] = char(units[done + i]);
    }
    return done;
}

// One character, two units for one beyond the first plane. Returns how many units it took.
qsizetype writeCharacter(char *&out, const char16_t *units, qsizetype count)
{
    const char16_t first = units[0];
    if (first < 0x80) {
        out = writeASCII(out, char(first));
        return 1;
    }
    if (QChar::isHighSurrogate(first) && count > 1 && QChar::isLowSurrogate(units[1])) {
        out = writeUTF8(out, QChar::surrogateToUcs4(first, units[1]));
        return 2;
    }
    out = writeUTF8(out, QChar::isSurrogate(first) ? char32_t(QChar::ReplacementCharacter) : first);
    return 1;
}

} // namespace

char *JSONWriter::room(qsizetype count)
{
    if (m_buffer.size() - m_size < count)
        m_buffer.resize(std::max(m_size + count, m_buffer.size() * 2));
    return m_buffer.data() + m_size;
}

QByteArray JSONWriter::take()
{
    m_buffer.truncate(std::exchange(m_size, 0));
    return std::exchange(m_buffer, {});
}

void JSONWriter::writeRaw(QByteArrayView json)
{
    char *const out = room(json.size());
    std::memcpy(out, json.data(), size_t(json.size()));
    commit(out + json.size());
}

void JSONWriter::writeString(QStringView text)
{
    char *out = room(text.size() * maximumUnitLength + 2);
    const char16_t *next = text.utf16();
    const char16_t *const end = next + text.size();
    *out++ = '"';
    while (next != end) {
        const qsizetype plain = writePlainUnits(out, next, end - next);
        next += plain;
        out += plain;
        for (int i = 0; i < 4 && next != end; ++i)
            next += writeCharacter(out, next, end - next);
    }
    *out++ = '"';
    commit(out);
}

void JSONWriter::writeUUID(const QUuid &id)
{
    char *out = room(uuidTextLength + 2);
    *out++ = '"';
    out = writeUUIDText(out, id);
    *out++ = '"';
    commit(out);
}

void JSONWriter::writeBase64(QByteArrayView bytes)
{
    char *out = room(base64Length(bytes.size()) + 2);
    *out++ = '"';
    out = ::writeBase64(out, bytes);
    *out++ = '"';
    commit(out);
}

void JSONWriter::writeInteger(qint64 value)
{
    constexpr qsizetype mostCharacters = 20;
    char *const out = room(mostCharacters);
    commit(std::to_chars(out, out + mostCharacters, value).ptr);
}
