#pragma once

#include <cstddef>

namespace ai {

// Memory from the host's "SP Blocks Suite".
struct SPAlloc {
    // Throws ai::Error with kHostOutOfMemory on any failure of the host's call.
    static void* AllocateBlock(size_t size);

    // A null block is ignored. The host's result is dropped: nothing can be done about it.
    static void DeleteBlock(void* block);
};

}  // namespace ai
