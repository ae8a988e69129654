#pragma once

#include <cstddef>

// Counts the calls of operator new and delete in the whole program: all forms, all threads. Linking
// this replaces the operators. Thread-safe.
namespace AllocationCounter {

std::size_t Allocations();
std::size_t Frees();

// Makes the n-th allocation from now fail; 1 is the next one, 0 is none. Doesn't count allocations
// in the scope of an UnfailingAllocations.
void FailNth(std::size_t nth);

// Whether the allocation of the last FailNth has failed.
bool HasFailed();

// Makes each allocation from now on yield to other threads, so that constructions overlap.
void YieldAtEach();

}  // namespace AllocationCounter
