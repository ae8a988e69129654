#include "SPAlloc.h"

#include "AIError.h"
#include "SuiteGlobals.h"

namespace ai {

void* SPAlloc::AllocateBlock(size_t size)
{
    void* block = nullptr;
    if (sSPBlocks == nullptr ||
        sSPBlocks->AllocateBlock(size, "ai::SPAlloc::AllocateBlock", &block) != kHostSuccess) {
        throw Error(kHostOutOfMemory);
    }
    return block;
}

void SPAlloc::DeleteBlock(void* block)
{
    if (block != nullptr && sSPBlocks != nullptr) (void)sSPBlocks->FreeBlock(block);
}

}  // namespace ai
