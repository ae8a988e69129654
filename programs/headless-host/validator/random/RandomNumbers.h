#pragma once

#include <cstdint>
#include <iterator>
#include <random>

namespace headless {

// Random numbers that are the same for a seed on every platform. The distributions of the C++
// library differ from platform to platform; its engines don't. The operands of an expression and
// the arguments of a call are evaluated in an order that compilers choose, so at most one of them
// may take a random number.
class RandomNumbers {
public:
    explicit RandomNumbers(uint64_t seed) : mEngine(seed) {}

    // 0 to limit - 1; limit is at least 1. Small numbers are more frequent by less than
    // limit / 2^64.
    uint64_t Below(uint64_t limit) { return mEngine() % limit; }

    // least to most
    uint64_t Between(uint64_t least, uint64_t most) { return least + Below(most - least + 1); }

    // True once in `count` times.
    bool Once(uint64_t count) { return Below(count) == 0; }

    // An element of an array, a vector or a string.
    template <class Container>
    const auto& Pick(const Container& from)
    {
        return from[Below(std::size(from))];
    }

private:
    std::mt19937_64 mEngine;
};

}  // namespace headless
