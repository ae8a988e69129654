#pragma once

#include <ctime>

class GUtils {
public:
    // The absolute time, of the system's clock, that lies so far ahead.
    static void FutureMillisecondsToAbsTime(unsigned int milliseconds, timespec& result);
};
