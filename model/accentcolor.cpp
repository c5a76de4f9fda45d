#include "model/accentcolor.h"

#include <algorithm>

namespace {

constexpr qsizetype hexTextLength = 6;
constexpr double componentMaximum = 255.0;

QStringView withoutHashes(QStringView text)
{
    while (text.startsWith(u'#'))
        text = text.sliced(1);
    while (text.endsWith(u'#'))
        text.chop(1);
    return text;
}

int hexDigitValue(QChar c)
{
    const char16_t u = c.unicode();
    if (u >= u'0' && u <= u'9')
        return u - u'0';
    if (u >= u'A' && u <= u'F')
        return u - u'A' + 10;
    if (u >= u'a' && u <= u'f')
        return u - u'a' + 10;
    return -1;
}

// What the system's scanner leaves to its digits. A "0x" without a digit behind it is the number 0.
QStringView fromFirstDigit(QStringView text)
{
    const auto first = std::ranges::find_if_not(text, [](QChar c) { return c.isSpace(); });
    text = text.sliced(std::distance(text.begin(), first));
    const bool hasPrefix = text.startsWith(u"0x", Qt::CaseInsensitive) && text.size() > 2;
    return hasPrefix && hexDigitValue(text[2]) >= 0 ? text.sliced(2) : text;
}

std::optional<uint> scannedHexNumber(QStringView text)
{
    const QStringView digits = fromFirstDigit(text);
    const auto end = std::ranges::find_if(digits, [](QChar c) { return hexDigitValue(c) < 0; });
    if (end == digits.begin())
        return std::nullopt;
    uint value = 0;
    for (auto digit = digits.begin(); digit != end; ++digit)
        value = value << 4 | uint(hexDigitValue(*digit));
    return value;
}

int nearestByte(float component)
{
    return std::clamp(qRound(double(component) * componentMaximum), 0, int(componentMaximum));
}

} // namespace

std::optional<QColor> colorFromHexText(const QString &text)
{
    const QStringView bare = withoutHashes(text);
    if (bare.size() != hexTextLength)
        return std::nullopt;
    const std::optional<uint> value = scannedHexNumber(bare);
    if (!value)
        return std::nullopt;
    return QColor(int(*value >> 16 & 0xff), int(*value >> 8 & 0xff), int(*value & 0xff));
}

QString hexTextFromColor(const QColor &color)
{
    if (!color.isValid())
        return QStringLiteral("#4F83D3");
    return QString::asprintf("#%02X%02X%02X", nearestByte(color.redF()),
                             nearestByte(color.greenF()), nearestByte(color.blueF()));
}

QString plainHexText(const QString &text)
{
    const std::optional<QColor> color = colorFromHexText(text);
    return color ? hexTextFromColor(*color) : QString();
}
