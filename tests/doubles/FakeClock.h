#pragma once

#include <ctime>

// Replaces time() in a program that links this: it returns what the test has set, in seconds, and
// never advances by itself. Starts at 1,000,000.
namespace FakeClock {

void Set(std::time_t seconds);
void Advance(std::time_t seconds);

}  // namespace FakeClock
