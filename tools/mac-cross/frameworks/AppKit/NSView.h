#pragma once

#include <AppKit/NSApplication.h>

// AppKit, "NSView"
@interface NSView : NSResponder
// "subviews"
- (NSArray*)subviews SINCE(10.0);
@end

// AppKit, "NSControl"
@interface NSControl : NSView
// "performClick:"
- (void)performClick:(id)sender SINCE(10.0);
@end

// AppKit, "NSButton"
@interface NSButton : NSControl
// "keyEquivalent"
- (NSString*)keyEquivalent SINCE(10.0);
@end
