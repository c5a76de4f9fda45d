#include "platform/macos/macworkspace.h"

#include "platform/macos/foundationtypes.h"

#import <AppKit/AppKit.h>

#include <dispatch/dispatch.h>

namespace {

// Red, green, blue, alpha, premultiplied: what QImage calls RGBA8888_Premultiplied. The bitmap
// draws into `pixels`, which must outlive it.
NSBitmapImageRep *bitmapOver(QImage &pixels)
{
    unsigned char *plane = pixels.bits();
    return [[[NSBitmapImageRep alloc] initWithBitmapDataPlanes:&plane
                                                    pixelsWide:pixels.width()
                                                    pixelsHigh:pixels.height()
                                                 bitsPerSample:8
                                               samplesPerPixel:4
                                                      hasAlpha:YES
                                                      isPlanar:NO
                                                colorSpaceName:NSDeviceRGBColorSpace
                                                   bytesPerRow:pixels.bytesPerLine()
                                                  bitsPerPixel:32] autorelease];
}

// An NSImage holds a picture for each of several sizes: drawn into its final size, it takes the one
// that fits.
QImage drawn(NSImage *icon, int side)
{
    QImage pixels(side, side, QImage::Format_RGBA8888_Premultiplied);
    pixels.fill(Qt::transparent);
    NSGraphicsContext *context =
        [NSGraphicsContext graphicsContextWithBitmapImageRep:bitmapOver(pixels)];
    [NSGraphicsContext saveGraphicsState]; // the current context belongs to the calling thread
    [NSGraphicsContext setCurrentContext:context];
    [context setImageInterpolation:NSImageInterpolationHigh];
    [icon drawInRect:NSMakeRect(0, 0, side, side)
            fromRect:NSZeroRect // all of it
           operation:NSCompositingOperationSourceOver
            fraction:1];
    [context flushGraphics];
    [NSGraphicsContext restoreGraphicsState];
    return pixels;
}

} // namespace

std::optional<FileURL>
MacWorkspace::applicationWithBundleIdentifier(const QString &bundleIdentifier) const
{
    @autoreleasepool {
        NSURL *url = [[NSWorkspace sharedWorkspace]
            URLForApplicationWithBundleIdentifier:nsString(bundleIdentifier)];
        if (!url)
            return std::nullopt;
        return FileURL::directory(textFrom([url path]));
    }
}

void MacWorkspace::openApplication(const FileURL &bundle, Activation activation,
                                   OpenCompletion completion)
{
    @autoreleasepool {
        NSWorkspaceOpenConfiguration *configuration = [NSWorkspaceOpenConfiguration configuration];
        [configuration setActivates:activation == Activation::Foreground];
        // The handler is called on a queue of the workspace's own, so it goes to the main one.
        auto handler = ^(NSRunningApplication *, NSError *error) {
            std::optional<PlatformError> failure;
            if (error)
                failure = platformErrorFrom(error);
            dispatch_async(dispatch_get_main_queue(), ^{
                if (completion)
                    completion(failure);
            });
        };
        [[NSWorkspace sharedWorkspace] openApplicationAtURL:nsURL(bundle)
                                              configuration:configuration
                                          completionHandler:handler];
    }
}

void MacWorkspace::openURL(const QUrl &url)
{
    @autoreleasepool {
        NSString *text = nsString(QString::fromLatin1(url.toEncoded()));
        [[NSWorkspace sharedWorkspace] openURL:[NSURL URLWithString:text]];
    }
}

void MacWorkspace::reveal(const QList<FileURL> &urls)
{
    @autoreleasepool {
        NSMutableArray *files = [NSMutableArray array];
        for (const FileURL &url : urls)
            [files addObject:nsURL(url)];
        [[NSWorkspace sharedWorkspace] activateFileViewerSelectingURLs:files];
    }
}

QImage MacWorkspace::icon(const FileURL &url, int side) const
{
    @autoreleasepool {
        // Any thread may ask for a file's icon. A missing file has that of a plain document.
        NSImage *icon = [[NSWorkspace sharedWorkspace] iconForFile:nsString(url.path())];
        return icon && side > 0 ? drawn(icon, side) : QImage();
    }
}
