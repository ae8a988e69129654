#pragma once

#import <Foundation/Foundation.h>

// A running application, as NSWorkspace lists them: the part of NSRunningApplication that the
// plug-in uses.
@interface StandInApplication : NSObject {
    NSURL* mExecutable;
}
// path   of its executable; nil for an application without one
- (id)initWithExecutable:(NSString*)path;
- (NSURL*)executableURL;
@end
