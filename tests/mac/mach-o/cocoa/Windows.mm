#include <string>

#import "cocoa/AppKit.h"
#include "cocoa/HostWindows.h"

// GNUstep's description of an exception has its address, that of macOS is the reason.
@interface HostWindowException : NSException
@end

@implementation HostWindowException

- (NSString*)description
{
    return [self reason];
}

@end

namespace {

// Returns the title. If the host's window throws, the result is empty and `reason` is the text.
std::string GetTitle(const ModalWindow& window, std::string& reason)
{
    try {
        return window.GetTitle();
    } catch (const ModalWindowException& exception) {
        reason = exception.what();
        return std::string();
    }
}

void Deliver(ModalWindow& window, const SKeyEvent& event, std::string& reason)
{
    try {
        window.SendEvent(event);
    } catch (const ModalWindowException& exception) {
        reason = exception.what();
    }
}

// Outside of the catch: the exception of the host has ended before the other one begins.
void RaiseIfSet(const std::string& reason)
{
    if (reason.empty()) return;
    [HostWindowException raise:@"ModalWindowException" format:@"%s", reason.c_str()];
}

}  // namespace

@implementation NSWindow

- (id)initWithWindow:(ModalWindow*)window
{
    self = [super init];
    if (self != nil) mWindow = window;
    return self;
}

- (ModalWindow*)window
{
    return mWindow;
}

- (NSString*)title
{
    std::string reason;
    const std::string text = GetTitle(*mWindow, reason);
    RaiseIfSet(reason);
    return [NSString stringWithUTF8String:text.c_str()];
}

- (NSInteger)windowNumber
{
    return mWindow->GetWindowNumber();
}

- (void)sendEvent:(id)event
{
    std::string reason;
    Deliver(*mWindow, static_cast<NSEvent*>(event)->event, reason);
    RaiseIfSet(reason);
}

@end

@implementation DVAMacDialog
@end

@implementation NSApplication

+ (NSApplication*)sharedApplication
{
    static NSApplication* sApplication = nil;
    if (sApplication == nil) sApplication = [[self alloc] init];
    return sApplication;
}

- (void*)beginModalSessionForWindow:(NSWindow*)window
{
    return macho::GetHostsFunction()([window window]);
}

@end

@implementation NSEvent

+ (NSEvent*)keyEventWithType:(NSUInteger)type
                       location:(NSPoint)location
                  modifierFlags:(NSUInteger)flags
                      timestamp:(NSTimeInterval)timestamp
                   windowNumber:(NSInteger)windowNumber
                        context:(id)context
                     characters:(NSString*)characters
    charactersIgnoringModifiers:(NSString*)unmodified
                      isARepeat:(BOOL)isARepeat
                        keyCode:(unsigned short)keyCode
{
    (void)context;  // always nil
    NSEvent* const made = [[[self alloc] init] autorelease];
    made->characters = [characters retain];
    made->unmodified = [unmodified retain];
    made->event = {static_cast<int>(type),
                   location.x,
                   location.y,
                   static_cast<unsigned>(flags),
                   timestamp,
                   windowNumber,
                   [made->characters UTF8String],
                   [made->unmodified UTF8String],
                   isARepeat != NO,
                   keyCode};
    return made;
}

- (void)dealloc
{
    [characters release];
    [unmodified release];
    [super dealloc];
}

@end
