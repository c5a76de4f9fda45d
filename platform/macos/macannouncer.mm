#include "platform/macos/macannouncer.h"

#include "platform/macos/foundationtypes.h"

#import <AppKit/AppKit.h>

void MacAnnouncer::announce(const QString &text)
{
    @autoreleasepool {
        NSDictionary *content = @{
            NSAccessibilityAnnouncementKey : nsString(text),
            NSAccessibilityPriorityKey : @(NSAccessibilityPriorityMedium)
        };
        NSAccessibilityPostNotificationWithUserInfo(
            [NSApp mainWindow], NSAccessibilityAnnouncementRequestedNotification, content);
    }
}
