#pragma once

#import <AppKit/AppKit.h>

@interface NSApplication (Override)

// The override of beginModalSessionForWindow:. InitSuppressionHooks exchanges the two methods, so
// that the host's calls end up here, and this selector runs the host's own method. Returns the
// session of the host's method.
- (NSModalSession)beginModalOverride:(NSWindow*)window;

@end
