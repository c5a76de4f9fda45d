#include "platform/macos/macdirectories.h"

#include "platform/macos/foundationtypes.h"

namespace {

FileURL userDirectory(NSSearchPathDirectory directory)
{
    @autoreleasepool {
        NSArray *urls = [[NSFileManager defaultManager] URLsForDirectory:directory
                                                               inDomains:NSUserDomainMask];
        if ([urls count] == 0)
            qFatal("The system names no user directory %d", static_cast<int>(directory));
        return FileURL::directory(textFrom([[urls objectAtIndex:0] path]));
    }
}

} // namespace

FileURL MacDirectories::applicationSupport() const
{
    return userDirectory(NSApplicationSupportDirectory);
}

FileURL MacDirectories::userApplications() const { return userDirectory(NSApplicationDirectory); }

FileURL MacDirectories::home() const
{
    @autoreleasepool {
        NSURL *home = [[NSFileManager defaultManager] homeDirectoryForCurrentUser];
        return FileURL::directory(textFrom([home path]));
    }
}

FileURL MacDirectories::temporary() const
{
    @autoreleasepool {
        return FileURL::directory(textFrom(NSTemporaryDirectory()));
    }
}

FileURL MacDirectories::system(const QString &absolutePath) const
{
    return absolutePath.endsWith(u'/') ? FileURL::directory(absolutePath)
                                       : FileURL::file(absolutePath);
}
