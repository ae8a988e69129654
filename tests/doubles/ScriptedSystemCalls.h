#pragma once

#include <ctime>
#include <vector>

// Stands in for the system's clock and sleep: a program that links this, with the options of its
// library, sees them through the script. Nothing sleeps.
struct ScriptedSystemCalls {
    std::vector<unsigned int> sleeps;  // microseconds

    bool isClockSet = false;  // false: the real time
    bool isClockBroken = false;
    timespec now = {};

    static ScriptedSystemCalls& Current();
};
