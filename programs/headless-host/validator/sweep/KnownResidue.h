#pragma once

#include "validator/Case.h"

namespace headless {

// What the plug-in may leave behind when a call of its fails, and why that is accepted. Only for
// sweeps and random messages: where nothing fails, everything must be released.
struct KnownResidue {
    int rule;
    const char* call;  // that failed: the beginning of CaseOutcome::failedCall
    const char* text;  // that the finding's message contains
    const char* reason;
};

bool IsKnownResidue(const Finding& finding, const std::string& failedCall);

}  // namespace headless
