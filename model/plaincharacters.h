#pragma once

#include <QtEndian>

#include <bit>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// Finds the characters of JSON text that need a look: the quote, the backslash, control characters
/// and everything that is not ASCII. The others are plain.
class PlainCharacters {
public:
#if defined(__SSE2__)
    static constexpr qsizetype blockSize = 16;
    using Marks = unsigned;

    /// Marks what is not plain in a block; 0 if all of it is.
    [[nodiscard]] static Marks otherCharacters(const char *block)
    {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(block));
        const __m128i quotes = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('"'));
        const __m128i backslashes = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\\'));
        // As signed numbers, everything beyond ASCII is below the blank too.
        const __m128i others = _mm_cmplt_epi8(bytes, _mm_set1_epi8(' '));
        return Marks(_mm_movemask_epi8(_mm_or_si128(_mm_or_si128(quotes, backslashes), others)));
    }
    /// How many plain characters come before the first that is marked.
    [[nodiscard]] static qsizetype countBefore(Marks marks)
    {
        return std::countr_zero(marks);
    }
#else
    static constexpr qsizetype blockSize = 8;
    using Marks = quint64;

    [[nodiscard]] static Marks otherCharacters(const char *block)
    {
        const auto bytes = qFromLittleEndian<quint64>(block);
        return (zeroBytes(bytes ^ ones * '"') | zeroBytes(bytes ^ ones * '\\')
                | ((bytes - ones * ' ') & ~bytes) | bytes)
            & ones << 7;
    }
    [[nodiscard]] static qsizetype countBefore(Marks marks)
    {
        return std::countr_zero(marks) / 8;
    }

private:
    static constexpr quint64 ones = 0x0101010101010101;

    // Marks the zero bytes; bytes above the lowest of them may be marked wrongly.
    static constexpr quint64 zeroBytes(quint64 bytes)
    {
        return (bytes - ones) & ~bytes;
    }
#endif
};
