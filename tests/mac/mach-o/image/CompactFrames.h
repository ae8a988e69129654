#pragma once

#include <cstdint>
#include <vector>

#include "Image.h"

namespace macho {

// The frame of a function, in the compact form.
struct CompactFrame {
    uint64_t start;            // of the function, in the image
    uint64_t end;              // behind it
    uint32_t encoding;         // of the frame
    uint64_t lsda;             // the table of handlers; 0 if there is none
    uint64_t personalitySlot;  // where the pointer to the personality function is; 0 for none
};

// Returns the functions of __unwind_info that have a frame, in ascending order. Throws LoadError if
// the section's version or the kind of one of its pages is unknown, or if it is cut off.
std::vector<CompactFrame> ReadCompactFrames(const Image& image);

}  // namespace macho
