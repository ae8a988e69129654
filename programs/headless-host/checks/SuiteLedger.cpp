#include "checks/SuiteLedger.h"

namespace headless {

std::string DescribeSuite(const SuiteRow& row)
{
    return std::string("\"") + row.name + "\" version " + std::to_string(row.version);
}

void SuiteLedger::Acquire(const SuiteRow& row)
{
    Count& count = mCounts[&row];
    ++count.references;
    if (mAllowsUnreleased) ++count.unreleasedAllowed;
}

bool SuiteLedger::Release(const SuiteRow& row)
{
    Count& count = mCounts[&row];
    if (count.references == 0) {
        mViolations.Add(kSuiteNotHeld, "ReleaseSuite: " + DescribeSuite(row) +
                                           " is released more often than acquired");
        return false;
    }
    --count.references;
    if (count.unreleasedAllowed > 0) --count.unreleasedAllowed;
    return true;
}

void SuiteLedger::Inherit(const SuiteLedger& before)
{
    mCounts = before.mCounts;
    AllowUnreleased(true);
    mAllowsUnreleased = false;
}

bool SuiteLedger::IsHeld(const SuiteRow& row) const
{
    const auto found = mCounts.find(&row);
    return found != mCounts.end() && found->second.references > 0;
}

void SuiteLedger::AllowUnreleased(bool alsoBefore)
{
    mAllowsUnreleased = true;
    if (!alsoBefore) return;
    for (auto& [row, count] : mCounts) count.unreleasedAllowed = count.references;
}

std::vector<std::string> SuiteLedger::ListLeaks() const
{
    std::vector<std::string> lines;
    for (const auto& [row, count] : mCounts) {
        const int missing = count.references - count.unreleasedAllowed;
        if (missing <= 0) continue;
        lines.push_back("suite " + DescribeSuite(*row) +
                        " was not released, references left: " + std::to_string(missing));
    }
    return lines;
}

}  // namespace headless
