#include "ClearMemory.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

void ClearMemory(char* start, size_t size) noexcept
{
    static const auto kPage = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    const auto address = reinterpret_cast<uintptr_t>(start);
    const size_t before = std::min(size, (kPage - address % kPage) % kPage);
    const size_t pages = (size - before) / kPage * kPage;
    // Private pages without a file, as those of operator new, are zero afterwards. The call fails
    // for some memory, such as locked pages, and leaves that as it is.
    if (pages == 0 || madvise(start + before, pages, MADV_DONTNEED) != 0) {
        std::memset(start, 0, size);
        return;
    }
    std::memset(start, 0, before);
    std::memset(start + before + pages, 0, size - before - pages);
}
