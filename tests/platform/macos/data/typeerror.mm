#import <Foundation/Foundation.h>

// Not part of any program: shows that the type check finds what it is there to find.
NSString *statusText(NSTask *task) { return [task terminationStatus]; }
