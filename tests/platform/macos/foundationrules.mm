#include "tests/platform/macos/foundationrules.h"

#include "platform/macos/foundationtypes.h"

std::optional<uint> foundationScannedHex(const QString &text)
{
    @autoreleasepool {
        unsigned int value = 0;
        if (![[NSScanner scannerWithString:nsString(text)] scanHexInt:&value])
            return std::nullopt;
        return value;
    }
}

QString foundationPathExtension(const QString &path)
{
    @autoreleasepool {
        return textFrom([nsString(path) pathExtension]);
    }
}

QString foundationLastPathComponent(const QString &path)
{
    @autoreleasepool {
        return textFrom([nsString(path) lastPathComponent]);
    }
}

QString foundationStandardizedPath(const QString &path)
{
    @autoreleasepool {
        return textFrom([[[NSURL fileURLWithPath:nsString(path)] standardizedURL] path]);
    }
}
