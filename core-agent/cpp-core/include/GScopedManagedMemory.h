#pragma once

#include "GNoncopyable.h"

// Frees the platform's temporary objects at the end of a scope: an autorelease pool on macOS,
// nothing elsewhere.
//
// Put one around code that calls the platform, since the host's own pool may be drained much later.
// Objects on one thread must be nested like scopes. [any thread]
class GScopedManagedMemory : private GNoncopyable {
public:
    GScopedManagedMemory();
    ~GScopedManagedMemory();

private:
    void OSSetupManagedMemory();
    void OSTearDownManagedMemory();

    void* mOSManagedMemory;  // the pool; null where there is none
};
