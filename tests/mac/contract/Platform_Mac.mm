#include "Platform.h"

#import <AppKit/AppKit.h>
#import <objc/runtime.h>

#include <cstdlib>

#include "AppKitSession.h"

namespace Platform {

const bool kEveryFolderIsABundle = true;
const bool kDateFollowsLinks = false;
const bool kEarlyDateIsCutUpwards = true;

// True over GNUstep, which differs from macOS in the constants below.
constexpr bool kIsGNUstep = TYPELOFT_OVER_GNUSTEP;
const bool kFindsEmptyText = kIsGNUstep;
const bool kDecomposesPaths = !kIsGNUstep;
const bool kDropsByteOrderMark = kIsGNUstep;
const bool kFileNamesAreUTF8 = !kIsGNUstep;
const bool kMayCleanPaths = !kIsGNUstep;

namespace {

std::vector<ShownAlert> gAlerts;

void ExchangeRunModal()
{
    method_exchangeImplementations(
        class_getInstanceMethod([NSAlert class], @selector(runModal)),
        class_getInstanceMethod([NSAlert class], @selector(recordAndRunModal)));
}

}  // namespace

std::string HomeFolder() { return [NSHomeDirectory() UTF8String]; }

std::string LibraryFolder()
{
    // CoreFoundation takes the home folder from this variable, which isn't documented.
    const char* const home = std::getenv(kIsGNUstep ? "HOME" : "CFFIXED_USER_HOME");
    if (home == nullptr || (!kIsGNUstep && HomeFolder() != home)) return "";
    return home + std::string("/Library");
}

std::vector<ShownAlert> AlertsOf(const std::function<void()>& body)
{
    StartApplication();
    gAlerts.clear();
    ExchangeRunModal();
    body();
    ExchangeRunModal();
    return gAlerts;
}

}  // namespace Platform

static NSButton* FindDefaultButton(NSView* view)
{
    NSArray* const children = [view subviews];
    for (NSUInteger index = 0; index < [children count]; ++index) {
        NSView* const child = [children objectAtIndex:index];
        if ([child isKindOfClass:[NSButton class]] &&
            [[(NSButton*)child keyEquivalent] isEqual:@"\r"]) {
            return (NSButton*)child;
        }
        NSButton* const found = FindDefaultButton(child);
        if (found != nil) return found;
    }
    return nil;
}

@interface NSAlert (Recorder)
- (NSInteger)recordAndRunModal;
- (void)clickDefaultButton:(NSTimer*)timer;
@end

@implementation NSAlert (Recorder)

- (NSInteger)recordAndRunModal
{
    Platform::gAlerts.push_back(
        {[[self messageText] UTF8String], [[self informativeText] UTF8String]});
    NSTimer* const timer = [NSTimer timerWithTimeInterval:0.05
                                                   target:self
                                                 selector:@selector(clickDefaultButton:)
                                                 userInfo:nil
                                                  repeats:YES];
    [[NSRunLoop currentRunLoop] addTimer:timer forMode:NSModalPanelRunLoopMode];
    const NSInteger answer = [self recordAndRunModal];
    [timer invalidate];
    return answer;
}

- (void)clickDefaultButton:(NSTimer*)timer
{
    (void)timer;
    [FindDefaultButton([[NSApp modalWindow] contentView]) performClick:nil];
    // Wakes the modal loop, which handles the click only between events.
    [NSApp postEvent:[NSEvent otherEventWithType:NSEventTypeApplicationDefined
                                        location:NSZeroPoint
                                   modifierFlags:0
                                       timestamp:0
                                    windowNumber:0
                                         context:nil
                                         subtype:0
                                           data1:0
                                           data2:0]
             atStart:NO];
}

@end
