#include "Workspace.h"

#import <AppKit/AppKit.h>

@interface FixtureApplication : NSObject {
    NSURL* mExecutable;
}
- (id)initWithExecutable:(const std::string&)path;
- (NSURL*)executableURL;
@end

@implementation FixtureApplication

- (id)initWithExecutable:(const std::string&)path
{
    self = [super init];
    NSString* const text = [NSString stringWithUTF8String:path.c_str()];
    if (self != nil && !path.empty()) mExecutable = [[NSURL fileURLWithPath:text] retain];
    return self;
}

- (void)dealloc
{
    [mExecutable release];
    [super dealloc];
}

- (NSURL*)executableURL
{
    return mExecutable;
}

@end

static NSMutableArray* sApplications = nil;

void SetRunningApplications(const std::vector<std::string>& executables)
{
    [sApplications release];
    sApplications = [[NSMutableArray alloc] init];
    for (const std::string& path : executables) {
        FixtureApplication* const application =
            [[FixtureApplication alloc] initWithExecutable:path];
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
