#pragma once

#include <cstddef>

namespace ai {

// Allocator for AutoBuffer over the host's "SP Blocks Suite". [main-thread]
struct SPAlloc {
    // Returns a block of `size` bytes, which the caller frees with DeleteBlock. Throws ai::Error
    // with kHostOutOfMemory if the host's call fails, for whatever reason, or the suite is missing.
    static void* AllocateBlock(size_t size);

    // Frees a block; ignores null. The host's code is ignored, and a block that outlives the
    // suite leaks. Throws only what the host's operation throws.
    static void DeleteBlock(void* block);
};

}  // namespace ai
