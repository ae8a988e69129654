#pragma once

#include <CoreFoundation/CoreFoundation.h>

#pragma pack(push, 2)
// Seconds since 1904; `fraction` is in units of 1/65536 second.
struct UTCDateTime {
    UInt16 highSeconds;
    UInt32 lowSeconds;
    UInt16 fraction;
};
#pragma pack(pop)

constexpr OSStatus noErr = 0;

CF_EXPORT OSStatus UCConvertCFAbsoluteTimeToUTCDateTime(CFAbsoluteTime time, UTCDateTime* result);
