#include "SPAlloc.h"

#include "AIError.h"
#include "SuiteGlobals.h"

namespace ai {

void* SPAlloc::AllocateBlock(size_t size)
{
    void* block = nullptr;
    if (sSPBlocks == nullptr ||
        sSPBlocks->AllocateBlock(size, "ai::SPAlloc::AllocateBlock", &block) != kNoErr) {
        throw Error(kOutOfMemoryErr);
    }
    return block;
}

void SPAlloc::DeleteBlock(void* block)
{
    if (block != nullptr && sSPBlocks != nullptr) (void)sSPBlocks->FreeBlock(block);
}

}  // namespace ai
