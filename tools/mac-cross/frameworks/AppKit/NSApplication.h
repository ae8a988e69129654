#pragma once

#include <Foundation/Foundation.h>

@class NSEvent;
@class NSWindow;

// AppKit, "NSApplication.ModalSession"
typedef struct _NSModalSession* NSModalSession;

// AppKit, "NSResponder"
@interface NSResponder : NSObject
@end

// AppKit, "NSApplication"
@interface NSApplication : NSResponder
// "sharedApplication"
+ (NSApplication*)sharedApplication SINCE(10.0);
// "modalWindow"
- (NSWindow*)modalWindow SINCE(10.0);
// "endModalSession:"
- (void)endModalSession:(NSModalSession)session SINCE(10.0);
// "postEvent:atStart:"
- (void)postEvent:(NSEvent*)event atStart:(BOOL)atStart SINCE(10.0);
// "beginModalSessionForWindow:"
- (NSModalSession)beginModalSessionForWindow:(NSWindow*)window SINCE(10.0);
@end

// AppKit, "NSApp"
CF_EXPORT NSApplication* NSApp SINCE(10.0);
// AppKit, "modalPanel": the mode named NSModalPanelRunLoopMode
CF_EXPORT NSRunLoopMode NSModalPanelRunLoopMode SINCE(10.0);

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
