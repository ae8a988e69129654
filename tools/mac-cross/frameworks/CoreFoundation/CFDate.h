#pragma once

#include <CoreFoundation/CFBase.h>

// Core Foundation, "CFTimeInterval"
typedef double CFTimeInterval;
// Core Foundation, "CFAbsoluteTime"
typedef CFTimeInterval CFAbsoluteTime;
// Core Foundation, "CFDateRef"
typedef const struct __CFDate* CFDateRef;
// Core Foundation, "CFTimeZoneRef"
typedef const struct __CFTimeZone* CFTimeZoneRef;
// Core Foundation, "CFCalendarRef"
typedef struct __CFCalendar* CFCalendarRef;
// Core Foundation, "CFCalendarIdentifier"
typedef CFStringRef CFCalendarIdentifier;

// Core Foundation, "kCFAbsoluteTimeIntervalSince1970"
CF_EXPORT const CFTimeInterval kCFAbsoluteTimeIntervalSince1970 SINCE(10.0);
// Core Foundation, "kCFGregorianCalendar"
CF_EXPORT const CFCalendarIdentifier kCFGregorianCalendar SINCE(10.4);

// Core Foundation, "CFDateGetAbsoluteTime"
CF_EXPORT CFAbsoluteTime CFDateGetAbsoluteTime(CFDateRef date) SINCE(10.0);
// Core Foundation, "CFAbsoluteTimeGetCurrent"
CF_EXPORT CFAbsoluteTime CFAbsoluteTimeGetCurrent(void) SINCE(10.0);
// Core Foundation, "CFTimeZoneCreateWithName"
CF_EXPORT CFTimeZoneRef CFTimeZoneCreateWithName(CFAllocatorRef allocator, CFStringRef name,
                                                 Boolean tryAbbreviation) SINCE(10.0);
// Core Foundation, "CFCalendarCreateWithIdentifier"
CF_EXPORT CFCalendarRef CFCalendarCreateWithIdentifier(CFAllocatorRef allocator,
                                                       CFCalendarIdentifier identifier) SINCE(10.4);
// Core Foundation, "CFCalendarSetTimeZone"
CF_EXPORT void CFCalendarSetTimeZone(CFCalendarRef calendar, CFTimeZoneRef zone) SINCE(10.4);
// Core Foundation, "CFCalendarDecomposeAbsoluteTime"
CF_EXPORT Boolean CFCalendarDecomposeAbsoluteTime(CFCalendarRef calendar, CFAbsoluteTime time,
                                                  const char* components, ...) SINCE(10.4);
