#include "checks/SuiteLedger.h"

#include <map>

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

void SuiteLedger::ForgetLeaks()
{
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
    std::map<const SuiteRow*, int> all;  // rows of one table: their addresses are in order
    for (const auto& [row, count] : mCounts) {
        all[row] = count.references - count.unreleasedAllowed;
    }
    std::vector<std::string> lines;
    for (const auto& [row, missing] : all) {
        if (missing <= 0) continue;
        lines.push_back("suite " + DescribeSuite(*row) +
                        " was not released, references left: " + std::to_string(missing));
    }
    return lines;
}

}  // namespace headless
