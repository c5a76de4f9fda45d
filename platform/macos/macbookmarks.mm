#include "platform/macos/macbookmarks.h"

#include "platform/macos/foundationtypes.h"

std::optional<QByteArray> MacBookmarks::securityScoped(const FileURL &url) const
{
    @autoreleasepool {
        NSData *bookmark =
            [nsURL(url) bookmarkDataWithOptions:NSURLBookmarkCreationWithSecurityScope
                 includingResourceValuesForKeys:nil
                                  relativeToURL:nil
                                          error:nullptr];
        if (!bookmark)
            return std::nullopt;
        return variantFrom(bookmark).toByteArray();
    }
}
