#pragma once

#include <string>
#include <vector>

#include "simulation/CallCounts.h"

namespace headless {

// One script that the validator plays to a plug-in, in a process of its own.
struct ValidatorCase {
    int rule = 0;        // that it tests: a number of kRules
    std::string name;    // unique among the cases of its rule; for a sweep, the place of the fault
    std::string script;  // lines of `headless-host script`
    bool wantsJournal = false;  // which takes time: for a second run of a case that failed
    unsigned long seed = 0;     // that it was made from; 0 if it was written by hand
};

// What a plug-in did wrong in a case.
struct Finding {
    int rule = 0;         // that it broke, which need not be the one that the case tests
    std::string message;  // one line
};

enum class CaseResult { kPassed, kFailed, kSkipped };

struct CaseOutcome {
    CaseResult result = CaseResult::kPassed;
    std::vector<Finding> findings;     // at least one if the case failed
    std::string reason;                // why it was skipped
    std::vector<std::string> journal;  // the last lines; empty if the case passed
    CallCounts counts;
    std::vector<std::string> failedCalls;  // on purpose, as "GetMenus throw:int"
    bool hasInvalidLine = false;           // the script; one of the findings says which
};

}  // namespace headless
