#pragma once

// The types of CoreFoundation, its references and how they are released. As in every file here, the
// line above a declaration is the title of the page of Apple's public documentation that describes
// it.

#include <stdint.h>

#ifdef __cplusplus
#define CF_EXPORT extern "C"
#else
#define CF_EXPORT extern
#endif
// The version of macOS that brought a name. The compiler refuses a newer one than the minimum.
#define SINCE(version) __attribute__((availability(macos, introduced = version)))

// Core Foundation, "Base Utilities"
typedef unsigned char Boolean;
typedef uint8_t UInt8;
typedef uint16_t UInt16;
typedef uint32_t UInt32;
typedef int32_t SInt32;
typedef SInt32 OSStatus;
// Core Foundation, "CFIndex"
typedef long CFIndex;
// Core Foundation, "CFTypeID"
typedef unsigned long CFTypeID;
// Core Foundation, "CFTypeRef"
typedef const void* CFTypeRef;
// Core Foundation, "CFAllocatorRef"
typedef const struct __CFAllocator* CFAllocatorRef;
// Core Foundation, "CFErrorRef"
typedef struct __CFError* CFErrorRef;
// Core Foundation, "CFStringRef"
typedef const struct __CFString* CFStringRef;
// Core Foundation, "CFDictionaryRef"
typedef const struct __CFDictionary* CFDictionaryRef;

// Core Foundation, "kCFAllocatorDefault"
CF_EXPORT const CFAllocatorRef kCFAllocatorDefault SINCE(10.0);
// Core Foundation, "CFRelease"
CF_EXPORT void CFRelease(CFTypeRef object) SINCE(10.0);
// Core Foundation, "CFGetTypeID"
CF_EXPORT CFTypeID CFGetTypeID(CFTypeRef object) SINCE(10.0);
// Core Foundation, "CFDictionaryGetValue"
CF_EXPORT const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key) SINCE(10.0);
