#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "checks/RuleViolations.h"
#include "checks/SuiteRow.h"

namespace headless {

// Counts how often the plug-in has acquired and released each suite. Main thread.
class SuiteLedger {
public:
    // `violations` must outlive the ledger.
    explicit SuiteLedger(RuleViolations& violations) : mViolations(violations) {}

    void Acquire(const SuiteRow& row);

    // Returns false, and records a violation, if the plug-in holds no reference.
    bool Release(const SuiteRow& row);

    bool IsHeld(const SuiteRow& row) const;

    // From now on acquired references need not be released. For a plug-in that doesn't run, because
    // it refused to start or has been shut down: it acquires its suites with every message that
    // still arrives and never releases them.
    //
    // alsoBefore   whether the same applies to the references that it holds already
    void AllowUnreleased(bool alsoBefore);

    // What the plug-in holds need not be released any more; later references must be again.
    void ForgetLeaks();

    // One line for each suite with references that should have been released by now, in the order
    // of the suite table.
    std::vector<std::string> ListLeaks() const;

private:
    struct Count {
        int references = 0;
        int unreleasedAllowed = 0;
    };

    RuleViolations& mViolations;
    std::unordered_map<const SuiteRow*, Count> mCounts;
    bool mAllowsUnreleased = false;
};

// "AI Font Suite" version 1006, with the quotation marks.
std::string DescribeSuite(const SuiteRow& row);

}  // namespace headless
