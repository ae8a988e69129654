#pragma once

#include <cstddef>

// Zeroes the `size` bytes at `start`, which come from operator new. Cheap for a large block of
// which little was used: the system takes its pages away and gives zeroed ones for those used
// again.
void ClearMemory(char* start, size_t size) noexcept;
