#pragma once

// What Foundation and AppKit declare on macOS and not in GNUstep. For the type check, and for the
// test that runs the Foundation part, which implements the categories that it needs.

#ifdef __OBJC__

#import <Foundation/Foundation.h>

@interface NSFileManager (MacAdditions)
- (NSArray *)URLsForDirectory:(NSSearchPathDirectory)directory
                    inDomains:(NSSearchPathDomainMask)domainMask;
- (NSURL *)homeDirectoryForCurrentUser;
@end

@interface NSTask (MacAdditions)
- (void)setExecutableURL:(NSURL *)url;
- (BOOL)launchAndReturnError:(NSError **)error;
@end

@interface NSUserDefaults (MacAdditions)
- (instancetype)initWithSuiteName:(NSString *)suiteName;
@end

#ifdef COMPANION_TYPE_CHECK

#import <AppKit/AppKit.h>

typedef NSUInteger NSURLBookmarkCreationOptions;
enum : NSURLBookmarkCreationOptions { NSURLBookmarkCreationWithSecurityScope = 1UL << 11 };

@interface NSURL (MacAdditions)
- (NSData *)bookmarkDataWithOptions:(NSURLBookmarkCreationOptions)options
     includingResourceValuesForKeys:(NSArray *)keys
                      relativeToURL:(NSURL *)relativeURL
                              error:(NSError **)error;
- (BOOL)hasDirectoryPath;
@end

constexpr NSCompositingOperation NSCompositingOperationSourceOver = NSCompositeSourceOver;
constexpr NSCompositingOperation NSCompositingOperationSourceIn = NSCompositeSourceIn;

typedef CGFloat NSFontWeight;
extern const NSFontWeight NSFontWeightUltraLight, NSFontWeightThin, NSFontWeightLight,
    NSFontWeightRegular, NSFontWeightMedium, NSFontWeightSemibold, NSFontWeightBold,
    NSFontWeightHeavy, NSFontWeightBlack;

@interface NSImageSymbolConfiguration : NSObject
+ (instancetype)configurationWithPointSize:(CGFloat)pointSize weight:(NSFontWeight)weight;
+ (instancetype)configurationWithPaletteColors:(NSArray *)paletteColors;
- (instancetype)configurationByApplyingConfiguration:(NSImageSymbolConfiguration *)configuration;
@end

@interface NSImage (MacAdditions)
+ (instancetype)imageWithSystemSymbolName:(NSString *)symbolName
                 accessibilityDescription:(NSString *)description;
- (NSImage *)imageWithSymbolConfiguration:(NSImageSymbolConfiguration *)configuration;
@end

extern NSString *const NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification;

extern NSString *const NSAccessibilityAnnouncementKey;
extern NSString *const NSAccessibilityAnnouncementRequestedNotification;

@interface NSAppearance (MacAdditions)
- (void)performAsCurrentDrawingAppearance:(void (^)(void))block;
@end

@interface NSApplication (MacAdditions)
- (NSAppearance *)effectiveAppearance;
@end

@interface NSColor (MacAdditions)
+ (NSColor *)controlAccentColor;
@end

@interface NSColorSpace (MacAdditions)
+ (NSColorSpace *)sRGBColorSpace;
@end

@interface NSOpenPanel (MacAdditions)
- (void)setAllowedContentTypes:(NSArray *)contentTypes;
@end

@interface NSWorkspaceOpenConfiguration : NSObject
+ (instancetype)configuration;
- (void)setActivates:(BOOL)activates;
@end

@interface NSWorkspace (MacAdditions)
- (NSURL *)URLForApplicationWithBundleIdentifier:(NSString *)bundleIdentifier;
- (BOOL)accessibilityDisplayShouldReduceMotion;
- (void)activateFileViewerSelectingURLs:(NSArray *)fileURLs;
- (void)openApplicationAtURL:(NSURL *)applicationURL
               configuration:(NSWorkspaceOpenConfiguration *)configuration
           completionHandler:(void (^)(NSRunningApplication *app, NSError *error))completionHandler;
@end

#endif
#endif
