#pragma once

#include "Image.h"
#include "Memory.h"

namespace macho {

// Lets exceptions pass through the image's code. macOS describes its frames in the section
// __unwind_info ("compact unwinding"); the unwinder of this machine reads DWARF.

// Returns the frames of __unwind_info as the bytes of a section .eh_frame, whose addresses are
// those in `memory`; empty if the image has no such section. Reads the personality functions, so
// the binds must be done. Throws LoadError on a form of a frame that is unknown, __eh_frame's own
// included.
std::vector<uint8_t> MakeFrames(const Image& image, const Memory& memory);

// Registers the bytes with the unwinder, for the life of the process. They must stay in place.
void RegisterFrames(const std::vector<uint8_t>& frames);

}  // namespace macho
