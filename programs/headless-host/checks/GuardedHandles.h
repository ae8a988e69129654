#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace headless {

// Addresses for what the host hands out. None is used twice while the process lives, so that one
// which has expired can be told from a fresh one.
class GuardedHandles {
public:
    GuardedHandles() = default;
    ~GuardedHandles();
    GuardedHandles(const GuardedHandles&) = delete;
    GuardedHandles& operator=(const GuardedHandles&) = delete;

    // An address with nothing behind it: a guest that looks there stops at once. Tokens are
    // numbered from 0 in the order of this call. Throws std::bad_alloc.
    void* NewHandle();

    // The number of the token at this address, or false if it was never given out.
    bool FindHandle(const void* address, size_t& number) const;

    // A zeroed block in pages of its own. Throws std::bad_alloc.
    void* NewBlock(size_t size);

    // Takes the pages away: a guest that uses the block afterwards stops at once. The addresses
    // stay reserved until the GuardedHandles goes.
    void RetireBlock(void* block, size_t size);

private:
    struct Region {
        char* start;
        size_t size;
    };
    static Region Reserve(size_t size);

    std::vector<Region> mHandleRegions;
    size_t mHandleCount = 0;
    std::vector<Region> mBlockRegions;
    size_t mBlockBytesUsed = 0;  // of the last block region
};

}  // namespace headless
