#include "platform/macos/macappearance.h"

#include "platform/macos/appkitcolor.h"

/// Tells of changes. The application's own appearance also changes with the system's colours.
@interface CompanionAppearanceObserver : NSObject {
@public
    std::function<void()> changed;
}
- (void)start;
- (void)stop;
@end

@implementation CompanionAppearanceObserver

- (void)start
{
    [NSApp addObserver:self forKeyPath:@"effectiveAppearance" options:0 context:nullptr];
    [[NSNotificationCenter defaultCenter] addObserver:self
                                             selector:@selector(settingsDidChange:)
                                                 name:NSSystemColorsDidChangeNotification
                                               object:nil];
    // This one is sent to the workspace's own centre alone.
    [[[NSWorkspace sharedWorkspace] notificationCenter]
        addObserver:self
           selector:@selector(settingsDidChange:)
               name:NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification
             object:nil];
}

- (void)stop
{
    [NSApp removeObserver:self forKeyPath:@"effectiveAppearance"];
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    [[[NSWorkspace sharedWorkspace] notificationCenter] removeObserver:self];
}

- (void)observeValueForKeyPath:(NSString *)keyPath
                      ofObject:(id)object
                        change:(NSDictionary *)change
                       context:(void *)context
{
    [self settingsDidChange:nil];
}

- (void)settingsDidChange:(NSNotification *)notification
{
    if (changed)
        changed();
}

@end

namespace {

bool isDarkNow()
{
    NSAppearanceName match = [[NSApp effectiveAppearance]
        bestMatchFromAppearancesWithNames:@[ NSAppearanceNameAqua, NSAppearanceNameDarkAqua ]];
    return [match isEqualToString:NSAppearanceNameDarkAqua];
}

// What the colour is depends on the appearance that is drawn in.
QColor controlAccent()
{
    __block QColor result;
    [[NSApp effectiveAppearance]
        performAsCurrentDrawingAppearance:^{ result = colorFrom([NSColor controlAccentColor]); }];
    return result;
}

// "Multicolour" leaves the choice to each application.
std::optional<QColor> chosenAccent()
{
    if (![[NSUserDefaults standardUserDefaults] objectForKey:@"AppleAccentColor"])
        return std::nullopt;
    return controlAccent();
}

} // namespace

struct MacAppearance::Observer {
    CompanionAppearanceObserver *object = [[CompanionAppearanceObserver alloc] init];
};

MacAppearance::MacAppearance()
    : m_observer(std::make_unique<Observer>())
{
    [m_observer->object start];
}

MacAppearance::~MacAppearance()
{
    [m_observer->object stop];
    [m_observer->object release];
}

Appearance::Settings MacAppearance::settings() const
{
    @autoreleasepool {
        return {.isDark = isDarkNow(),
                .accent = chosenAccent(),
                .reducesMotion = static_cast<bool>(
                    [[NSWorkspace sharedWorkspace] accessibilityDisplayShouldReduceMotion])};
    }
}

void MacAppearance::observe(std::function<void()> changed)
{
    m_observer->object->changed = std::move(changed);
}
