#include "platform/macos/macworkspace.h"

#include "platform/macos/foundationtypes.h"
#include "platform/macos/imagedrawing.h"

#import <AppKit/AppKit.h>

#include <dispatch/dispatch.h>

namespace {

// An NSImage holds a picture for each of several sizes: drawn into its final size, it takes the one
// that fits.
QImage drawn(NSImage *icon, int side)
{
    return imageDrawnBy(QSize(side, side), [&] {
        [icon drawInRect:NSMakeRect(0, 0, side, side)
                fromRect:NSZeroRect // all of it
               operation:NSCompositingOperationSourceOver
                fraction:1];
    });
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
