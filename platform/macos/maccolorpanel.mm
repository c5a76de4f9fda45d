#include "platform/macos/maccolorpanel.h"

#include "platform/macos/appkitcolor.h"
#include "platform/macos/notificationobserver.h"

namespace {

class PanelObservation final : public ColorPanel::Observation {
public:
    explicit PanelObservation(const std::function<void(const QColor &)> &changed)
        : m_observer(NSColorPanelColorDidChangeNotification, [NSColorPanel sharedColorPanel],
                     [changed](NSNotification *notification) {
                         changed(
                             colorFrom([static_cast<NSColorPanel *>([notification object]) color]));
                     })
    {
    }

private:
    NotificationObserver m_observer;
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
    @autoreleasepool {
        return std::make_unique<PanelObservation>(changed);
    }
}
