#include "AllocationCounter.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <thread>

#include "UnfailingAllocations.h"

namespace {

std::atomic<std::size_t> gAllocations{0};
std::atomic<std::size_t> gFrees{0};
std::atomic<std::size_t> gUntilFailure{0};  // 0: none is to fail
std::atomic<bool> gHasFailed{false};
std::atomic<bool> gIsYielding{false};

bool IsToFail() noexcept
{
    if (gUntilFailure == 0 || UnfailingAllocations::Exist() || --gUntilFailure != 0) return false;
    gHasFailed = true;
    return true;
}

void* Allocate(std::size_t size, std::size_t alignment) noexcept
{
    ++gAllocations;
    if (IsToFail()) return nullptr;
    if (gIsYielding) std::this_thread::yield();
    if (alignment <= alignof(std::max_align_t)) return std::malloc(size == 0 ? 1 : size);
    return std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
}

void* AllocateOrThrow(std::size_t size, std::size_t alignment)
{
    void* const block = Allocate(size, alignment);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

void Free(void* block) noexcept
{
    ++gFrees;
    std::free(block);
}

}  // namespace

std::size_t AllocationCounter::Allocations() { return gAllocations; }
std::size_t AllocationCounter::Frees() { return gFrees; }

void AllocationCounter::FailNth(std::size_t nth)
{
    gHasFailed = false;
    gUntilFailure = nth;
}

bool AllocationCounter::HasFailed() { return gHasFailed; }
void AllocationCounter::YieldAtEach() { gIsYielding = true; }

// The standard library's forms that are not defined here call one of these.
void* operator new(std::size_t size) { return AllocateOrThrow(size, 1); }
void* operator new[](std::size_t size) { return AllocateOrThrow(size, 1); }
void* operator new(std::size_t size, std::align_val_t alignment)
{
    return AllocateOrThrow(size, std::size_t(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment)
{
    return AllocateOrThrow(size, std::size_t(alignment));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size, 1); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size, 1); }

void operator delete(void* block) noexcept { Free(block); }
void operator delete[](void* block) noexcept { Free(block); }
void operator delete(void* block, std::size_t) noexcept { Free(block); }
void operator delete[](void* block, std::size_t) noexcept { Free(block); }
void operator delete(void* block, std::align_val_t) noexcept { Free(block); }
void operator delete[](void* block, std::align_val_t) noexcept { Free(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept { Free(block); }
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept { Free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { Free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { Free(block); }
