#include "platform/macos/notificationobserver.h"

#include <utility>

@interface CompanionNotificationTarget : NSObject {
@public
    std::function<void(NSNotification *)> received;
}
- (void)receive:(NSNotification *)notification;
@end

@implementation CompanionNotificationTarget

- (void)receive:(NSNotification *)notification
{
    @autoreleasepool {
        const auto call = received; // in which this may be released
        call(notification);
    }
}

@end

struct NotificationObserver::Target {
    CompanionNotificationTarget *object = [[CompanionNotificationTarget alloc] init];
};

NotificationObserver::NotificationObserver(NSString *name, id sender,
                                           std::function<void(NSNotification *)> received)
    : m_target(std::make_unique<Target>())
{
    m_target->object->received = std::move(received);
    [[NSNotificationCenter defaultCenter] addObserver:m_target->object
                                             selector:@selector(receive:)
                                                 name:name
                                               object:sender];
}

NotificationObserver::~NotificationObserver()
{
    @autoreleasepool {
        [[NSNotificationCenter defaultCenter] removeObserver:m_target->object];
        [m_target->object release];
    }
}
