#pragma once

// Replaces CoreFoundation when the macOS files are compiled over GNUstep. Declares only what the
// plug-in uses. Every object is the corresponding Foundation object.

#include <stdint.h>

typedef unsigned char Boolean;
typedef uint8_t UInt8;
typedef uint16_t UInt16;
typedef uint32_t UInt32;
typedef int32_t OSStatus;
typedef long CFIndex;
typedef unsigned long CFTypeID;
typedef UInt32 CFStringEncoding;
typedef double CFTimeInterval;
typedef CFTimeInterval CFAbsoluteTime;
typedef CFIndex CFURLPathStyle;

typedef const void* CFTypeRef;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef const struct __CFString* CFStringRef;
typedef const struct __CFURL* CFURLRef;
typedef const struct __CFDate* CFDateRef;
typedef const struct __CFDictionary* CFDictionaryRef;
typedef const struct __CFTimeZone* CFTimeZoneRef;
typedef struct __CFCalendar* CFCalendarRef;
typedef struct __CFBundle* CFBundleRef;
typedef struct __CFError* CFErrorRef;
typedef CFStringRef CFCalendarIdentifier;

#ifdef __cplusplus
#define CF_EXPORT extern "C" __attribute__((visibility("default")))
#else
#define CF_EXPORT extern __attribute__((visibility("default")))
#endif

#define kCFStringEncodingUTF8 ((CFStringEncoding)0x08000100)
#define kCFURLPOSIXPathStyle ((CFURLPathStyle)0)
#define kCFAllocatorDefault ((CFAllocatorRef)0)
#define kCFAbsoluteTimeIntervalSince1970 978307200.0
CF_EXPORT const CFStringRef kCFURLContentModificationDateKey;
CF_EXPORT const CFCalendarIdentifier kCFGregorianCalendar;

CF_EXPORT void CFRelease(CFTypeRef object);
CF_EXPORT CFTypeID CFGetTypeID(CFTypeRef object);

CF_EXPORT const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key);

CF_EXPORT CFStringRef __CFStringMakeConstantString(const char* text);
#define CFSTR(text) __CFStringMakeConstantString("" text "")
CF_EXPORT CFTypeID CFStringGetTypeID(void);
CF_EXPORT CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char* text,
                                                CFStringEncoding encoding);
CF_EXPORT CFIndex CFStringGetLength(CFStringRef text);
CF_EXPORT CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding);
CF_EXPORT Boolean CFStringGetCString(CFStringRef text, char* buffer, CFIndex size,
                                     CFStringEncoding encoding);

CF_EXPORT CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef allocator, CFStringRef path,
                                                 CFURLPathStyle style, Boolean isDirectory);
CF_EXPORT CFURLRef CFURLCreateCopyAppendingPathComponent(CFAllocatorRef allocator, CFURLRef url,
                                                         CFStringRef component,
                                                         Boolean isDirectory);
CF_EXPORT CFURLRef CFURLCopyAbsoluteURL(CFURLRef url);
CF_EXPORT CFURLRef CFURLCreateFilePathURL(CFAllocatorRef allocator, CFURLRef url,
                                          CFErrorRef* error);
CF_EXPORT Boolean CFURLResourceIsReachable(CFURLRef url, CFErrorRef* error);
CF_EXPORT Boolean CFURLGetFileSystemRepresentation(CFURLRef url, Boolean resolve, UInt8* buffer,
                                                   CFIndex size);
CF_EXPORT Boolean CFURLCopyResourcePropertyForKey(CFURLRef url, CFStringRef key, void* value,
                                                  CFErrorRef* error);

CF_EXPORT CFBundleRef CFBundleCreate(CFAllocatorRef allocator, CFURLRef url);
CF_EXPORT CFBundleRef CFBundleGetMainBundle(void);
CF_EXPORT CFBundleRef CFBundleGetBundleWithIdentifier(CFStringRef identifier);
CF_EXPORT CFURLRef CFBundleCopyBundleURL(CFBundleRef bundle);
CF_EXPORT CFURLRef CFBundleCopyPrivateFrameworksURL(CFBundleRef bundle);
CF_EXPORT CFDictionaryRef CFBundleGetInfoDictionary(CFBundleRef bundle);
CF_EXPORT void* CFBundleGetFunctionPointerForName(CFBundleRef bundle, CFStringRef name);

CF_EXPORT CFAbsoluteTime CFDateGetAbsoluteTime(CFDateRef date);
CF_EXPORT CFAbsoluteTime CFAbsoluteTimeGetCurrent(void);
CF_EXPORT CFTimeZoneRef CFTimeZoneCreateWithName(CFAllocatorRef allocator, CFStringRef name,
                                                 Boolean tryAbbreviation);
CF_EXPORT CFCalendarRef CFCalendarCreateWithIdentifier(CFAllocatorRef allocator,
                                                       CFCalendarIdentifier identifier);
CF_EXPORT void CFCalendarSetTimeZone(CFCalendarRef calendar, CFTimeZoneRef zone);
CF_EXPORT Boolean CFCalendarDecomposeAbsoluteTime(CFCalendarRef calendar, CFAbsoluteTime time,
                                                  const char* components, ...);
