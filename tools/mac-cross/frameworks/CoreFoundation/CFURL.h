#pragma once

#include <CoreFoundation/CFBase.h>

// Core Foundation, "CFURLRef"
typedef const struct __CFURL* CFURLRef;
// Core Foundation, "CFURLPathStyle"
typedef enum CFURLPathStyle : CFIndex { kCFURLPOSIXPathStyle = 0 } CFURLPathStyle;
// Core Foundation, "kCFURLContentModificationDateKey"
CF_EXPORT const CFStringRef kCFURLContentModificationDateKey SINCE(10.6);

// Core Foundation, "CFURLCreateWithFileSystemPath"
CF_EXPORT CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef allocator, CFStringRef path,
                                                 CFURLPathStyle style, Boolean isDirectory)
    SINCE(10.0);
// Core Foundation, "CFURLCreateCopyAppendingPathComponent"
CF_EXPORT CFURLRef CFURLCreateCopyAppendingPathComponent(CFAllocatorRef allocator, CFURLRef url,
                                                         CFStringRef component, Boolean isDirectory)
    SINCE(10.0);
// Core Foundation, "CFURLCopyAbsoluteURL"
CF_EXPORT CFURLRef CFURLCopyAbsoluteURL(CFURLRef url) SINCE(10.0);
// Core Foundation, "CFURLCreateFilePathURL"
CF_EXPORT CFURLRef CFURLCreateFilePathURL(CFAllocatorRef allocator, CFURLRef url, CFErrorRef* error)
    SINCE(10.6);
// Core Foundation, "CFURLResourceIsReachable"
CF_EXPORT Boolean CFURLResourceIsReachable(CFURLRef url, CFErrorRef* error) SINCE(10.6);
// Core Foundation, "CFURLGetFileSystemRepresentation"
CF_EXPORT Boolean CFURLGetFileSystemRepresentation(CFURLRef url, Boolean resolve, UInt8* buffer,
                                                   CFIndex size) SINCE(10.0);
// Core Foundation, "CFURLCopyResourcePropertyForKey"
CF_EXPORT Boolean CFURLCopyResourcePropertyForKey(CFURLRef url, CFStringRef key, void* value,
                                                  CFErrorRef* error) SINCE(10.6);
