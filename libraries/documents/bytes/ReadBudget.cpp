#include "documents/bytes/ReadBudget.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <mutex>
#include <new>
#include <string>

namespace documents {

namespace {

using Clock = std::chrono::steady_clock;

thread_local ReadBudget* sCurrent = nullptr;

// Cap (about a year) that can't overflow when added to now().
constexpr double kLongestSeconds = 4e7;

std::mutex sHandlerMutex;
size_t sBudgets = 0;  // of all threads
std::new_handler sFormerHandler = nullptr;

void HandleNoMemory()
{
    ReadBudget::NoteNoMemory();
    throw std::bad_alloc();
}

// The handler goes with the last budget: this code may be in a library that is unloaded.
void InstallHandler()
{
    const std::lock_guard<std::mutex> lock(sHandlerMutex);
    if (sBudgets++ == 0) sFormerHandler = std::set_new_handler(HandleNoMemory);
}

void RemoveHandler()
{
    const std::lock_guard<std::mutex> lock(sHandlerMutex);
    if (--sBudgets == 0) (void)std::set_new_handler(sFormerHandler);
}

}  // namespace

ReadBudget::ReadBudget(size_t bytes, double seconds)
    : mLeft(bytes),
      mLimit(bytes),
      mSeconds(seconds),
      mEnd(Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(
                              std::clamp(seconds, 0.0, kLongestSeconds))))
{
    sCurrent = this;
    InstallHandler();
}

ReadBudget::~ReadBudget()
{
    RemoveHandler();
    sCurrent = nullptr;
}

void ReadBudget::Refuse(const std::string& error)
{
    if (sCurrent != nullptr) sCurrent->mRefusal = error;
    throw LimitExceeded(error);
}

void ReadBudget::NoteNoMemory()
{
    if (sCurrent != nullptr) sCurrent->mHasNoMemory = true;
}

void ReadBudget::Take(size_t bytes)
{
    ReadBudget* budget = sCurrent;
    if (budget == nullptr) return;
    if (bytes > budget->mLeft) budget->mExceeded = true;
    if (Clock::now() >= budget->mEnd) budget->mIsLate = true;
    budget->Check();
    budget->mLeft -= bytes;
}

size_t ReadBudget::GetLeft() { return sCurrent == nullptr ? SIZE_MAX : sCurrent->mLeft; }

void ReadBudget::Check() const
{
    if (mExceeded) {
        throw LimitExceeded("too large: inflates to more than " + std::to_string(mLimit >> 20) +
                            " MiB");
    }
    if (!mRefusal.empty()) throw LimitExceeded(mRefusal);
    if (mHasNoMemory) throw std::bad_alloc();
    if (!mIsLate) return;
    char text[64];
    (void)std::snprintf(text, sizeof text, "%g", mSeconds);  // a number always fits
    throw LimitExceeded("takes longer than " + std::string(text) + " s to read");
}

}  // namespace documents
