#include "checks/HostErrors.h"

namespace headless {

void HostErrors::Add(const std::string& line)
{
    ++mCount;
    if (mLines.size() >= kKept) return;
    mLines.push_back(line);
    if (mSink) mSink(line);
}

}  // namespace headless
