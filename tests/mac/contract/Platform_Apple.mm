// The parts of Platform.h that use the real CoreFoundation and the real workspace.

#import <AppKit/AppKit.h>

#include "AppKitSession.h"
#include "Platform.h"

namespace Platform {

const bool kCountsReferences = false;

// CoreFoundation doesn't count live references.
long LiveReferences() { return 0; }

// The workspace lists only applications, so this process becomes one.
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
