#include "tests/platform/macos/notificationprobe.h"

#include "platform/macos/foundationtypes.h"
#include "platform/macos/notificationobserver.h"

namespace {

void post(NSString *name, id sender, const char *note)
{
    @autoreleasepool {
        NSDictionary *info = [NSDictionary dictionaryWithObject:[NSString stringWithUTF8String:note]
                                                         forKey:@"note"];
        [[NSNotificationCenter defaultCenter] postNotificationName:name
                                                            object:sender
                                                          userInfo:info];
    }
}

} // namespace

struct NotificationProbe::Senders {
    NSObject *first = [[NSObject alloc] init];
    NSObject *second = [[NSObject alloc] init];
};

NotificationProbe::NotificationProbe()
    : m_senders(std::make_unique<Senders>())
{
}

NotificationProbe::~NotificationProbe()
{
    stop();
    [m_senders->first release];
    [m_senders->second release];
}

void NotificationProbe::listen(std::function<void(const QString &note)> received)
{
    m_observer = std::make_unique<NotificationObserver>(
        @"Changed", m_senders->first, [received](NSNotification *notification) {
            received(textFrom([[notification userInfo] objectForKey:@"note"]));
        });
}

void NotificationProbe::stop() { m_observer.reset(); }

void NotificationProbe::postFromTheFirst(const char *note) const
{
    post(@"Changed", m_senders->first, note);
}

void NotificationProbe::postFromTheSecond(const char *note) const
{
    post(@"Changed", m_senders->second, note);
}

void NotificationProbe::postAnotherNameFromTheFirst() const
{
    post(@"Closed", m_senders->first, "closed");
}
