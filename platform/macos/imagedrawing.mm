#include "platform/macos/imagedrawing.h"

#import <AppKit/AppKit.h>

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

} // namespace

QImage imageDrawnBy(const QSize &pixels, const std::function<void()> &draw)
{
    QImage image(pixels, QImage::Format_RGBA8888_Premultiplied);
    image.fill(Qt::transparent);
    NSGraphicsContext *context =
        [NSGraphicsContext graphicsContextWithBitmapImageRep:bitmapOver(image)];
    [NSGraphicsContext saveGraphicsState]; // the current context belongs to the calling thread
    [NSGraphicsContext setCurrentContext:context];
    [context setImageInterpolation:NSImageInterpolationHigh];
    draw();
    [context flushGraphics];
    [NSGraphicsContext restoreGraphicsState];
    return image;
}
