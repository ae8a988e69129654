#pragma once

#include <cstddef>

// Counts what the whole program allocates and frees with operator new and delete, in all their
// forms. A program that links this has them replaced.
namespace AllocationCounter {

std::size_t Allocations();
std::size_t Frees();

}  // namespace AllocationCounter
