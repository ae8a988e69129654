#include "checks/GuardedHandles.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <new>

namespace headless {

namespace {

constexpr size_t kHandleStep = 16;
constexpr size_t kRegionSize = size_t{16} << 20;
constexpr size_t kHandlesPerRegion = kRegionSize / kHandleStep;

size_t RoundUpToPages(size_t size)
{
    static const auto page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    if (size > SIZE_MAX - page) throw std::bad_alloc();
    return std::max(page, (size + page - 1) / page * page);
}

}  // namespace

GuardedHandles::Region GuardedHandles::Reserve(size_t size)
{
    void* const start =
        mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (start == MAP_FAILED) throw std::bad_alloc();
    return {static_cast<char*>(start), size};
}

GuardedHandles::~GuardedHandles()
{
    // A failure only leaves addresses reserved.
    for (const Region& region : mHandleRegions) (void)munmap(region.start, region.size);
    for (const Region& region : mBlockRegions) (void)munmap(region.start, region.size);
}

void* GuardedHandles::NewHandle()
{
    if (mHandleCount == mHandleRegions.size() * kHandlesPerRegion) {
        mHandleRegions.push_back(Reserve(kRegionSize));
    }
    return GetHandle(mHandleCount++);
}

void* GuardedHandles::GetHandle(size_t number) const
{
    const Region& region = mHandleRegions[number / kHandlesPerRegion];
    return region.start + number % kHandlesPerRegion * kHandleStep;
}

bool GuardedHandles::FindHandle(const void* address, size_t& number) const
{
    const auto* const place = static_cast<const char*>(address);
    for (size_t i = 0; i < mHandleRegions.size(); ++i) {
        const Region& region = mHandleRegions[i];
        if (std::less<>()(place, region.start)) continue;
        if (!std::less<>()(place, region.start + region.size)) continue;
        const auto offset = static_cast<size_t>(place - region.start);
        number = i * kHandlesPerRegion + offset / kHandleStep;
        return offset % kHandleStep == 0 && number < mHandleCount;
    }
    return false;
}

void* GuardedHandles::NewBlock(size_t size)
{
    const size_t bytes = RoundUpToPages(size);
    if (mBlockRegions.empty() || mBlockRegions.back().size - mBlockBytesUsed < bytes) {
        mBlockRegions.push_back(Reserve(std::max(kRegionSize, bytes)));
        mBlockBytesUsed = 0;
    }
    char* const block = mBlockRegions.back().start + mBlockBytesUsed;
    if (mprotect(block, bytes, PROT_READ | PROT_WRITE) != 0) throw std::bad_alloc();
    mBlockBytesUsed += bytes;
    return block;
}

void GuardedHandles::RetireBlock(void* block, size_t size)
{
    const size_t bytes = RoundUpToPages(size);
    // A new mapping returns the pages to the system. If that fails, the block remains readable.
    (void)mmap(block, bytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE | MAP_FIXED, -1,
               0);
}

}  // namespace headless
