#include "Memory.h"

#include <sys/mman.h>

#include <cerrno>
#include <cstring>

#include "LoadError.h"

namespace macho {

Memory::Memory(const Image& image) : mImage(image), mStart(nullptr)
{
    void* const start =
        mmap(nullptr, image.GetSize(), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (start == MAP_FAILED) {
        throw LoadError(image.path + ": cannot be mapped: " + std::strerror(errno));
    }
    mStart = static_cast<uint8_t*>(start);
    for (const Segment& segment : image.segments) {
        std::memcpy(At(segment.address), image.bytes.data() + segment.fileOffset, segment.fileSize);
    }
}

void Memory::Rebase(const std::vector<uint64_t>& addresses) const
{
    const auto start = reinterpret_cast<uint64_t>(mStart);
    for (const uint64_t address : addresses) PointerAt(address) += start;
}

void Memory::Protect() const
{
    for (const Segment& segment : mImage.segments) {
        const int protection = segment.name == "__DATA_CONST" ? PROT_READ : segment.protection;
        if (mprotect(At(segment.address), segment.size, protection) != 0) {
            throw LoadError(mImage.path + ": segment " + segment.name +
                            " cannot be protected: " + std::strerror(errno));
        }
    }
}

}  // namespace macho
