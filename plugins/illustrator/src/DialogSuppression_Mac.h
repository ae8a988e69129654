#pragma once

#import <AppKit/AppKit.h>

@interface NSApplication (Override)

// After InitSuppressionHooks the selector beginModalSessionForWindow: runs this body, and this
// selector the application's own. The session goes back to the host as it came.
- (NSModalSession)beginModalOverride:(NSWindow*)window;

@end
