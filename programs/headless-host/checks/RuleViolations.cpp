#include "checks/RuleViolations.h"

namespace headless {

void RuleViolations::Add(BrokenRule rule, const std::string& line)
{
    if (mAllowsBadHandles && rule >= kNullHandle && rule <= kWrongHandleType) return;
    ++mCount;
    if (mLines.size() >= kMostLines) return;
    mLines.push_back(line);
    mRules.push_back(rule);
    if (mSink) mSink(line);
}

}  // namespace headless
