#include "model/base64.h"

#include <QtEndian>

#include <array>
#include <cstring>
#include <string_view>

#ifdef __x86_64__
#include <immintrin.h>
#endif

namespace {

constexpr std::string_view alphabet
    = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr qsizetype groupLength = 4; // characters for three bytes

// For each character its six bits, where they belong in the three bytes of a group as a
// little-endian number holds them, if the character stands at one of the group's four places. Any
// other character has a bit above these.
using Places = std::array<std::array<quint32, 256>, groupLength>;
constexpr quint32 notInAlphabet = 1u << 24;

constexpr Places makePlaces()
{
    Places places{};
    for (auto &place : places)
        place.fill(notInAlphabet);
    for (quint32 value = 0; value < alphabet.size(); ++value) {
        const auto c = static_cast<unsigned char>(alphabet.at(value));
        places[0].at(c) = value << 2;
        places[1].at(c) = value >> 4 | (value & 0x0f) << 12;
        places[2].at(c) = (value >> 2) << 8 | (value & 0x03) << 22;
        places[3].at(c) = value << 16;
    }
    return places;
}
constexpr Places places = makePlaces();

// Both characters of each twelve bits.
using Pair = std::array<char, 2>;
constexpr std::array<Pair, 4096> makePairs()
{
    std::array<Pair, 4096> pairs{};
    for (size_t bits = 0; bits < pairs.size(); ++bits)
        pairs.at(bits) = {alphabet.at(bits >> 6), alphabet.at(bits & 0x3f)};
    return pairs;
}
constexpr std::array<Pair, 4096> pairs = makePairs();

// NOLINTBEGIN(cppcoreguidelines-pro-bounds-constant-array-index): indices are bytes or masked

quint32 decodedGroup(const char *text)
{
    return places[0][quint8(text[0])] | places[1][quint8(text[1])] | places[2][quint8(text[2])]
        | places[3][quint8(text[3])];
}

// Writes six bytes and touches two more.
void storeGroups(char *out, quint32 first, quint32 second)
{
    const quint64 bytes = qToLittleEndian(first | quint64(second) << 24);
    std::memcpy(out, &bytes, sizeof bytes);
}

// How much more than what they decode some of these functions touch.
constexpr qsizetype spare = 16;

#ifdef __x86_64__

constexpr qsizetype blockLength = 16;
using NibbleTable = std::array<qint8, 16>;

// What tells the characters of the alphabet from others by the two halves of their byte. Upper
// halves after which the same lower halves belong to the alphabet share a bit; the other table has,
// for each lower half, the bits of those after which it does not.
struct BlockTables {
    NibbleTable bitOfUpper{};
    NibbleTable bitsWithoutLower{};
    NibbleTable
        toValue{}; ///< what to add to a character; for a slash at 1, by which it comes first
};

constexpr BlockTables makeBlockTables()
{
    std::array<quint32, 16> lowers{}; // a bit for each lower half that belongs after an upper one
    BlockTables tables;
    for (size_t value = 0; value < alphabet.size(); ++value) {
        const auto c = static_cast<unsigned char>(alphabet.at(value));
        lowers.at(c >> 4) |= 1u << (c & 0x0f);
        tables.toValue.at(c == '/' ? 1 : c >> 4) = static_cast<qint8>(int(value) - int(c));
    }
    qint8 nextBit = 1;
    for (size_t upper = 0; upper < lowers.size(); ++upper) {
        size_t same = 0;
        while (lowers.at(same) != lowers.at(upper))
            ++same;
        if (same < upper) {
            tables.bitOfUpper.at(upper) = tables.bitOfUpper.at(same);
            continue;
        }
        tables.bitOfUpper.at(upper) = nextBit;
        for (size_t lower = 0; lower < tables.bitsWithoutLower.size(); ++lower) {
            if ((lowers.at(upper) >> lower & 1) == 0)
                tables.bitsWithoutLower.at(lower) |= nextBit;
        }
        nextBit = static_cast<qint8>(nextBit << 1);
    }
    return tables;
}
constexpr BlockTables blockTables = makeBlockTables();

// Decodes blocks of four groups as far as there are no other characters in them; returns the number
// of groups. Four times as fast as by the tables of characters, and pictures are most of a library.
__attribute__((target("ssse3"))) qsizetype decodeBlocks(QByteArrayView text, char *out)
{
    const auto loaded = [](const NibbleTable &table) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i *>(table.data()));
    };
    const __m128i bitOfUpper = loaded(blockTables.bitOfUpper);
    const __m128i bitsWithoutLower = loaded(blockTables.bitsWithoutLower);
    const __m128i toValue = loaded(blockTables.toValue);
    const __m128i half = _mm_set1_epi8(0x0f);
    const __m128i slash = _mm_set1_epi8('/');
    const __m128i joinPairs
        = _mm_set1_epi32(0x01400140); // a character's six bits before the next's
    const __m128i joinGroups = _mm_set1_epi32(0x00011000); // a pair's twelve bits before the next's
    const __m128i inOrder = _mm_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1);
    const qsizetype count = text.size() / blockLength;
    const char *next = text.begin();
    for (qsizetype i = 0; i < count; ++i) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i *>(next));
        const __m128i upper = _mm_and_si128(_mm_srli_epi32(block, 4), half);
        const __m128i others
            = _mm_and_si128(_mm_shuffle_epi8(bitOfUpper, upper),
                            _mm_shuffle_epi8(bitsWithoutLower, _mm_and_si128(block, half)));
        if (_mm_movemask_epi8(_mm_cmpeq_epi8(others, _mm_setzero_si128())) != 0xffff)
            return i * blockLength / groupLength;
        const __m128i place = _mm_add_epi8(upper, _mm_cmpeq_epi8(block, slash)); // -1 where equal
        const __m128i values = _mm_add_epi8(block, _mm_shuffle_epi8(toValue, place));
        const __m128i groups = _mm_madd_epi16(_mm_maddubs_epi16(values, joinPairs), joinGroups);
        _mm_storeu_si128(reinterpret_cast<__m128i *>(out), _mm_shuffle_epi8(groups, inOrder));
        next += blockLength;
        out += blockLength / groupLength * 3;
    }
    return count * blockLength / groupLength;
}

