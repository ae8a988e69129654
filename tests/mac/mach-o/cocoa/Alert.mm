#import "cocoa/AppKit.h"
#include "cocoa/HostWindows.h"

@implementation NSAlert

- (void)dealloc
{
    [mMessage release];
    [mInformation release];
    [super dealloc];
}

- (void)setMessageText:(NSString*)text
{
    [mMessage release];
    mMessage = [text copy];
}

- (void)setInformativeText:(NSString*)text
{
    [mInformation release];
    mInformation = [text copy];
}

- (NSInteger)runModal
{
    constexpr NSInteger kFirstButton = 1000;
    const SHostPlatform* const platform = macho::GetPlatform();
    const char* const message = [mMessage UTF8String];
    const char* const information = [mInformation UTF8String];
    if (platform != nullptr && platform->showAlert != nullptr) {
        platform->showAlert(message, information);
    } else {
        // As the plug-in for Linux does; if standard error is closed, the text is lost.
        (void)fprintf(stderr, "%s\n%s\n", message, information);
    }
    return kFirstButton;
}

@end
