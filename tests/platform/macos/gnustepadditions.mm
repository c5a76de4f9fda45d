#include "platform/macos/gnustep/additions.h"

// The newer calls, put in terms of those that GNUstep has. What is tested is therefore how the
// backend uses the system's services, not these few lines.

@implementation NSFileManager (MacAdditions)

- (NSArray *)URLsForDirectory:(NSSearchPathDirectory)directory
                    inDomains:(NSSearchPathDomainMask)domainMask
{
    NSMutableArray *urls = [NSMutableArray array];
    for (NSString *path in NSSearchPathForDirectoriesInDomains(directory, domainMask, YES))
        [urls addObject:[NSURL fileURLWithPath:path isDirectory:YES]];
    return urls;
}

- (NSURL *)homeDirectoryForCurrentUser
{
    return [NSURL fileURLWithPath:NSHomeDirectory() isDirectory:YES];
}

@end

@implementation NSTask (MacAdditions)

- (void)setExecutableURL:(NSURL *)url
{
    [self setLaunchPath:[url path]];
}

- (BOOL)launchAndReturnError:(NSError **)error
{
    @try {
        [self launch];
        return YES;
    } @catch (NSException *exception) {
        NSDictionary *info = [NSDictionary dictionaryWithObject:[exception reason]
                                                         forKey:NSLocalizedDescriptionKey];
        *error = [NSError errorWithDomain:NSCocoaErrorDomain code:0 userInfo:info];
        return NO;
    }
}

@end

@implementation NSUserDefaults (MacAdditions)

// GNUstep knows no suites: no domain can be opened.
- (instancetype)initWithSuiteName:(NSString *)suiteName
{
    (void)suiteName;
    [self release];
    return nil;
}

@end
