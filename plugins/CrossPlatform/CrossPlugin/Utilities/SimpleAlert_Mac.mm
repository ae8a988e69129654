#include "SimpleAlert.h"

#import <AppKit/AppKit.h>

namespace {

// An alert takes no nil; a text that isn't UTF-8 isn't shown.
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
    // The default button is the only one, so there is nothing to be learnt from the answer.
    (void)[alert runModal];
    [alert release];
    [pool release];
    return 0;
}
