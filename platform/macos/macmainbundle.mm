#include "platform/macos/macmainbundle.h"

#include "platform/macos/foundationtypes.h"

FileURL MacMainBundle::url() const
{
    @autoreleasepool {
        return FileURL::directory(textFrom([[NSBundle mainBundle] bundlePath]));
    }
}

std::optional<QString> MacMainBundle::version() const
{
    @autoreleasepool {
        id version = [[[NSBundle mainBundle] infoDictionary] objectForKey:@"CFBundleVersion"];
        if (![version isKindOfClass:[NSString class]])
            return std::nullopt;
        return textFrom(version);
    }
}
