#pragma once

#include <Foundation/NSString.h>

// Foundation, "NSRunLoop.Mode"
typedef NSString* NSRunLoopMode;

// Foundation, "NSDictionary"
@interface NSDictionary : NSObject
// "dictionaryWithObject:forKey:"
+ (instancetype)dictionaryWithObject:(id)object forKey:(id)key SINCE(10.0);
@end

// Foundation, "NSUserDefaults"
@interface NSUserDefaults : NSObject
// "standardUserDefaults"
+ (NSUserDefaults*)standardUserDefaults SINCE(10.0);
// "registerDefaults:"
- (void)registerDefaults:(NSDictionary*)defaults SINCE(10.0);
@end

// Foundation, "NSTimer"
@interface NSTimer : NSObject
// "timerWithTimeInterval:target:selector:userInfo:repeats:"
+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)seconds
                           target:(id)target
                         selector:(SEL)selector
                         userInfo:(id)info
                          repeats:(BOOL)repeats SINCE(10.0);
// "invalidate"
- (void)invalidate SINCE(10.0);
@end

// Foundation, "NSRunLoop"
@interface NSRunLoop : NSObject
// "currentRunLoop"
+ (NSRunLoop*)currentRunLoop SINCE(10.0);
// "addTimer:forMode:"
- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode SINCE(10.0);
@end
