#pragma once

#include "HostTypes.h"

// The suite that comes with every message. It gives access to all other suites. [main-thread]
struct SPBasicSuite {
    // Acquires a suite: adds a reference and stores the address of the suite's table.
    //
    // name     zero-terminated
    // version  must match exactly
    // suite    address of a pointer that receives the table. The table belongs to the host and is
    //          valid until the last reference is released.
    //
    // Returns 0, or an error code with the pointer unchanged.
    AIErr (*AcquireSuite)(const char* name, int version, void* suite);

    // Releases one reference. The plug-in must not call a suite to which it has no reference.
    AIErr (*ReleaseSuite)(const char* name, int version);

    // Returns non-zero if both strings are equal. The plug-in compares the caller and the selector
    // of a message with this operation only, so the host defines what is equal.
    int (*IsEqual)(const char* a, const char* b);
};
