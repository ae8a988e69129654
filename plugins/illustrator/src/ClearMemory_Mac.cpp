#include "ClearMemory.h"

#include <cstring>

void ClearMemory(char* start, size_t size) noexcept { std::memset(start, 0, size); }
