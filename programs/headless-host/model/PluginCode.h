#pragma once

#include <cstddef>

namespace headless {

// Whether the code of the plug-in or of the host runs, and what the plug-in meets on purpose: an
// allocation that fails, another time of day. Only the program headless-host replaces the functions
// of the system that ask this (PluginSystemCalls.cpp); elsewhere nothing of it has an effect. Main
// thread only, except CountAllocation.
namespace plugin_code {

// While the object lives, the plug-in's code runs, or the host's code that the plug-in has called.
class Scope {
public:
    explicit Scope(bool isPlugin);
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

private:
    const bool mBefore;
};

// The allocation `number` of the plug-in from now, counted from 1, fails.
void FailAllocation(size_t number);

// Counts an allocation. Returns true if it has to fail. Does nothing, with false, on other threads
// and while the host's code runs.
bool CountAllocation() noexcept;

size_t GetAllocationCount();

// Whether the allocation that had to fail has failed.
bool HasAllocationFailed();

// What the plug-in's clock is ahead of the system's, in seconds.
void SetClockOffset(long seconds);
long GetClockOffset() noexcept;

// Whether the plug-in sees the processes of this machine. In a simulation it doesn't: it would use
// the PluginCore of a font manager that runs.
void HideProcesses(bool isHidden);
bool AreProcessesHidden() noexcept;

}  // namespace plugin_code

}  // namespace headless
