#pragma once

#include <QColor>

#import <AppKit/AppKit.h>

/// AppKit's colours and ours, in sRGB, for the Objective-C++ sources of this folder. What comes
/// back is autoreleased: callers have a pool open.

[[nodiscard]] NSColor *nsColor(const QColor &color);
/// Opaque. Invalid for a colour that has no sRGB form, such as a pattern.
[[nodiscard]] QColor colorFrom(NSColor *color);
