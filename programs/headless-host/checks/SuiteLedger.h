#pragma once

#include <string>
#include <vector>

#include "checks/RuleViolations.h"
#include "suites/SuiteTable.h"

namespace headless {

// How often the guest has acquired and released each suite.
class SuiteLedger {
public:
    explicit SuiteLedger(RuleViolations& violations)
        : mViolations(violations), mRows(kSuiteRowCount)
    {
    }

    void Acquire(const SuiteRow& row);

    // False, and an error, if the guest holds no reference.
    bool Release(const SuiteRow& row);

    bool IsHeld(const SuiteRow& row) const { return At(row).references > 0; }
    int GetReferences(const SuiteRow& row) const { return At(row).references; }

    // A guest that doesn't run, because it refused to start or has been shut down, acquires its
    // suites with every message that still comes and never releases them: what it acquires from
    // here on, and if `alsoBefore` what it holds already, may stay.
    void AllowUnreleased(bool alsoBefore);

    // What the guest should have released by now, a line each.
    std::vector<std::string> ListLeaks() const;

private:
    struct Count {
        int references = 0;
        int unreleasedAllowed = 0;
    };
    Count& At(const SuiteRow& row) { return mRows[static_cast<size_t>(&row - kSuiteRows)]; }
    const Count& At(const SuiteRow& row) const
    {
        return mRows[static_cast<size_t>(&row - kSuiteRows)];
    }

    RuleViolations& mViolations;
    std::vector<Count> mRows;
    bool mAllowsUnreleased = false;
};

// As in "AI Font Suite" 1006.
std::string DescribeSuite(const SuiteRow& row);

}  // namespace headless
