#include "platform/macos/maccolorpanel.h"

#import <AppKit/AppKit.h>

namespace {

NSColor *nsColor(const QColor &color)
{
    return [NSColor colorWithSRGBRed:color.redF() green:color.greenF() blue:color.blueF() alpha:1];
}

// A pattern, for one, has no sRGB form.
QColor colorFrom(NSColor *color)
{
    NSColor *converted = [color colorUsingColorSpace:[NSColorSpace sRGBColorSpace]];
    if (!converted)
        return {};
    return QColor::fromRgbF(float([converted redComponent]), float([converted greenComponent]),
                            float([converted blueComponent]));
}

class PanelObservation final : public ColorPanel::Observation {
public:
    explicit PanelObservation(std::function<void(const QColor &)> changed)
    {
        @autoreleasepool {
            auto handler = ^(NSNotification *notification) {
                @autoreleasepool {
                    changed(colorFrom([static_cast<NSColorPanel *>([notification object]) color]));
                }
            };
            m_token = [[[NSNotificationCenter defaultCenter]
                addObserverForName:NSColorPanelColorDidChangeNotification
                            object:[NSColorPanel sharedColorPanel]
                             queue:[NSOperationQueue mainQueue]
                        usingBlock:handler] retain];
        }
    }

    ~PanelObservation() override
    {
        @autoreleasepool {
            [[NSNotificationCenter defaultCenter] removeObserver:m_token];
            [m_token release];
        }
    }

private:
    id m_token;
};

} // namespace

void MacColorPanel::show(const QColor &color)
{
    @autoreleasepool {
        NSColorPanel *panel = [NSColorPanel sharedColorPanel];
        [panel setShowsAlpha:NO];
        [panel setColor:nsColor(color)];
        [panel orderFront:nil];
    }
}

void MacColorPanel::close()
{
    @autoreleasepool {
        // Asking for the shared panel would make it.
        if ([NSColorPanel sharedColorPanelExists])
            [[NSColorPanel sharedColorPanel] orderOut:nil];
    }
}

std::unique_ptr<ColorPanel::Observation>
MacColorPanel::observe(std::function<void(const QColor &)> changed)
{
    return std::make_unique<PanelObservation>(std::move(changed));
}
