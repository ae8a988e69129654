#pragma once

#include <AppKit/NSView.h>

@class NSGraphicsContext;

// AppKit, "NSEvent.EventType"
typedef enum NSEventType : NSUInteger {
    NSEventTypeKeyDown = 10,
    NSEventTypeApplicationDefined = 15
} NSEventType;
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
// "otherEventWithType:location:modifierFlags:timestamp:windowNumber:context:subtype:data1:data2:"
+ (NSEvent*)otherEventWithType:(NSEventType)type
                      location:(NSPoint)location
                 modifierFlags:(NSEventModifierFlags)flags
                     timestamp:(NSTimeInterval)time
                  windowNumber:(NSInteger)number
                       context:(NSGraphicsContext*)context
                       subtype:(short)subtype
                         data1:(NSInteger)first
                         data2:(NSInteger)second SINCE(10.0);
// "type"
- (NSEventType)type SINCE(10.0);
// "locationInWindow"
- (NSPoint)locationInWindow SINCE(10.0);
// "modifierFlags"
- (NSEventModifierFlags)modifierFlags SINCE(10.0);
// "timestamp"
- (NSTimeInterval)timestamp SINCE(10.0);
// "windowNumber"
- (NSInteger)windowNumber SINCE(10.0);
// "characters"
- (NSString*)characters SINCE(10.0);
// "charactersIgnoringModifiers"
- (NSString*)charactersIgnoringModifiers SINCE(10.0);
// "isARepeat"
- (BOOL)isARepeat SINCE(10.0);
// "keyCode"
- (unsigned short)keyCode SINCE(10.0);
@end

// AppKit, "NSWindow.StyleMask"
typedef enum NSWindowStyleMask : NSUInteger { NSWindowStyleMaskTitled = 1 } NSWindowStyleMask;
// AppKit, "NSWindow.BackingStoreType"
typedef enum NSBackingStoreType : NSUInteger { NSBackingStoreBuffered = 2 } NSBackingStoreType;

// AppKit, "NSWindow"
@interface NSWindow : NSResponder
// "initWithContentRect:styleMask:backing:defer:"
- (instancetype)initWithContentRect:(NSRect)rect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)isDeferred SINCE(10.0);
// "setReleasedWhenClosed:"
- (void)setReleasedWhenClosed:(BOOL)isReleased SINCE(10.0);
// "setTitle:"
- (void)setTitle:(NSString*)title SINCE(10.0);
// "contentView"
- (NSView*)contentView SINCE(10.0);
// "orderFront:"
- (void)orderFront:(id)sender SINCE(10.0);
// "orderOut:"
- (void)orderOut:(id)sender SINCE(10.0);
// "close"
- (void)close SINCE(10.0);
// "title"
- (NSString*)title SINCE(10.0);
// "windowNumber"
- (NSInteger)windowNumber SINCE(10.0);
// "sendEvent:"
- (void)sendEvent:(NSEvent*)event SINCE(10.0);
@end

// AppKit, "NSPanel"
@interface NSPanel : NSWindow
@end

// AppKit, "NSAlert"
@interface NSAlert : NSObject
// "messageText"
- (NSString*)messageText SINCE(10.3);
// "informativeText"
- (NSString*)informativeText SINCE(10.3);
// "setMessageText:"
- (void)setMessageText:(NSString*)text SINCE(10.3);
// "setInformativeText:"
- (void)setInformativeText:(NSString*)text SINCE(10.3);
// "runModal"
- (NSInteger)runModal SINCE(10.3);
@end
