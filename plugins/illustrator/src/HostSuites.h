#pragma once

#include "HostInterface.h"

// Acquires and releases the host's suites. Main thread.

// Acquires one suite into the pointer at `slot`. Throws the host's code as an int.
void AcquireSuite(char const* name, int version, void* slot);

// Releases the suite in the pointer at `slot` and sets the pointer to null. Does nothing if it is
// null already. Never throws.
void ReleaseSuite(char const* name, int version, void* slot);

// Acquires every suite of the table `imports` into its global. Stops at the first failure and
// returns the host's code; suites acquired before it remain acquired. Once a call has succeeded,
// later calls do nothing and return 0.
AIErr AcquireSuites(SPBasicSuite* basic);

// Releases every suite of the table if sAcquireCount is 1, then decrements sAcquireCount. Stops at
// the first failure and returns the host's code; the count is then unchanged.
AIErr ReleaseSuites();

// How many calls of AcquireSuites are not matched by a ReleaseSuites.
extern uint32_t sAcquireCount;
