#pragma once

#include <cstddef>

// Counts what the whole program allocates and frees with operator new and delete, in all their
// forms, in any thread. A program that links this has them replaced.
namespace AllocationCounter {

std::size_t Allocations();
std::size_t Frees();

// The n-th allocation from now, 1 being the next, finds no memory.
void FailNth(std::size_t nth);

// From now on each allocation lets other threads run, so that threads overlap in what they build.
void YieldAtEach();

}  // namespace AllocationCounter
