#include "model/jsonreader.h"

#include "model/jsonnumber.h"
#include "model/plaincharacters.h"
#include "model/utf8.h"

#include <QStringConverter>

#include <cstring>

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

bool isPlain(char c)
{
    return static_cast<signed char>(c) >= ' ' && c != '"' && c != '\\';
}

// The first character of a JSON string's text that is not plain.
const char *endOfPlainCharacters(const char *next, const char *end)
{
    for (; end - next >= PlainCharacters::blockSize; next += PlainCharacters::blockSize) {
        if (const auto others = PlainCharacters::otherCharacters(next); others != 0)
            return next + PlainCharacters::countBefore(others);
    }
    while (next != end && isPlain(*next))
        ++next;
    return next;
}

} // namespace

void JSONReader::skipBlanks()
{
    while (m_next != m_end && isBlank(*m_next))
        ++m_next;
}

bool JSONReader::readIf(char c)
{
    skipBlanks();
    if (m_next == m_end || *m_next != c)
        return false;
    ++m_next;
    return true;
}

void JSONReader::expect(char c)
{
    if (!readIf(c))
        throw InvalidJSON();
}

void JSONReader::enter(char bracket)
{
    expect(bracket);
    if (++m_depth > maximumDepth)
        throw InvalidJSON();
}

QByteArrayView JSONReader::readUTF8()
{
    expect('"');
    const char *const start = m_next;
    m_next = endOfPlainCharacters(start, m_end);
    if (m_next != m_end && *m_next == '"')
        return {start, m_next++};
    return readEscapedUTF8(start);
}

QString JSONReader::readString()
{
    const QByteArrayView utf8 = readUTF8();
    if (utf8.data() != m_unescaped.data()) // plain characters are ASCII
        return QString::fromLatin1(utf8);
    // QString::fromUtf8 would drop a byte order mark at the front, which is a character like
    // others.
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    return decoder(utf8);
}

// Reads on from the first character that is not plain.
QByteArrayView JSONReader::readEscapedUTF8(const char *start)
{
    m_unescapedSize = 0;
    m_next = start;
    while (true) {
        copyPlainCharacters();
        if (m_next == m_end)
            throw InvalidJSON();
        if (*m_next == '"')
            break;
        if (*m_next == '\\')
            copyEscape();
        else
            copyMultibyteCharacter();
    }
    ++m_next;
    return {m_unescaped.data(), qsizetype(m_unescapedSize)};
}

void JSONReader::makeRoom(size_t count)
{
    constexpr size_t minimum = 256;
    if (m_unescaped.size() - m_unescapedSize < count)
        m_unescaped.resize(std::max(minimum, 2 * m_unescaped.size()));
}

// A block is copied before it is known how much of it is plain: what is too much is overwritten. Of
// an escaped slash, which some writers make of every slash in a picture, only the backslash is
// dropped.
void JSONReader::copyPlainBlocks()
{
    constexpr qsizetype blockSize = PlainCharacters::blockSize;
    const char *next = m_next; // locals: what is copied could alias a member
    const char *const end = m_end;
    char *out = m_unescaped.data() + m_unescapedSize;
    const char *const outEnd = m_unescaped.data() + m_unescaped.size();
    while (end - next >= blockSize && outEnd - out >= blockSize) {
        std::memcpy(out, next, size_t(blockSize));
        const auto others = PlainCharacters::otherCharacters(next);
        const qsizetype count = others == 0 ? blockSize : PlainCharacters::countBefore(others);
        next += count;
        out += count;
        if (others == 0)
            continue;
        if (end - next < 2 || next[0] != '\\' || next[1] != '/')
            break;
        ++next;
    }
    m_next = next;
    m_unescapedSize = size_t(out - m_unescaped.data());
}

void JSONReader::copyPlainCharacters()
{
    do {
        makeRoom(PlainCharacters::blockSize);
        copyPlainBlocks();
    } while (m_end - m_next >= PlainCharacters::blockSize && isPlain(*m_next));
    while (m_next != m_end && isPlain(*m_next))
        append(char32_t(*m_next++));
}

void JSONReader::copyMultibyteCharacter()
{
    const std::optional<DecodedCharacter> decoded = decodeUTF8({m_next, m_end});
    if (!decoded || decoded->character < U' ')
        throw InvalidJSON();
    append(decoded->character);
    m_next += decoded->length;
}

void JSONReader::append(char32_t character)
{
    makeRoom(maximumUTF8Length);
    char *const out = m_unescaped.data() + m_unescapedSize;
    m_unescapedSize += size_t(writeUTF8(out, character) - out);
}

void JSONReader::copyEscape()
{
    ++m_next;
    if (m_next == m_end)
        throw InvalidJSON();
    switch (const char c = *m_next++) {
    case '"':
    case '\\':
    case '/':
        return append(char32_t(c));
    case 'b':
        return append(U'\b');
    case 'f':
        return append(U'\f');
    case 'n':
        return append(U'\n');
    case 'r':
        return append(U'\r');
    case 't':
        return append(U'\t');
    case 'u':
        return append(readHexCharacter());
    default:
        throw InvalidJSON();
    }
}

// The character of a "\u" escape, or of two that are a surrogate pair, from behind the first "\u".
char32_t JSONReader::readHexCharacter()
{
    const auto readUnit = [this] {
        const std::optional<char16_t> unit = hexUnit(rest());
        if (!unit)
            throw InvalidJSON();
        m_next += hexUnitLength;
        return *unit;
    };
    const char16_t first = readUnit();
    if (!QChar::isSurrogate(first))
        return first;
    if (!QChar::isHighSurrogate(first) || !rest().startsWith("\\u"))
        throw InvalidJSON();
    m_next += 2;
    const char16_t second = readUnit();
    if (!QChar::isLowSurrogate(second))
        throw InvalidJSON();
    return QChar::surrogateToUcs4(first, second);
}

QByteArrayView JSONReader::readNumber()
{
    const qsizetype length = jsonNumberLength(rest());
    if (length == 0)
        throw InvalidJSON();
    const QByteArrayView number = rest().first(length);
    m_next += length;
    return number;
}

qint64 JSONReader::readInteger()
{
    skipBlanks();
    const std::optional<qint64> value = integerOfJSONNumber(readNumber());
    if (!value)
        throw InvalidJSON();
    return *value;
}

bool JSONReader::readNull()
{
    skipBlanks();
    if (m_next == m_end || *m_next != 'n')
        return false;
    skipWord("null");
    return true;
}

void JSONReader::skipWord(QByteArrayView word)
{
    if (!rest().startsWith(word))
        throw InvalidJSON();
    m_next += word.size();
}

void JSONReader::skipValue()
{
    skipBlanks();
    switch (m_next == m_end ? '\0' : *m_next) {
    case '{':
        return readObject([this](QByteArrayView) { skipValue(); });
    case '[':
        return readArray([this] { skipValue(); });
    case '"':
        return void(readUTF8());
    case 'n':
        return skipWord("null");
    case 't':
        return skipWord("true");
    case 'f':
        return skipWord("false");
    default:
        return void(readNumber());
    }
}

void JSONReader::readEnd()
{
    skipBlanks();
    if (m_next != m_end)
        throw InvalidJSON();
}
