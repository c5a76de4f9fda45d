#include "ui/colorcomponents.h"

#include "model/accentcolor.h"
#include "ui/appearanceoptions.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr qreal fullCircle = 360;
constexpr qreal fullPercent = 100;

// The hue at the end of the strip is the one at its beginning.
QColor colorOf(qreal hue, qreal saturation, qreal brightness)
{
    const qreal turn = hue >= fullCircle ? 0 : hue / fullCircle;
    return QColor::fromHsvF(float(turn), float(saturation / fullPercent),
                            float(brightness / fullPercent));
}

} // namespace

QString ColorComponents::hex() const
{
    return hexTextFromColor(colorOf(m_hue, m_saturation, m_brightness));
}

QColor ColorComponents::hueColor() const
{
    return colorOf(m_hue, fullPercent, fullPercent);
}

void ColorComponents::setHue(qreal hue)
{
    edit(hue, m_saturation, m_brightness);
}

void ColorComponents::setSaturation(qreal saturation)
{
    edit(m_hue, saturation, m_brightness);
}

void ColorComponents::setBrightness(qreal brightness)
{
    edit(m_hue, m_saturation, brightness);
}

void ColorComponents::setSaturationAndBrightness(qreal saturation, qreal brightness)
{
    edit(m_hue, saturation, brightness);
}

bool ColorComponents::setHexText(const QString &text)
{
    static const QRegularExpression sixDigits(QStringLiteral("^\\s*#?([0-9A-Fa-f]{6})\\s*$"));
    const QRegularExpressionMatch match = sixDigits.match(text);
    if (!match.hasMatch())
        return false;
    const QString before = hex();
    take(colorFromHexText(match.captured(1)).value_or(QColor()));
    if (hex() != before)
        Q_EMIT edited(hex());
    return true;
}

void ColorComponents::show(const QString &hex)
{
    take(AppearanceOptions::colorOrFirst(hex));
}

void ColorComponents::edit(qreal hue, qreal saturation, qreal brightness)
{
    const QString before = hex();
    m_hue = std::clamp(hue, 0.0, fullCircle);
    m_saturation = std::clamp(saturation, 0.0, fullPercent);
    m_brightness = std::clamp(brightness, 0.0, fullPercent);
    Q_EMIT changed();
    if (hex() != before)
        Q_EMIT edited(hex());
}

void ColorComponents::take(const QColor &color)
{
    // The same colour, come back from where it was stored: finer values are known here.
    if (hexTextFromColor(color) == hex())
        return;
    const QColor hsv = color.toHsv();
    if (hsv.hsvHueF() >= 0)
        m_hue = qreal(hsv.hsvHueF()) * fullCircle;
    if (hsv.value() > 0)
        m_saturation = qreal(hsv.hsvSaturationF()) * fullPercent;
    m_brightness = qreal(hsv.valueF()) * fullPercent;
    Q_EMIT changed();
}
