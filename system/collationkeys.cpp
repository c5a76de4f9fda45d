#include "system/collationkeys.h"

#include <QtEndian>

#include <unicode/ucol.h>

#include <algorithm>
#include <cstring>

namespace {

// Without a language of its own the C locale would order by character code, capitals first and
// accents last, which is no order for people.
QByteArray collationLocale(const QLocale &locale)
{
    const QLocale collation = locale.collation();
    return collation.language() == QLocale::C ? QByteArray("") : collation.name().toLatin1();
}

quint64 firstBytes(const uchar *key, size_t length)
{
    quint64 bytes = 0; // a key shorter than this goes before those that continue it
    std::memcpy(&bytes, key, std::min(length, sizeof bytes));
    return qFromBigEndian(bytes);
}

} // namespace

/// The library's collator, closed when done with.
class CollationKeys::Collator {
public:
    Collator(const QLocale &locale, Digits digits)
        : m_collator(ucol_open(collationLocale(locale).constData(), &m_status))
    {
        ucol_setStrength(m_collator, UCOL_SECONDARY); // accents count, case does not
        if (digits == Digits::AsNumbers)
            ucol_setAttribute(m_collator, UCOL_NUMERIC_COLLATION, UCOL_ON, &m_status);
        if (U_FAILURE(m_status))
            qFatal("No collation data: %s", u_errorName(m_status));
    }
    ~Collator() { ucol_close(m_collator); }
    Q_DISABLE_COPY_MOVE(Collator)

    /// Writes as much of the key as there is room for; how long it is in all.
    size_t writeKey(QStringView name, uchar *key, size_t room) const
    {
        return static_cast<size_t>(ucol_getSortKey(m_collator, name.utf16(),
                                                   static_cast<int32_t>(name.size()), key,
                                                   static_cast<int32_t>(room)));
    }

private:
    UErrorCode m_status = U_ZERO_ERROR;
    UCollator *m_collator;
};

CollationKeys::CollationKeys(const QLocale &locale, Digits digits)
    : m_collator(std::make_unique<Collator>(locale, digits))
{
}

CollationKeys::~CollationKeys() = default;

CollationKeys::Key CollationKeys::add(QStringView name)
{
    constexpr size_t usualRoom = 256;
    if (m_bytes.size() - m_used < usualRoom)
        m_bytes.resize(m_bytes.size() * 2 + usualRoom);
    size_t length = m_collator->writeKey(name, m_bytes.data() + m_used, m_bytes.size() - m_used);
    if (length > m_bytes.size() - m_used) {
        m_bytes.resize(m_used + length);
        length = m_collator->writeKey(name, m_bytes.data() + m_used, length);
    }
    const Key key{
        .prefix = firstBytes(m_bytes.data() + m_used, length), .offset = m_used, .length = length};
    m_used += length;
    return key;
}

std::strong_ordering CollationKeys::compare(const Key &a, const Key &b) const
{
    if (a.prefix != b.prefix)
        return a.prefix <=> b.prefix;
    // Keys end in a zero byte and hold no other, so the shorter of two cannot begin the longer.
    return std::memcmp(m_bytes.data() + a.offset, m_bytes.data() + b.offset,
                       std::min(a.length, b.length))
        <=> 0;
}
