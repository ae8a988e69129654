#include "validator/random/ShrinkScript.h"

#include <algorithm>

namespace headless {

namespace {

using Lines = std::vector<std::string>;

// Delta debugging: leaves out ever smaller parts of the script, down to single lines.
class Shrinker {
public:
    Shrinker(Lines lines, size_t mostRuns, const std::function<bool(const Lines&)>& fails)
        : mLines(std::move(lines)), mRunsLeft(mostRuns), mFails(fails)
    {
    }

    Lines Shrink()
    {
        size_t length = mLines.size();
        while (length > 0 && mRunsLeft > 0) {
            const bool isShorter = LeaveOutParts(length);
            // After the last line, an earlier one may have become superfluous.
            if (length == 1 && !isShorter) break;
            length = std::min((length + 1) / 2, mLines.size());
        }
        return std::move(mLines);
    }

private:
    // Leaves out each part of `length` lines without which the script still fails, from the end:
    // what comes after the failing line is superfluous. Returns whether there was one.
    bool LeaveOutParts(size_t length)
    {
        bool isShorter = false;
        for (size_t end = mLines.size(); end > 0 && mRunsLeft > 0;) {
            const size_t start = end - std::min(length, end);
            isShorter = LeaveOut(start, end) || isShorter;
            end = start;
        }
        return isShorter;
    }

    bool LeaveOut(size_t start, size_t end)
    {
        Lines shorter(mLines.begin(), mLines.begin() + static_cast<std::ptrdiff_t>(start));
        shorter.insert(shorter.end(), mLines.begin() + static_cast<std::ptrdiff_t>(end),
                       mLines.end());
        --mRunsLeft;
        if (!mFails(shorter)) return false;
        mLines = std::move(shorter);
        return true;
    }

    Lines mLines;
    size_t mRunsLeft;
    const std::function<bool(const Lines&)>& mFails;
};

}  // namespace

std::vector<std::string> ShrinkScript(
    std::vector<std::string> lines, size_t mostRuns,
    const std::function<bool(const std::vector<std::string>& lines)>& fails)
{
    return Shrinker(std::move(lines), mostRuns, fails).Shrink();
}

}  // namespace headless
