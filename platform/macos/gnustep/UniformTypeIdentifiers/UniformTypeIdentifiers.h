#pragma once

// What the framework of this name declares and we use. For the type check.

#import <Foundation/Foundation.h>

@interface UTType : NSObject
+ (instancetype)typeWithIdentifier:(NSString *)identifier;
@end
