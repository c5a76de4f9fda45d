#include "platform/symbolimages.h"

#include "platform/macos/appkitcolor.h"
#include "platform/macos/foundationtypes.h"
#include "platform/macos/imagedrawing.h"

#include <algorithm>

namespace {

NSFontWeight fontWeight(QFont::Weight weight)
{
    struct Weight {
        QFont::Weight ours;
        NSFontWeight theirs;
    };
    const Weight weights[]
        = {{QFont::Thin, NSFontWeightUltraLight}, {QFont::ExtraLight, NSFontWeightThin},
           {QFont::Light, NSFontWeightLight},     {QFont::Normal, NSFontWeightRegular},
           {QFont::Medium, NSFontWeightMedium},   {QFont::DemiBold, NSFontWeightSemibold},
           {QFont::Bold, NSFontWeightBold},       {QFont::ExtraBold, NSFontWeightHeavy},
           {QFont::Black, NSFontWeightBlack}};
    const auto *const found = std::ranges::lower_bound(weights, weight, {}, &Weight::ours);
    return found == std::end(weights) ? NSFontWeightBlack : found->theirs;
}

NSImageSymbolConfiguration *configurationFor(const SymbolLook &look)
{
    NSImageSymbolConfiguration *shape =
        [NSImageSymbolConfiguration configurationWithPointSize:look.pointSize
                                                        weight:fontWeight(look.weight)];
    if (!look.secondaryColor.isValid())
        return shape;
    NSArray *colors = @[ nsColor(look.color), nsColor(look.secondaryColor) ];
    return [shape configurationByApplyingConfiguration:[NSImageSymbolConfiguration
                                                           configurationWithPaletteColors:colors]];
}

NSImage *configuredSymbol(const QString &name, const SymbolLook &look)
{
    NSImage *symbol = [NSImage imageWithSystemSymbolName:nsString(name)
                                accessibilityDescription:nil];
    return [symbol imageWithSymbolConfiguration:configurationFor(look)];
}

// The middle of so many pixels; the symbol's own size is in points.
NSRect middleRect(NSImage *symbol, qreal pixelRatio, const QSize &pixels)
{
    const NSSize size = [symbol size];
    const CGFloat width = size.width * pixelRatio;
    const CGFloat height = size.height * pixelRatio;
    return NSMakeRect((pixels.width() - width) / 2, (pixels.height() - height) / 2, width, height);
}

} // namespace

QImage symbolImage(const QString &name, const SymbolLook &look, const QSize &pixels)
{
    @autoreleasepool {
        NSImage *symbol = configuredSymbol(name, look);
        if (!symbol || pixels.isEmpty())
            return {};
        const NSRect rect = middleRect(symbol, look.pixelRatio, pixels);
        QImage image = imageDrawnBy(pixels, [&] {
            [symbol drawInRect:rect
                      fromRect:NSZeroRect // all of it
                     operation:NSCompositingOperationSourceOver
                      fraction:1];
            if (look.secondaryColor.isValid())
                return;
            // A template is black: what it covers takes the colour.
            [nsColor(look.color) set];
            NSRectFillUsingOperation(NSMakeRect(0, 0, pixels.width(), pixels.height()),
                                     NSCompositingOperationSourceIn);
        });
        image.setDevicePixelRatio(look.pixelRatio);
        return image;
    }
}
