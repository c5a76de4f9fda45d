#include "model/base64.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

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
constexpr qsizetype spare = 8;

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

// Sixteen characters at a time, in a type of GCC's and Clang's that stands for the registers of
// whichever processor.
using Block [[gnu::vector_size(16)]] = unsigned char;
constexpr qsizetype blockLength = sizeof(Block);

// All bits set where a character is of the alphabet, in which the slash is next to the digits.
Block markedAlphabet(const char *text)
{
    Block c{};
    std::memcpy(&c, text, sizeof c);
    constexpr unsigned char toLower = 0x20;
    return Block((c | toLower) - 'a' <= 'z' - 'a') | Block(c - '/' <= '9' - '/') | Block(c == '+');
}

bool isAllMarked(const Block &block)
{
    std::array<quint64, 2> halves{};
    std::memcpy(halves.data(), &block, sizeof block);
    return (halves.at(0) & halves.at(1)) == ~quint64{};
}

// The first character that is not of the alphabet.
const char *endOfAlphabet(const char *next, const char *end)
{
    constexpr qsizetype stride = 4 * blockLength;
    for (; end - next >= stride; next += stride) {
        Block marked = markedAlphabet(next);
        for (qsizetype block = blockLength; block < stride; block += blockLength)
            marked &= markedAlphabet(next + block);
        if (!isAllMarked(marked))
            break;
    }
    return std::find_if(next, end, [](char c) { return places[0][quint8(c)] == notInAlphabet; });
}

} // namespace

qsizetype base64FrontLength(QByteArrayView text)
{
    const char *end = endOfAlphabet(text.begin(), text.end());
    for (int fill = 0; fill < 2 && end != text.end() && *end == '='; ++fill)
        ++end;
    const qsizetype length = end - text.begin();
    return length % groupLength == 0 ? length : 0;
}

std::optional<QByteArray> bytesFromBase64(QByteArrayView text)
{
    if (text.size() % groupLength != 0)
        return std::nullopt;
    const qsizetype count = text.size() / groupLength;
    QByteArray bytes(count * 3 + spare, Qt::Uninitialized);
    qsizetype group = decodePlainGroups(text, bytes.data());
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
