#pragma once

#include <cstdint>

#include "Image.h"

namespace macho {

// The image in memory, as the code finds it. It is never unmapped: dyld doesn't unload a bundle
// with Objective-C in it either. [main-thread]
class Memory {
public:
    // Reserves memory and copies the segments. All of it is writable until Protect. Throws
    // LoadError if there is no memory. The image must outlive this object.
    explicit Memory(const Image& image);

    // The address in memory of an address of the image.
    uint8_t* At(uint64_t address) const { return mStart + address; }

    // The pointer at an address of the image.
    uint64_t& PointerAt(uint64_t address) const
    {
        return *reinterpret_cast<uint64_t*>(At(address));
    }

    // Adds the start in memory to the pointers at these addresses.
    void Rebase(const std::vector<uint64_t>& addresses) const;

    // Gives each segment its own protection. What dyld binds once, __DATA_CONST, becomes read-only.
    void Protect() const;

private:
    const Image& mImage;
    uint8_t* mStart;
};

}  // namespace macho
