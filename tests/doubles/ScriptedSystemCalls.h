#pragma once

#include <ctime>
#include <vector>

// Replaces the system's clock and sleep functions in a program that links this with the link
// options of its library. Sleeping returns at once.
struct ScriptedSystemCalls {
    std::vector<unsigned int> sleeps;  // microseconds

    bool isClockSet = false;     // true: the time is `now`; false: the real time
    bool isClockBroken = false;  // true: clock_gettime fails
    timespec now = {};

    static ScriptedSystemCalls& Current();
};
