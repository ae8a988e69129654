#pragma once

#include <string>
#include <vector>

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

// How often the plug-in called what can be made to fail, counted from the script's first line
// `count`, or from its start if there is none.
struct CallCounts {
    size_t suiteCalls = 0;
    size_t coreCalls = 0;
    size_t allocations = 0;
    size_t messages = 0;  // that the host sent, from the start to the end of the script
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
