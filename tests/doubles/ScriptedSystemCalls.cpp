#include "ScriptedSystemCalls.h"

#include <sys/time.h>
#include <unistd.h>

extern "C" {
int __real_gettimeofday(timeval* now, void* zone);
int __real_clock_gettime(clockid_t clock, timespec* now);
int __wrap_usleep(useconds_t microseconds);
int __wrap_gettimeofday(timeval* now, void* zone);
int __wrap_clock_gettime(clockid_t clock, timespec* now);
}

ScriptedSystemCalls& ScriptedSystemCalls::Current()
{
    static ScriptedSystemCalls calls;
    return calls;
}

int __wrap_usleep(useconds_t microseconds)
{
    ScriptedSystemCalls::Current().sleeps.push_back(microseconds);
    return 0;
}

int __wrap_gettimeofday(timeval* now, void* zone)
{
    const ScriptedSystemCalls& script = ScriptedSystemCalls::Current();
    if (!script.isClockSet) return __real_gettimeofday(now, zone);
    now->tv_sec = script.now.tv_sec;
    now->tv_usec = script.now.tv_nsec / 1000;
    return 0;
}

int __wrap_clock_gettime(clockid_t clock, timespec* now)
{
    const ScriptedSystemCalls& script = ScriptedSystemCalls::Current();
    if (script.isClockBroken) return -1;
    if (!script.isClockSet) return __real_clock_gettime(clock, now);
    *now = script.now;
    return 0;
}
