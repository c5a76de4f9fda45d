#pragma once

#include "platform/error.h"
#include "platform/fileurl.h"

#include <QVariant>

#import <Foundation/Foundation.h>

/// Foundation's values and ours, for the Objective-C++ sources of this folder. What comes back is
/// autoreleased: callers have a pool open.

[[nodiscard]] NSString *nsString(const QString &text);
[[nodiscard]] QString textFrom(NSString *string); ///< empty for nil

/// Of a file URL only its path and whether it names a directory count: texts that differ in escapes
/// name one file.
[[nodiscard]] NSURL *nsURL(const FileURL &url);
[[nodiscard]] FileURL fileURLFrom(NSURL *url);

/// An object for the property-list types of "platform/propertylist.h"; nil for anything else.
[[nodiscard]] id propertyListObject(const QVariant &value);
/// An invalid variant for an object that is no property list.
[[nodiscard]] QVariant variantFrom(id propertyListObject);

/// The system's own sentence. An error object that was not filled in gives one of ours.
[[nodiscard]] PlatformError platformErrorFrom(NSError *error);
