#pragma once

#include <AppKit/NSApplication.h>

@class NSGraphicsContext;

// AppKit, "NSEvent.EventType"
typedef enum NSEventType : NSUInteger { NSEventTypeKeyDown = 10 } NSEventType;
// AppKit, "NSEvent.ModifierFlags"
typedef NSUInteger NSEventModifierFlags;

// AppKit, "NSEvent"
@interface NSEvent : NSObject
// "keyEventWithType:location:modifierFlags:timestamp:windowNumber:context:characters:
// charactersIgnoringModifiers:isARepeat:keyCode:"
+ (NSEvent*)keyEventWithType:(NSEventType)type
                       location:(NSPoint)location
                  modifierFlags:(NSEventModifierFlags)flags
                      timestamp:(NSTimeInterval)time
                   windowNumber:(NSInteger)number
                        context:(NSGraphicsContext*)context
                     characters:(NSString*)characters
    charactersIgnoringModifiers:(NSString*)unmodified
                      isARepeat:(BOOL)isARepeat
                        keyCode:(unsigned short)code SINCE(10.0);
@end

// AppKit, "NSWindow"
@interface NSWindow : NSResponder
// "title"
- (NSString*)title SINCE(10.0);
// "windowNumber"
- (NSInteger)windowNumber SINCE(10.0);
// "sendEvent:"
- (void)sendEvent:(NSEvent*)event SINCE(10.0);
@end

// AppKit, "NSAlert"
@interface NSAlert : NSObject
// "setMessageText:"
- (void)setMessageText:(NSString*)text SINCE(10.3);
// "setInformativeText:"
- (void)setInformativeText:(NSString*)text SINCE(10.3);
// "runModal"
- (NSInteger)runModal SINCE(10.3);
@end
