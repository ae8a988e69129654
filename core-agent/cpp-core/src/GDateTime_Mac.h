#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include "GDateTime.h"

// The fields of a time, in seconds since 1 January 2001 UTC, in the zone; the fraction is cut to
// milliseconds. Each failure is reported and leaves the value empty; a time of exactly 0 is one.
GDateTime ConvertToTimeZone(CFTimeZoneRef timeZone, double cfAbsTime);
