#pragma once

#include <string>
#include <vector>

#include "validator/Case.h"

namespace headless {

// What the plug-in may do when a call of its fails, and why that is accepted. Where nothing fails,
// everything must be released.
struct KnownResidue {
    int rule;
    const char* call;  // that failed: the beginning of one of CaseOutcome::failedCalls; "" for any
    const char* text;  // that the finding's message contains
    const char* reason;
};

bool IsKnownResidue(const Finding& finding, const std::vector<std::string>& failedCalls);

}  // namespace headless
