#import <AppKit/AppKit.h>
#import <objc/runtime.h>

#include <functional>

#include "AppKitSession.h"
#include "Platform.h"

using Platform::Dialog;
using Platform::KeyEvent;

struct Dialog::Window {
    NSPanel* panel = nil;
    std::vector<KeyEvent> events;
    std::function<void()> onEvent;
    bool isDismissed = false;

    void TakeKey(NSEvent* event);
};

// The host's dialog class. A key event is recorded for the test and dismisses the dialog.
@interface DVAMacDialog : NSPanel {
@public
    void* owner;
}
@end

@implementation DVAMacDialog

- (void)sendEvent:(NSEvent*)event
{
    if ([event type] == NSEventTypeKeyDown && owner != nullptr) {
        static_cast<Dialog::Window*>(owner)->TakeKey(event);
    } else {
        [super sendEvent:event];
    }
}

@end

void Dialog::Window::TakeKey(NSEvent* event)
{
    events.push_back({static_cast<int>([event type]), [event locationInWindow].x,
                      [event locationInWindow].y, [event modifierFlags], [event timestamp],
                      [event windowNumber], [[event characters] UTF8String],
                      [[event charactersIgnoringModifiers] UTF8String],
                      static_cast<bool>([event isARepeat]), [event keyCode]});
    [panel orderOut:nil];
    isDismissed = true;
    if (onEvent) onEvent();
}

@interface DialogOfASubclass : DVAMacDialog
@end

@implementation DialogOfASubclass
@end

namespace {

std::vector<NSWindow*> gSessionWindows;
std::vector<const Dialog*> gSessions;
NSModalSession gLastSession = NULL;

}  // namespace

// Records the calls that the plug-in's replacement passes on to the application's own method.
@interface NSApplication (SessionRecorder)
- (NSModalSession)recordModalSessionForWindow:(NSWindow*)window;
@end

@implementation NSApplication (SessionRecorder)

- (NSModalSession)recordModalSessionForWindow:(NSWindow*)window
{
    gSessionWindows.push_back(window);
    gLastSession = [self recordModalSessionForWindow:window];
    return gLastSession;
}

@end

namespace Platform {

Dialog::Dialog(const std::string& title, Kind kind) : mWindow(std::make_unique<Window>())
{
    StartApplication();
    const Class classes[] = {[DVAMacDialog class], [DialogOfASubclass class], [NSPanel class]};
    NSPanel* const panel =
        [[classes[static_cast<int>(kind)] alloc] initWithContentRect:NSMakeRect(40, 40, 320, 120)
                                                           styleMask:NSWindowStyleMaskTitled
                                                             backing:NSBackingStoreBuffered
                                                               defer:NO];
    [panel setReleasedWhenClosed:NO];
    [panel setTitle:[NSString stringWithUTF8String:title.c_str()]];
    [panel orderFront:nil];
    mWindow->panel = panel;
    if (kind == Kind::kOrdinary) return;
    static_cast<DVAMacDialog*>(panel)->owner = mWindow.get();
}

Dialog::~Dialog()
{
    [mWindow->panel close];
    [mWindow->panel release];
}

bool Dialog::RunSession()
{
    const size_t sessionsBefore = gSessionWindows.size();
    const NSModalSession session = [NSApp beginModalSessionForWindow:mWindow->panel];
    const bool isOwn = gSessionWindows.size() > sessionsBefore &&
                       gSessionWindows.back() == mWindow->panel && session != NULL &&
                       session == gLastSession;
    gSessions.push_back(this);
    [NSApp endModalSession:session];
    return isOwn;
}

const std::vector<KeyEvent>& Dialog::Events() const { return mWindow->events; }

long Dialog::Number() const { return [mWindow->panel windowNumber]; }

bool Dialog::IsDismissed() const { return mWindow->isDismissed; }

void Dialog::OnEvent(std::function<void()> action) { mWindow->onEvent = std::move(action); }

void Dialog::WatchSessions()
{
    const Class application = [NSApplication class];
    method_exchangeImplementations(
        class_getInstanceMethod(application, @selector(beginModalSessionForWindow:)),
        class_getInstanceMethod(application, @selector(recordModalSessionForWindow:)));
}

std::vector<const Dialog*> Dialog::Sessions() { return gSessions; }

void ThrowAsAWindow(const std::string& reason)
{
    @throw [NSException exceptionWithName:@"WindowException"
                                   reason:[NSString stringWithUTF8String:reason.c_str()]
                                 userInfo:nil];
}

}  // namespace Platform
