#pragma once

#include <Foundation/NSString.h>

// Foundation, "NSArray"
@interface NSArray : NSObject
// "array"
+ (instancetype)array SINCE(10.0);
// "arrayWithObject:"
+ (instancetype)arrayWithObject:(id)object SINCE(10.0);
// "count"
- (NSUInteger)count SINCE(10.0);
// "objectAtIndex:"
- (id)objectAtIndex:(NSUInteger)index SINCE(10.0);
@end

// Foundation, "NSURL"
@interface NSURL : NSObject
// "fileURLWithPath:"
+ (NSURL*)fileURLWithPath:(NSString*)path SINCE(10.0);
// "path"
- (NSString*)path SINCE(10.0);
@end

// Foundation, "NSFileManager"
@interface NSFileManager : NSObject
// "defaultManager"
+ (NSFileManager*)defaultManager SINCE(10.0);
// "fileExistsAtPath:"
- (BOOL)fileExistsAtPath:(NSString*)path SINCE(10.0);
@end

// Foundation, "NSHomeDirectory"
CF_EXPORT NSString* NSHomeDirectory(void) SINCE(10.0);
// Foundation, "NSSearchPathDirectory"
typedef enum NSSearchPathDirectory : NSUInteger { NSLibraryDirectory = 5 } NSSearchPathDirectory;
// Foundation, "NSSearchPathDomainMask"
typedef enum NSSearchPathDomainMask : NSUInteger { NSUserDomainMask = 1 } NSSearchPathDomainMask;
// Foundation, "NSSearchPathForDirectoriesInDomains"
CF_EXPORT NSArray* NSSearchPathForDirectoriesInDomains(NSSearchPathDirectory folder,
                                                       NSSearchPathDomainMask domains,
                                                       BOOL expandTilde) SINCE(10.0);
