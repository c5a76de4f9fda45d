#include "platform/macos/appkitcolor.h"

NSColor *nsColor(const QColor &color)
{
    return [NSColor colorWithSRGBRed:color.redF()
                               green:color.greenF()
                                blue:color.blueF()
                               alpha:color.alphaF()];
}

QColor colorFrom(NSColor *color)
{
    NSColor *converted = [color colorUsingColorSpace:[NSColorSpace sRGBColorSpace]];
    if (!converted)
        return {};
    return QColor::fromRgbF(static_cast<float>([converted redComponent]),
                            static_cast<float>([converted greenComponent]),
                            static_cast<float>([converted blueComponent]));
}
