#include "Workspace.h"

#import <AppKit/AppKit.h>

#include "StandInApplication.h"

static NSMutableArray* sApplications = nil;

void SetRunningApplications(const std::vector<std::string>& executables)
{
    [sApplications release];
    sApplications = [[NSMutableArray alloc] init];
    for (const std::string& path : executables) {
        NSString* const text = path.empty() ? nil : [NSString stringWithUTF8String:path.c_str()];
        StandInApplication* const application =
            [[StandInApplication alloc] initWithExecutable:text];
        [sApplications addObject:application];
        [application release];
    }
}

// Replaces GNUstep's workspace, which starts a server for notifications and doesn't list other
// processes.
@interface NSWorkspace (Fixture)
@end

@implementation NSWorkspace (Fixture)

+ (NSWorkspace*)sharedWorkspace
{
    static NSWorkspace* sWorkspace = nil;
    if (sWorkspace == nil) sWorkspace = NSAllocateObject(self, 0, NULL);
    return sWorkspace;
}

- (NSArray*)runningApplications
{
    return sApplications;
}

@end
