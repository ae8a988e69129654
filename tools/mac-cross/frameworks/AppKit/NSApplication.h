#pragma once

#include <Foundation/Foundation.h>

@class NSWindow;

// AppKit, "NSApplication.ModalSession"
typedef struct _NSModalSession* NSModalSession;

// AppKit, "NSResponder"
@interface NSResponder : NSObject
@end

// AppKit, "NSApplication"
@interface NSApplication : NSResponder
// "beginModalSessionForWindow:"
- (NSModalSession)beginModalSessionForWindow:(NSWindow*)window SINCE(10.0);
@end

// AppKit, "NSRunningApplication"
@interface NSRunningApplication : NSObject
// "executableURL"
- (NSURL*)executableURL SINCE(10.6);
@end

// AppKit, "NSWorkspace"
@interface NSWorkspace : NSObject
// "sharedWorkspace"
+ (NSWorkspace*)sharedWorkspace SINCE(10.0);
// "runningApplications"
- (NSArray*)runningApplications SINCE(10.6);
@end
