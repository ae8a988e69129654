#pragma once

#include <ctime>

// Time arithmetic for the lock classes. Stateless. [any thread]
class GUtils {
public:
    // Sets `result` to now plus `milliseconds`, as an absolute time of the system's clock
    // (CLOCK_REALTIME), the form that pthread_cond_timedwait takes. Doesn't fail.
    static void FutureMillisecondsToAbsTime(unsigned int milliseconds, timespec& result);
};
