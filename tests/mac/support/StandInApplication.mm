#include "StandInApplication.h"

@implementation StandInApplication

- (id)initWithExecutable:(NSString*)path
{
    self = [super init];
    if (self != nil && path != nil) {
        mExecutable = [[NSURL fileURLWithPath:path isDirectory:NO] retain];
    }
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
