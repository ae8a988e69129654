#pragma once

#include "HostInterface.h"

// Acquires one suite into the pointer at `slot`; throws the host's code as an int.
void AcquireSuite(char const* name, int version, void* slot);

// Gives the suite in the pointer at `slot` back and nulls the pointer. Nothing is done for a null
// suite. Never throws.
void ReleaseSuite(char const* name, int version, void* slot);

// Fills the suite globals, all of them or, at the host's first refusal, those before it, with the
// host's code as the result. Once it went well, the host isn't asked again.
AIErr AcquireSuites(SPBasicSuite* basic);

// Gives all suites of the table back if they were acquired exactly once; counts one pass down in
// any case but a failure, whose code is the result.
AIErr ReleaseSuites();

// How many passes over the table went well.
extern uint32_t sAcquireCount;
