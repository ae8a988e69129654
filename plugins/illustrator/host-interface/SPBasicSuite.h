#pragma once

#include "HostTypes.h"

// The one suite that comes with every message; all others are acquired through it.
struct SPBasicSuite {
    // Writes the suite's address to the pointer at `suite` and counts one reference to it.
    // `version` must match exactly. On an error the pointer is left as it was.
    AIErr (*AcquireSuite)(const char* name, int version, void* suite);

    // Gives one reference back. A suite without references may not be called any more.
    AIErr (*ReleaseSuite)(const char* name, int version);

    // Non-zero if both are the same text. Callers and selectors are compared only with this.
    int (*IsEqual)(const char* a, const char* b);
};
