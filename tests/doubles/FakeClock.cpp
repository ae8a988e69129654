#include "FakeClock.h"

namespace {

std::time_t gNow = 1000000;

}  // namespace

// Throws what the system's declaration says: glibc has noexcept, macOS doesn't.
extern "C" time_t time(time_t* out) noexcept(noexcept(::time(nullptr)))
{
    if (out != nullptr) *out = gNow;
    return gNow;
}

void FakeClock::Set(std::time_t seconds) { gNow = seconds; }

void FakeClock::Advance(std::time_t seconds) { gNow += seconds; }
