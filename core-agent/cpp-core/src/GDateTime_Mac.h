#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include "GDateTime.h"

// Returns the date and time in the time zone, truncated to milliseconds.
//
// timeZone    not owned; null is a failure
// cfAbsTime   seconds since 1 January 2001 UTC; exactly 0 is a failure
// A failure is written to the log and the result is empty. [any thread]
GDateTime ConvertToTimeZone(CFTimeZoneRef timeZone, double cfAbsTime);
