#include "model/jsonnumber.h"

#include <QByteArray>

#include <algorithm>
#include <limits>

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// The parts of a number that is already known to be one.
struct Decimal {
    bool isNegative{};
    QByteArray digits{}; ///< the first is not 0, nor is the last
    qint64 exponent{}; ///< of the last digit
};

// Beyond this no number of digits that fits into memory makes an integer of it.
constexpr qint64 hugeExponent = std::numeric_limits<qint64>::max() / 4;

qint64 exponentOf(QByteArrayView text)
{
    const bool isNegative = text.startsWith('-');
    if (isNegative || text.startsWith('+'))
        text = text.sliced(1);
    qint64 exponent = 0;
    for (const char c : text)
        exponent = std::min(exponent * 10 + (c - '0'), hugeExponent / 10);
    return isNegative ? -exponent : exponent;
}

void trimZeros(Decimal &decimal)
{
    QByteArray &digits = decimal.digits;
    while (digits.endsWith('0')) {
        digits.chop(1);
        ++decimal.exponent;
    }
    const auto first = std::ranges::find_if(std::as_const(digits), [](char c) { return c != '0'; });
    digits.remove(0, std::distance(digits.cbegin(), first));
}

Decimal decimalOf(QByteArrayView number)
{
    Decimal decimal{.isNegative = number.startsWith('-')};
    if (decimal.isNegative)
        number = number.sliced(1);
    const auto end = std::ranges::find_if(number, [](char c) { return c == 'e' || c == 'E'; });
    const QByteArrayView mantissa(number.begin(), end);
    if (end != number.end())
        decimal.exponent = exponentOf({end + 1, number.end()});
    const qsizetype point = mantissa.indexOf('.');
    decimal.digits = mantissa.first(point < 0 ? mantissa.size() : point).toByteArray();
    if (point >= 0) {
        decimal.digits += mantissa.sliced(point + 1);
        decimal.exponent -= mantissa.size() - point - 1;
    }
    trimZeros(decimal);
    return decimal;
}

const char *skipDigits(const char *next, const char *end)
{
    return std::find_if_not(next, end, isDigit);
}

} // namespace

qsizetype jsonNumberLength(QByteArrayView text)
{
    const char *const end = text.end();
    const char *next = text.begin();
    if (next != end && *next == '-')
        ++next;
    const char *const integer = next;
    next = skipDigits(next, end);
    if (next == integer || (*integer == '0' && next - integer > 1))
        return 0;
    if (next != end && *next == '.') {
        const char *const fraction = ++next;
        next = skipDigits(next, end);
        if (next == fraction)
            return 0;
    }
    if (next != end && (*next == 'e' || *next == 'E')) {
        ++next;
        if (next != end && (*next == '+' || *next == '-'))
            ++next;
        const char *const exponent = next;
        next = skipDigits(next, end);
        if (next == exponent)
            return 0;
    }
    return next - text.begin();
}

std::optional<qint64> integerOfJSONNumber(QByteArrayView number)
{
    Decimal decimal = decimalOf(number);
    if (decimal.digits.isEmpty())
        return 0;
    constexpr qsizetype mostDigits = std::numeric_limits<qint64>::digits10 + 1;
    if (decimal.exponent < 0 || decimal.digits.size() + decimal.exponent > mostDigits)
        return std::nullopt;
    decimal.digits.append(qsizetype(decimal.exponent), '0');
    if (decimal.isNegative)
        decimal.digits.prepend('-');
    bool fits = false;
    const qint64 value = decimal.digits.toLongLong(&fits);
    return fits ? std::optional(value) : std::nullopt;
}
