#import "DialogSuppression_Mac.h"

#import <objc/runtime.h>

#include "DialogSuppression.h"
#import "OSGuard_Mac.h"

namespace {

static_assert(NSEventTypeKeyDown == 10, "the key event's type is fixed");

std::string GetText(NSString* text)
{
    const char* const bytes = [text UTF8String];
    return bytes != nullptr ? std::string(bytes) : std::string();
}

class AppKitWindow : public ModalWindow {
public:
    explicit AppKitWindow(NSWindow* window) : mWindow(window) {}

    bool IsKindOfClass(const char* className) const override
    {
        const Class wanted = NSClassFromString([NSString stringWithUTF8String:className]);
        return wanted != Nil && [mWindow isKindOfClass:wanted];
    }
    std::string GetTitle() const override { return GetText([mWindow title]); }
    long GetWindowNumber() const override { return [mWindow windowNumber]; }
    void SendEvent(const SKeyEvent& event) override
    {
        NSPoint location = NSZeroPoint;
        location.x = event.x;
        location.y = event.y;
        NSString* const characters = [NSString stringWithUTF8String:event.characters];
        NSString* const unmodified =
            [NSString stringWithUTF8String:event.charactersIgnoringModifiers];
        NSEvent* const keyEvent = [NSEvent keyEventWithType:static_cast<NSEventType>(event.type)
                                                   location:location
                                              modifierFlags:event.modifierFlags
                                                  timestamp:event.timestamp
                                               windowNumber:event.windowNumber
                                                    context:nil
                                                 characters:characters
                                charactersIgnoringModifiers:unmodified
                                                  isARepeat:event.isARepeat
                                                    keyCode:event.keyCode];
        [mWindow sendEvent:keyEvent];
    }

private:
    NSWindow* mWindow;
};

}  // namespace

@implementation NSApplication (Override)

- (NSModalSession)beginModalOverride:(NSWindow*)window
{
    AppKitWindow adapter(window);
    HandleModalWindow(adapter);
    return [self beginModalOverride:window];
}

@end

void InitSuppressionHooks()
{
    const Class application = [NSApplication class];
    const Method own = class_getInstanceMethod(application, @selector(beginModalSessionForWindow:));
    const Method replacement = class_getInstanceMethod(application, @selector(beginModalOverride:));
    method_exchangeImplementations(own, replacement);
}

bool OSTitleContains(const std::string& title, const std::string& hint)
{
    NSString* const text = [NSString stringWithUTF8String:title.c_str()];
    NSString* const wanted = [NSString stringWithUTF8String:hint.c_str()];
    // No title contains a hint that isn't valid UTF-8.
    return text != nil && wanted != nil && [text rangeOfString:wanted].location != NSNotFound;
}

void OSCallGuarded(void (*action)(void* context), void* context)
{
    NSException* const exception = OSGuard(action, context);
    if (exception == nil) return;
    NSLog(@"Exception when beginModalOverride:  exception=%@", exception);
}
