#pragma once

#include <cstddef>
#include <vector>

namespace headless {

// Addresses for handles and blocks that the host gives to the plug-in. No address is used twice
// while the process lives, so that an expired handle is never mistaken for a new one. Not
// thread-safe.
class GuardedHandles {
public:
    GuardedHandles() = default;

    // Releases all addresses.
    ~GuardedHandles();
    GuardedHandles(const GuardedHandles&) = delete;
    GuardedHandles& operator=(const GuardedHandles&) = delete;

    // An unmapped address for use as a handle: a plug-in that dereferences it crashes at once.
    // Handles are numbered from 0 in the order of these calls. Throws std::bad_alloc.
    void* NewHandle();

    // Sets `number` to the number of the handle with this address. Returns false if there is none.
    bool FindHandle(const void* address, size_t& number) const;

    // The handle of a number below the count of those handed out.
    void* GetHandle(size_t number) const;

    // A zeroed, writable block that begins on a page of its own. Throws std::bad_alloc.
    //
    // size   in bytes; may be 0
    void* NewBlock(size_t size);

    // Unmaps a block but keeps its addresses reserved: a plug-in that still uses it crashes at
    // once.
    //
    // size   as given to NewBlock
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
