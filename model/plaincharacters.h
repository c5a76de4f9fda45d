#pragma once

#include <QtEndian>

#include <bit>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// A block of JSON text, for finding the first character that needs a look: the quote, the
/// backslash, control characters and everything that is not ASCII.
class PlainCharacters {
public:
#if defined(__SSE2__)
    static constexpr qsizetype blockSize = 16;

    /// How many plain characters a block begins with: blockSize if it holds no other.
    [[nodiscard]] static qsizetype count(const char *block)
    {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(block));
        const __m128i quotes = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('"'));
        const __m128i backslashes = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\\'));
        // As signed numbers, everything beyond ASCII is below the blank too.
        const __m128i others = _mm_cmplt_epi8(bytes, _mm_set1_epi8(' '));
        const __m128i special = _mm_or_si128(_mm_or_si128(quotes, backslashes), others);
        return std::countr_zero(unsigned(_mm_movemask_epi8(special)) | 1u << blockSize);
    }
#else
    static constexpr qsizetype blockSize = 8;

    [[nodiscard]] static qsizetype count(const char *block)
    {
        const auto bytes = qFromLittleEndian<quint64>(block);
        const quint64 special = zeroBytes(bytes ^ ones * '"') | zeroBytes(bytes ^ ones * '\\')
            | ((bytes - ones * ' ') & ~bytes) | bytes;
        return std::countr_zero(special & highBits) / 8;
    }

private:
    static constexpr quint64 ones = 0x0101010101010101;
    static constexpr quint64 highBits = ones << 7;

    // Marks the zero bytes; bytes above the lowest of them may be marked wrongly.
    static constexpr quint64 zeroBytes(quint64 bytes)
    {
        return (bytes - ones) & ~bytes;
    }
#endif
};
