#include "checks/RuleViolations.h"

namespace headless {

void RuleViolations::Add(const std::string& line)
{
    ++mCount;
    if (mLines.size() >= kMostLines) return;
    mLines.push_back(line);
    if (mSink) mSink(line);
}

}  // namespace headless
