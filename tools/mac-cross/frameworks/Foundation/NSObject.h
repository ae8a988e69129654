#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <limits.h>
#include <objc/objc.h>

@class NSDictionary;
@class NSString;

// Foundation, "NSInteger" and "NSUInteger"
typedef long NSInteger;
typedef unsigned long NSUInteger;
// Foundation, "NSTimeInterval"
typedef double NSTimeInterval;
// Foundation, "NSNotFound": the value of NSIntegerMax
enum : NSInteger { NSNotFound = LONG_MAX };

// Objective-C Runtime, "NSObject" (protocol)
@protocol NSObject
// "retain"
- (instancetype)retain SINCE(10.0);
// "release"
- (oneway void)release SINCE(10.0);
// "autorelease"
- (instancetype)autorelease SINCE(10.0);
// "description"
- (NSString*)description SINCE(10.0);
// "isEqual:"
- (BOOL)isEqual:(id)other SINCE(10.0);
// "isKindOfClass:"
- (BOOL)isKindOfClass:(Class)type SINCE(10.0);
@end

// Objective-C Runtime, "NSObject" (class)
__attribute__((objc_root_class))
@interface NSObject<NSObject> {
    Class isa;
}
// "alloc"
+ (instancetype)alloc SINCE(10.0);
// "class"
+ (Class)class SINCE(10.0);
// "init"
- (instancetype)init SINCE(10.0);
// "dealloc"
- (void)dealloc SINCE(10.0);
@end

// Foundation, "NSAutoreleasePool"
@interface NSAutoreleasePool : NSObject
@end

// Foundation, "NSException". The attribute says that the library has the type to catch it by.
__attribute__((objc_exception))
@interface NSException : NSObject
// "exceptionWithName:reason:userInfo:"
+ (NSException*)exceptionWithName:(NSString*)name
                           reason:(NSString*)reason
                         userInfo:(NSDictionary*)info SINCE(10.0);
// "initWithName:reason:userInfo:"
- (instancetype)initWithName:(NSString*)name
                      reason:(NSString*)reason
                    userInfo:(NSDictionary*)info SINCE(10.0);
// "raise:format:"
+ (void)raise:(NSString*)name format:(NSString*)format, ... SINCE(10.0);
// "raise"
- (void)raise SINCE(10.0);
// "name"
- (NSString*)name SINCE(10.0);
// "reason"
- (NSString*)reason SINCE(10.0);
@end
// Foundation, "NSCharacterConversionException"
CF_EXPORT NSString* const NSCharacterConversionException SINCE(10.0);

// Foundation, "NSClassFromString"
CF_EXPORT Class NSClassFromString(NSString* name) SINCE(10.0);
// Foundation, "NSLog"
CF_EXPORT void NSLog(NSString* format, ...) SINCE(10.0);
