#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Reads the x86_64 slice of a Mach-O file. Numbers have the names of Apple's <mach-o/loader.h>.
namespace macho {

// The types of sections that the loader needs: the low byte of a section's flags.
enum SectionType : uint32_t {
    kModInitFuncPointers = 0x09,
    kThreadLocalRegular = 0x11,
    kThreadLocalZeroFill = 0x12,
    kThreadLocalVariables = 0x13,
    kThreadLocalInitFunctionPointers = 0x15,
    kInitFuncOffsets = 0x16,
};

// Addresses are relative to the start of the image.
struct Segment {
    std::string name;
    uint64_t address;
    uint64_t size;
    uint64_t fileOffset;  // in Image::bytes
    uint64_t fileSize;    // the rest of `size` is zero
    int protection;       // of mmap
};

struct Section {
    std::string name;
    uint64_t address;
    uint64_t size;
    uint32_t type;
};

// A part of Image::bytes.
struct Range {
    uint32_t offset = 0;
    uint32_t size = 0;
};

struct Image {
    std::string path;
    std::vector<uint8_t> bytes;  // the slice
    std::vector<Segment> segments;
    std::vector<Section> sections;
    std::vector<std::string> libraries;  // install names; a bind's ordinal 1 is the first one
    Range rebases, binds, weakBinds, lazyBinds, exports;

    // Returns null if there is none.
    const Section* Find(const std::string& sectionName) const;

    // The bytes of memory from the start of the image to the end of its last segment.
    uint64_t GetSize() const;
};

// Reads a file: one for x86_64 alone, or one for several architectures.
//
// Throws LoadError if it cannot be read, has no slice for x86_64, is not a bundle or a library, or
// has a load command that is unknown or reaches beyond the end of the file.
Image ReadImage(const std::string& path);

// Returns the address of an exported symbol. Throws LoadError if the image doesn't export it.
uint64_t FindExport(const Image& image, const std::string& symbol);

}  // namespace macho
