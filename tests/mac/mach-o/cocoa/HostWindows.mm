#include "cocoa/HostWindows.h"

#include <dlfcn.h>

#import "cocoa/AppKit.h"

namespace {

BeginModalSessionFunction sHostsFunction = nullptr;

ModalSession BeginSession(ModalWindow* window)
{
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    const bool isDialog = window != nullptr && window->IsKindOfClass("DVAMacDialog");
    Class const type = isDialog ? [DVAMacDialog class] : [NSWindow class];
    NSWindow* const wrapper = [[type alloc] initWithWindow:window];
    void* const session = [[NSApplication sharedApplication] beginModalSessionForWindow:wrapper];
    [wrapper release];
    [pool release];
    return session;
}

}  // namespace

SHostPlatform* macho::GetPlatform()
{
    typedef SHostPlatform* (*Function)();
    const auto get = reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, "GetHostPlatform"));
    return get == nullptr ? nullptr : get();
}

BeginModalSessionFunction macho::GetHostsFunction() { return sHostsFunction; }

void macho::ConnectWindows()
{
    SHostPlatform* const platform = GetPlatform();
    if (platform == nullptr) return;
    sHostsFunction = platform->beginModalSession;
    platform->beginModalSession = BeginSession;
}
