#pragma once

#include <CoreFoundation/CoreFoundation.h>

#pragma pack(push, 2)
// A time since 1904, with a fraction in 65,536ths of a second.
struct UTCDateTime {
    UInt16 highSeconds;
    UInt32 lowSeconds;
    UInt16 fraction;
};
#pragma pack(pop)

constexpr OSStatus noErr = 0;

CF_EXPORT OSStatus UCConvertCFAbsoluteTimeToUTCDateTime(CFAbsoluteTime time, UTCDateTime* result);
