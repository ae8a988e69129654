#pragma once

#include <algorithm>
#include <cstddef>

namespace documents {

// A length of text that a file gives, in characters: at least `least`, and so small that sums of
// lengths can't overflow.
inline size_t ToLength(long long number, long long least = 0)
{
    constexpr long long kMostCharacters = 1LL << 40;
    return static_cast<size_t>(std::clamp(number, least, kMostCharacters));
}

}  // namespace documents
