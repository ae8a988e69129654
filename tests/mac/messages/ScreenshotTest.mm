#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include "DialogSuppression.h"
#include "FakeClock.h"
#include "FreshProcess.h"
#include "Platform.h"

using Platform::Dialog;

namespace {

constexpr char kTitle[] = "Missing Fonts";

NSWindow* FindWindow(const char* title)
{
    NSArray* const windows = [NSApp windows];
    for (NSUInteger index = 0; index < [windows count]; ++index) {
        NSWindow* const window = [windows objectAtIndex:index];
        if ([[window title] isEqual:[NSString stringWithUTF8String:title]]) return window;
    }
    return nil;
}

NSBitmapImageRep* Photograph(NSView* view)
{
    [view lockFocus];
    NSBitmapImageRep* const picture =
        [[[NSBitmapImageRep alloc] initWithFocusedViewRect:[view bounds]] autorelease];
    [view unlockFocus];
    return picture;
}

// Returns true if the picture has more than one colour.
bool IsDrawn(NSBitmapImageRep* picture)
{
    NSColor* const corner = [picture colorAtX:0 y:0];
    for (NSInteger y = 0; y < [picture pixelsHigh]; ++y) {
        for (NSInteger x = 0; x < [picture pixelsWide]; ++x) {
            if (![[picture colorAtX:x y:y] isEqual:corner]) return true;
        }
    }
    return false;
}

void WriteOnto(NSWindow* window, NSString* text)
{
    NSTextField* const label =
        [[[NSTextField alloc] initWithFrame:NSMakeRect(20, 40, 280, 40)] autorelease];
    [label setStringValue:text];
    [label setEditable:NO];
    [[window contentView] addSubview:label];
    [window display];
}

// Leaves the picture in the build folder.
TEST(Screenshot, ShowsTheDialogBeforeItIsDismissed)
{
    InFreshProcess([] {
        Dialog::WatchSessions();
        CreateListOfSuppressableDialogs();
        InitSuppressionHooks();
        SetSuppressionOfMissingFontsDialog(15);
        Dialog dialog(kTitle);
        NSWindow* const window = FindWindow(kTitle);
        ASSERT_NE(nil, window);
        WriteOnto(window, @"NoSuchFace-Regular is missing.");
        EXPECT_TRUE([window isVisible]);

        NSBitmapImageRep* const picture = Photograph([window contentView]);
        ASSERT_NE(nil, picture);
        EXPECT_TRUE(IsDrawn(picture));
        NSData* const content = [picture representationUsingType:NSPNGFileType properties:nil];
        NSString* const file =
            [NSString stringWithUTF8String:ARTEFACTS "/missing-fonts-dialog.png"];
        EXPECT_TRUE([content writeToFile:file atomically:YES]);

        EXPECT_TRUE(dialog.RunSession());
        EXPECT_TRUE(dialog.IsDismissed());
    });
}

}  // namespace
