#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Image.h"

namespace macho {

// The ordinal of a bind that any library may satisfy.
constexpr int kWeakLookup = -3;

// A pointer that dyld sets to the address of a symbol.
struct Bind {
    uint64_t address;  // of the pointer, from the start of the image
    int64_t addend;
    int library;         // 1 is the first of Image::libraries; or kWeakLookup
    std::string symbol;  // as in the file, with a leading _
    bool isOptional;     // the pointer is null if there is no such symbol
};

// Returns the addresses of the pointers that the image's own start must be added to. Throws
// LoadError on an opcode that is unknown or that leaves its segment.
std::vector<uint64_t> ReadRebases(const Image& image);

// Returns all binds: those at load, the weak ones, and those that dyld could delay. Throws as
// ReadRebases.
std::vector<Bind> ReadBinds(const Image& image);

}  // namespace macho
