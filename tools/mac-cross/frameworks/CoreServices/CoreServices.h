#pragma once

#include <CoreFoundation/CoreFoundation.h>

// Core Services, "UTCDateTime": 64 bits of seconds since 1904, 16 of them the fraction
#pragma pack(push, 2)
struct UTCDateTime {
    UInt16 highSeconds;
    UInt32 lowSeconds;
    UInt16 fraction;
};
#pragma pack(pop)
typedef struct UTCDateTime UTCDateTime;

// Core Services, "noErr"
enum { noErr = 0 };

// Core Services, "UCConvertCFAbsoluteTimeToUTCDateTime"
CF_EXPORT OSStatus UCConvertCFAbsoluteTimeToUTCDateTime(CFAbsoluteTime time, UTCDateTime* result)
    SINCE(10.2);
