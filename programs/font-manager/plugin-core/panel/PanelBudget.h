#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace plugincore {

// The time that one tick of the host may take for the panel. The server looks at it between steps
// that each take some microseconds (PanelLimits bounds their bytes), and leaves the other steps to
// later ticks.
class PanelBudget {
public:
    // Returns microseconds of a clock that is never set back.
    using Clock = std::function<int64_t()>;

    // Begins now.
    explicit PanelBudget(int64_t microseconds, Clock clock = GetSteadyMicroseconds)
        : mClock(std::move(clock)), mEnd(mClock() + microseconds)
    {
    }

    bool IsSpent() const { return mClock() >= mEnd; }

private:
    static int64_t GetSteadyMicroseconds()
    {
        using std::chrono::microseconds;
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        return std::chrono::duration_cast<microseconds>(now).count();
    }

    Clock mClock;
    int64_t mEnd;
};

}  // namespace plugincore
