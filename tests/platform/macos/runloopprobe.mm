#include "tests/platform/macos/runloopprobe.h"

#import <Foundation/Foundation.h>

@interface RunLoopProbe : NSObject
- (void)handle:(NSValue *)wasHandled;
@end

@implementation RunLoopProbe

- (void)handle:(NSValue *)wasHandled
{
    *static_cast<bool *>([wasHandled pointerValue]) = true;
}

@end

void postToRunLoop(bool *wasHandled)
{
    @autoreleasepool {
        [[[[RunLoopProbe alloc] init] autorelease]
            performSelector:@selector(handle:)
                 withObject:[NSValue valueWithPointer:wasHandled]
                 afterDelay:0];
    }
}

void turnRunLoop()
{
    @autoreleasepool {
        [[NSRunLoop currentRunLoop] runUntilDate:[NSDate dateWithTimeIntervalSinceNow:0.05]];
    }
}
