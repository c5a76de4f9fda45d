#include "platform/macos/macopenpanel.h"

#include "platform/macos/foundationtypes.h"

#import <AppKit/AppKit.h>
#import <UniformTypeIdentifiers/UniformTypeIdentifiers.h>

namespace {

// An identifier that this system does not know is left out.
NSArray *contentTypes(const QStringList &identifiers)
{
    NSMutableArray *types = [NSMutableArray array];
    for (const QString &identifier : identifiers) {
        if (UTType *type = [UTType typeWithIdentifier:nsString(identifier)])
            [types addObject:type];
    }
    return types;
}

// The one that is shown. It lives until its handler has been called.
NSOpenPanel *shownPanel = nil;

} // namespace

void MacOpenPanel::choose(const Request &request, Completion completion)
{
    @autoreleasepool {
        [shownPanel cancel:nil]; // another takes its place
        NSOpenPanel *panel = [NSOpenPanel openPanel];
        shownPanel = panel;
        [panel setTitle:nsString(request.title)];
        // Panels have shown no title bar for long: the message is what the user sees.
        [panel setMessage:nsString(request.title)];
        [panel setAllowsMultipleSelection:NO];
        [panel setCanChooseFiles:YES];
        [panel setCanChooseDirectories:NO];
        [panel setAllowedContentTypes:contentTypes(request.contentTypes)];
        // The block is copied and keeps the panel until it has been called.
        [panel beginWithCompletionHandler:^(NSModalResponse response) {
            @autoreleasepool {
                if (shownPanel == panel)
                    shownPanel = nil;
                NSURL *url = response == NSModalResponseOK ? [panel URL] : nil;
                completion(url ? std::optional(fileURLFrom(url)) : std::nullopt);
            }
        }];
    }
}
