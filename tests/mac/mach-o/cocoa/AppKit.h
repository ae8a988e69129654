#pragma once

#import <Foundation/Foundation.h>

#include "HostPlatform_Linux.h"

// The classes of AppKit that the plug-in uses, over the services of the headless host. Foundation
// is GNUstep's. [main-thread]

// A window of the host; a DVAMacDialog if the host says that it is one.
@interface NSWindow : NSObject {
    ModalWindow* mWindow;
}
- (id)initWithWindow:(ModalWindow*)window;
- (ModalWindow*)window;
- (NSString*)title;
- (NSInteger)windowNumber;
// Raises an NSException if the host's window throws a ModalWindowException.
- (void)sendEvent:(id)event;
@end

@interface DVAMacDialog : NSWindow
@end

@interface NSApplication : NSObject
+ (NSApplication*)sharedApplication;
// Begins a session with the host's own function.
- (void*)beginModalSessionForWindow:(NSWindow*)window;
@end

@interface NSEvent : NSObject {
@public
    SKeyEvent event;
    NSString* characters;
    NSString* unmodified;
}
+ (NSEvent*)keyEventWithType:(NSUInteger)type
                       location:(NSPoint)location
                  modifierFlags:(NSUInteger)flags
                      timestamp:(NSTimeInterval)timestamp
                   windowNumber:(NSInteger)windowNumber
                        context:(id)context
                     characters:(NSString*)characters
    charactersIgnoringModifiers:(NSString*)unmodified
                      isARepeat:(BOOL)isARepeat
                        keyCode:(unsigned short)keyCode;
@end

@interface NSAlert : NSObject {
    NSString* mMessage;
    NSString* mInformation;
}
- (void)setMessageText:(NSString*)text;
- (void)setInformativeText:(NSString*)text;
- (NSInteger)runModal;
@end

@interface NSWorkspace : NSObject
+ (NSWorkspace*)sharedWorkspace;
// One object per process of this machine, each with `executableURL`.
- (NSArray*)runningApplications;
@end
