#include "GScopedManagedMemory.h"

// This platform has no autorelease pools.
void GScopedManagedMemory::OSSetupManagedMemory() { mOSManagedMemory = nullptr; }

void GScopedManagedMemory::OSTearDownManagedMemory() { mOSManagedMemory = nullptr; }
