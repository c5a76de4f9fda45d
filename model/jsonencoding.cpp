#include "model/jsonencoding.h"

#include "model/utf8.h"

#include <QChar>
#include <QtEndian>

#include <array>

namespace {

struct Encoding {
    qsizetype unitSize{1};
    bool isBigEndian{};
    qsizetype markLength{};
};

// The longer marks first: one of UTF-32's begins like UTF-16's.
std::optional<Encoding> encodingByMark(QByteArrayView text)
{
    struct Mark {
        QByteArrayView bytes;
        Encoding encoding;
    };
    static constexpr std::array<Mark, 5> marks{{
        {QByteArrayView("\xff\xfe\0\0", 4), {4, false, 4}},
        {QByteArrayView("\0\0\xfe\xff", 4), {4, true, 4}},
        {QByteArrayView("\xff\xfe", 2), {2, false, 2}},
        {QByteArrayView("\xfe\xff", 2), {2, true, 2}},
        {QByteArrayView("\xef\xbb\xbf", 3), {1, false, 3}},
    }};
    for (const Mark &mark : marks) {
        if (text.startsWith(mark.bytes))
            return mark.encoding;
    }
    return std::nullopt;
}

Encoding encodingByZeros(QByteArrayView text)
{
    if (text.size() < 4)
        return {};
    const bool isZero0 = text[0] == '\0';
    const bool isZero1 = text[1] == '\0';
    const bool isZero2 = text[2] == '\0';
    if (isZero0)
        return isZero1 ? Encoding{4, true} : Encoding{2, true};
    if (isZero1)
        return isZero2 ? Encoding{4, false} : Encoding{2, false};
    return {};
}

// One unit after the other of a text in UTF-16 or UTF-32.
class Units {
public:
    Units(QByteArrayView text, const Encoding &encoding)
        : m_text(text)
        , m_encoding(encoding)
    {
    }

    [[nodiscard]] bool isAtEnd() const { return m_text.isEmpty(); }

    char32_t next()
    {
        const char *const unit = m_text.data();
        m_text = m_text.sliced(m_encoding.unitSize);
        if (m_encoding.unitSize == 2)
            return read<quint16>(unit);
        return read<quint32>(unit);
    }

private:
    template <typename Unit> [[nodiscard]] char32_t read(const char *unit) const
    {
        return m_encoding.isBigEndian ? qFromBigEndian<Unit>(unit) : qFromLittleEndian<Unit>(unit);
    }

    QByteArrayView m_text;
    Encoding m_encoding;
};

// The next character, two units for one beyond the first plane in UTF-16.
std::optional<char32_t> nextCharacter(Units &units, bool hasPairs)
{
    const char32_t first = units.next();
    if (first > QChar::LastValidCodePoint)
        return std::nullopt;
    if (!QChar::isSurrogate(first))
        return first;
    if (!hasPairs || !QChar::isHighSurrogate(first) || units.isAtEnd())
        return std::nullopt;
    const char32_t second = units.next();
    if (!QChar::isLowSurrogate(second))
        return std::nullopt;
    return QChar::surrogateToUcs4(char16_t(first), char16_t(second));
}

std::optional<QByteArray> converted(QByteArrayView text, const Encoding &encoding)
{
    if (text.size() % encoding.unitSize != 0)
        return std::nullopt;
    // A unit of UTF-16 takes up to three bytes, one of UTF-32 up to four.
    QByteArray utf8(text.size() / 2 * 3 + qsizetype(maximumUTF8Length), Qt::Uninitialized);
    char *out = utf8.data();
    for (Units units(text, encoding); !units.isAtEnd();) {
        const std::optional<char32_t> character = nextCharacter(units, encoding.unitSize == 2);
        if (!character)
            return std::nullopt;
        out = writeUTF8(out, *character);
    }
    utf8.truncate(out - utf8.constData());
    return utf8;
}

} // namespace

std::optional<QByteArray> utf8OfJSONText(const QByteArray &text)
{
    const Encoding encoding = encodingByMark(text).value_or(encodingByZeros(text));
    if (encoding.unitSize > 1)
        return converted(QByteArrayView(text).sliced(encoding.markLength), encoding);
    return encoding.markLength == 0 ? text : text.sliced(encoding.markLength);
}
