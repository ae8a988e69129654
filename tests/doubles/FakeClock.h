#pragma once

#include <ctime>

// Stands in for the wall clock in whole seconds: in a program that links this, time() gives what
// the test has set and moves by itself never. It begins at 1,000,000.
namespace FakeClock {

void Set(std::time_t seconds);
void Advance(std::time_t seconds);

}  // namespace FakeClock
