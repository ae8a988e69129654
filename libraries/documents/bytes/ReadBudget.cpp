#include "documents/bytes/ReadBudget.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace documents {

namespace {

using Clock = std::chrono::steady_clock;

thread_local ReadBudget* sCurrent = nullptr;

// Cap (about a year) that can't overflow when added to now().
constexpr double kLongestSeconds = 4e7;

}  // namespace

ReadBudget::ReadBudget(size_t bytes, double seconds)
    : mLeft(bytes),
      mLimit(bytes),
      mSeconds(seconds),
      mEnd(Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(
                              std::clamp(seconds, 0.0, kLongestSeconds))))
{
    sCurrent = this;
}

ReadBudget::~ReadBudget() { sCurrent = nullptr; }

void ReadBudget::Take(size_t bytes)
{
    ReadBudget* budget = sCurrent;
    if (budget == nullptr) return;
    if (bytes > budget->mLeft) budget->mExceeded = true;
    if (Clock::now() >= budget->mEnd) budget->mIsLate = true;
    budget->Check();
    budget->mLeft -= bytes;
}

void ReadBudget::Check() const
{
    if (mExceeded) {
        throw LimitExceeded("too large: inflates to more than " + std::to_string(mLimit >> 20) +
                            " MiB");
    }
    if (!mIsLate) return;
    char text[64];
    (void)std::snprintf(text, sizeof text, "%g", mSeconds);  // a number always fits
    throw LimitExceeded("takes longer than " + std::string(text) + " s to read");
}

}  // namespace documents
