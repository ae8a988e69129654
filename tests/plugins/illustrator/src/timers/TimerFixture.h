#pragma once

#include <algorithm>

#include "MessageFixture.h"
#include "TimerHandler.h"

inline const char* const kAcquireTimers = "SPBasicSuite.AcquireSuite(\"AI Timer Suite\", 1005)";
inline const char* const kReleaseTimers = "SPBasicSuite.ReleaseSuite(\"AI Timer Suite\", 1005)";
inline const char* const kAddTimer = "AITimerSuite.AddTimer(\"Corvanta AIPlugin Timer\", 1)";

class TimerFixture : public MessageFixture {
protected:
    AIErr SendTick()
    {
        AITimerMessage message = host.TimerMessage();
        return host.Send(Main, "AI Timer", "AI Go", message);
    }
    // The host's calls whose name contains "Timer".
    std::vector<std::string> TimerCalls() const
    {
        std::vector<std::string> calls;
        for (const std::string& call : host.Calls()) {
            if (call.find("Timer") != std::string::npos && !IsComparison(call)) {
                calls.push_back(call);
            }
        }
        return calls;
    }
    // The host's calls without its string comparisons.
    std::vector<std::string> CallsBesidesComparisons() const
    {
        std::vector<std::string> calls;
        for (const std::string& call : host.Calls()) {
            if (!IsComparison(call)) calls.push_back(call);
        }
        return calls;
    }

private:
    static bool IsComparison(const std::string& call)
    {
        return call.compare(0, 20, "SPBasicSuite.IsEqual") == 0;
    }
};
