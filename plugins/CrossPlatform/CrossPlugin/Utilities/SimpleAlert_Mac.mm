#include "SimpleAlert.h"

#import <AppKit/AppKit.h>

namespace {

// NSAlert doesn't accept nil. Text that isn't UTF-8 is not shown.
NSString* MakeText(char const* text)
{
    NSString* const string = text != nullptr ? [NSString stringWithUTF8String:text] : nil;
    return string != nil ? string : @"";
}

}  // namespace

int SimpleAlert(char const* messageText, char const* informativeText)
{
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    NSAlert* const alert = [[NSAlert alloc] init];
    [alert setMessageText:MakeText(messageText)];
    [alert setInformativeText:MakeText(informativeText)];
    // There is only one button, so the result says nothing.
    (void)[alert runModal];
    [alert release];
    [pool release];
    return 0;
}