bool canDecodeBlocks()
{
    static const bool can = __builtin_cpu_supports("ssse3") != 0;
    return can;
}

#else

bool canDecodeBlocks()
{
    return false;
}
qsizetype decodeBlocks(QByteArrayView, char *)
{
    return 0;
}

#endif

// Decodes whole groups, two at a time, as far as there are no others; returns the number of groups.
qsizetype decodePlainGroups(QByteArrayView text, char *out)
{
    const qsizetype count = text.size() / groupLength / 2 * 2;
    const char *next = text.begin();
    for (qsizetype i = 0; i < count; i += 2) {
        const quint32 first = decodedGroup(next);
        const quint32 second = decodedGroup(next + groupLength);
        if ((first | second) >= notInAlphabet)
            return i;
        storeGroups(out, first, second);
        next += 2 * groupLength;
        out += 6;
    }
    return count;
}

// Decodes one group, the last one with its fill; returns how many bytes it gives, 0 if it is none.
qsizetype decodeGroup(const char *text, bool isLast, char *out)
{
    std::array<char, groupLength> group{text[0], text[1], text[2], text[3]};
    qsizetype fill = 0;
    for (; isLast && fill < 2 && group.at(size_t(3 - fill)) == '='; ++fill)
        group.at(size_t(3 - fill)) = alphabet.front();
    const quint32 bytes = decodedGroup(group.data());
    if (bytes >= notInAlphabet)
        return 0;
    storeGroups(out, bytes, 0);
    return 3 - fill;
}

char *writePair(char *out, quint64 bits)
{
    const Pair &pair = pairs[bits & 0xfff];
    return std::copy(pair.begin(), pair.end(), out);
}

// The text of the last one or two bytes.
char *writeRest(char *out, QByteArrayView rest)
{
    const quint32 first = quint8(rest[0]);
    const quint32 second = rest.size() > 1 ? quint8(rest[1]) : 0;
    out = writePair(out, first << 4 | second >> 4);
    *out++ = rest.size() > 1 ? alphabet[(second & 0x0f) << 2] : '=';
    *out++ = '=';
    return out;
}

// NOLINTEND(cppcoreguidelines-pro-bounds-constant-array-index)

} // namespace

std::optional<QByteArray> bytesFromBase64(QByteArrayView text)
{
    if (text.size() % groupLength != 0)
        return std::nullopt;
    const qsizetype count = text.size() / groupLength;
    QByteArray bytes(count * 3 + spare, Qt::Uninitialized);
    qsizetype group = canDecodeBlocks() ? decodeBlocks(text, bytes.data()) : 0;
    group += decodePlainGroups(text.sliced(group * groupLength), bytes.data() + group * 3);
    qsizetype size = group * 3;
    for (; group < count; ++group) {
        const char *const next = text.data() + group * groupLength;
        const qsizetype added = decodeGroup(next, group == count - 1, bytes.data() + size);
        if (added == 0)
            return std::nullopt;
        size += added;
    }
    bytes.truncate(size);
    return bytes;
}

char *writeBase64(char *out, QByteArrayView bytes)
{
    const char *next = bytes.begin();
    const char *end = bytes.end();
    for (; end - next >= qsizetype(sizeof(quint64)); next += 6) {
        const auto bits = qFromBigEndian<quint64>(next); // the upper six bytes count
        out = writePair(out, bits >> 52);
        out = writePair(out, bits >> 40);
        out = writePair(out, bits >> 28);
        out = writePair(out, bits >> 16);
    }
    for (; end - next >= 3; next += 3) {
        const quint32 bits
            = quint32(quint8(next[0])) << 16 | quint32(quint8(next[1])) << 8 | quint8(next[2]);
        out = writePair(out, bits >> 12);
        out = writePair(out, bits);
    }
    return next == end ? out : writeRest(out, QByteArrayView(next, end));
}
