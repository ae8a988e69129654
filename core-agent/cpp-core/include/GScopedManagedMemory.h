#pragma once

#include "GNoncopyable.h"

// A scope whose end frees the platform's temporary objects. Where the platform has none, it is
// empty.
class GScopedManagedMemory : private GNoncopyable {
public:
    GScopedManagedMemory();
    ~GScopedManagedMemory();

private:
    void OSSetupManagedMemory();
    void OSTearDownManagedMemory();

    void* mOSManagedMemory;
};
