#import <AppKit/AppKit.h>
#include <gtest/gtest.h>
#import <objc/runtime.h>

#include "AppKitSession.h"
#include "DialogSuppression.h"
#include "FreshProcess.h"
#include "RecordingTrace.h"

// This program has no dialog class of a host, unlike the contract tests.

namespace {

NSString* NoTitle(id, SEL) { return nil; }

// Creates the host's dialog class, whose windows have no title.
Class MakeDialogClass()
{
    const Class dialog = objc_allocateClassPair([NSPanel class], "DVAMacDialog", 0);
    class_addMethod(dialog, @selector(title), reinterpret_cast<IMP>(NoTitle), "@@:");
    objc_registerClassPair(dialog);
    return dialog;
}

// Begins and ends a modal session for a window of the class, with the hook installed. Returns true
// if the session began.
bool RunSession(Class windowClass)
{
    StartApplication();
    CreateListOfSuppressableDialogs();
    InitSuppressionHooks();
    SetSuppressionOfMissingFontsDialog(15);
    ClearTraces();
    NSPanel* const panel = [[windowClass alloc] initWithContentRect:NSMakeRect(40, 40, 320, 120)
                                                          styleMask:NSWindowStyleMaskTitled
                                                            backing:NSBackingStoreBuffered
                                                              defer:NO];
    [panel setReleasedWhenClosed:NO];
    const NSModalSession session = [NSApp beginModalSessionForWindow:panel];
    if (session != NULL) [NSApp endModalSession:session];
    [panel close];
    [panel release];
    return session != NULL;
}

TEST(DialogClass, HostWithoutItKeepsItsWindows)
{
    InFreshProcess([] {
        EXPECT_EQ(Nil, NSClassFromString(@"DVAMacDialog"));
        EXPECT_TRUE(RunSession([NSPanel class]));
        EXPECT_TRUE(Traces().empty());
    });
}

TEST(DialogClass, DialogWithoutATitleIsKept)
{
    InFreshProcess([] {
        EXPECT_TRUE(RunSession(MakeDialogClass()));
        EXPECT_TRUE(HasTrace("Saw a dialog titled ''"));
        EXPECT_TRUE(HasTrace("Does '' contain 'Font'?"));
        EXPECT_FALSE(HasTraceBeginningWith("Dialog '' is suppressable"));
    });
}

}  // namespace
