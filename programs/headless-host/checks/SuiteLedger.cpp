#include "checks/SuiteLedger.h"

namespace headless {

std::string DescribeSuite(const SuiteRow& row)
{
    return std::string("\"") + row.name + "\" version " + std::to_string(row.version);
}

void SuiteLedger::Acquire(const SuiteRow& row)
{
    Count& count = At(row);
    ++count.references;
    if (mLetStay) ++count.mayStay;
}

bool SuiteLedger::Release(const SuiteRow& row)
{
    Count& count = At(row);
    if (count.references == 0) {
        mErrors.Add("ReleaseSuite: " + DescribeSuite(row) +
                    " is released more often than acquired");
        return false;
    }
    --count.references;
    if (count.mayStay > 0) --count.mayStay;
    return true;
}

void SuiteLedger::LetStay(bool alsoBefore)
{
    mLetStay = true;
    if (!alsoBefore) return;
    for (Count& count : mRows) count.mayStay = count.references;
}

std::vector<std::string> SuiteLedger::ListLeaks() const
{
    std::vector<std::string> lines;
    for (const SuiteRow& row : kSuiteRows) {
        const Count& count = At(row);
        const int missing = count.references - count.mayStay;
        if (missing <= 0) continue;
        lines.push_back("suite " + DescribeSuite(row) +
                        " was not released, references left: " + std::to_string(missing));
    }
    return lines;
}

}  // namespace headless
