// The same where CoreFoundation and the workspace are the real ones.

#import <AppKit/AppKit.h>

#include "AppKitSession.h"
#include "Platform.h"

namespace Platform {

// References aren't counted there: a difference of 0 is all that is told.
long LiveReferences() { return 0; }

// The workspace lists applications only, and this process is one from now on.
std::string RunningExecutable()
{
    StartApplication();
    NSArray* const applications = [[NSWorkspace sharedWorkspace] runningApplications];
    for (NSUInteger index = 0; index < [applications count]; ++index) {
        NSURL* const executable = [[applications objectAtIndex:index] executableURL];
        if (executable != nil) return [[executable path] UTF8String];
    }
    return "";
}

}  // namespace Platform
