#pragma once

#include <CoreFoundation/CFBase.h>

// Core Foundation, "CFStringEncoding"
typedef UInt32 CFStringEncoding;
// Core Foundation, "CFStringBuiltInEncodings"
enum : CFStringEncoding { kCFStringEncodingUTF8 = 0x08000100 };

// Core Foundation, "CFSTR"
#define CFSTR(text) ((CFStringRef)__builtin___CFStringMakeConstantString("" text ""))
// Core Foundation, "CFStringGetTypeID"
CF_EXPORT CFTypeID CFStringGetTypeID(void) SINCE(10.0);
// Core Foundation, "CFStringCreateWithCString"
CF_EXPORT CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char* text,
                                                CFStringEncoding encoding) SINCE(10.0);
// Core Foundation, "CFStringGetLength"
CF_EXPORT CFIndex CFStringGetLength(CFStringRef text) SINCE(10.0);
// Core Foundation, "CFStringGetMaximumSizeForEncoding"
CF_EXPORT CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding)
    SINCE(10.0);
// Core Foundation, "CFStringGetCString"
CF_EXPORT Boolean CFStringGetCString(CFStringRef text, char* buffer, CFIndex size,
                                     CFStringEncoding encoding) SINCE(10.0);
