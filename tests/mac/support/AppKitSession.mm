#include "AppKitSession.h"

#import <AppKit/AppKit.h>

#include "Display.h"

void StartApplication()
{
    if (NSApp != nil) return;
    EnterDisplay();
    NSDictionary* const defaults =
        [NSDictionary dictionaryWithObject:@"NO" forKey:@"GSX11HandlesWindowDecorations"];
    [[NSUserDefaults standardUserDefaults] registerDefaults:defaults];
    // Sets NSApp.
    (void)[NSApplication sharedApplication];
}
