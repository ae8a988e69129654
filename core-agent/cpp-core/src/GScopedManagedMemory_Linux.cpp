#include "GScopedManagedMemory.h"

// The platform makes no temporary objects.
void GScopedManagedMemory::OSSetupManagedMemory() { mOSManagedMemory = nullptr; }

void GScopedManagedMemory::OSTearDownManagedMemory() { mOSManagedMemory = nullptr; }
