#pragma once

#include <Foundation/NSObject.h>

// Foundation, "NSRange"
typedef struct _NSRange {
    NSUInteger location;
    NSUInteger length;
} NSRange;

// Foundation, "NSStringEncoding" and "NSMacOSRomanStringEncoding"
typedef NSUInteger NSStringEncoding;
enum : NSStringEncoding { NSMacOSRomanStringEncoding = 30 };

// Foundation, "NSString"
@interface NSString : NSObject
// "stringWithUTF8String:"
+ (instancetype)stringWithUTF8String:(const char*)text SINCE(10.0);
// "initWithUTF8String:"
- (instancetype)initWithUTF8String:(const char*)text SINCE(10.0);
// "initWithCString:encoding:"
- (instancetype)initWithCString:(const char*)text encoding:(NSStringEncoding)encoding SINCE(10.4);
// "UTF8String"
- (const char*)UTF8String SINCE(10.0);
// "rangeOfString:"
- (NSRange)rangeOfString:(NSString*)wanted SINCE(10.0);
// "stringByExpandingTildeInPath"
- (NSString*)stringByExpandingTildeInPath SINCE(10.0);
// "fileSystemRepresentation"
- (const char*)fileSystemRepresentation SINCE(10.0);
@end
