#include "AppKitSession.h"

#import <AppKit/AppKit.h>
#include <unistd.h>

#include <stdexcept>

#include "Display.h"

namespace {

const pid_t kProgram = getpid();

}  // namespace

void StartApplication()
{
    if (getpid() != kProgram) throw std::logic_error("AppKit is used after fork()");
    if (NSApp != nil) return;
    EnterDisplay();
    NSDictionary* const defaults =
        [NSDictionary dictionaryWithObject:@"NO" forKey:@"GSX11HandlesWindowDecorations"];
    [[NSUserDefaults standardUserDefaults] registerDefaults:defaults];
    // Sets NSApp.
    (void)[NSApplication sharedApplication];
}
