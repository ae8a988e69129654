#pragma once

#include <cstdint>
#include <string>

#include "Image.h"

namespace macho {

// Reads numbers and strings from a part of an image. Each function throws LoadError, with the name
// of the part, if it would read beyond the part's end.
class ByteReader {
public:
    // Throws LoadError if the part isn't inside of the image. The image must outlive the reader.
    ByteReader(const Image& image, Range range, const char* name);

    bool IsAtEnd() const { return mAt == mEnd; }
    uint8_t Byte();
    uint64_t Unsigned();  // ULEB128
    int64_t Signed();     // SLEB128
    std::string String();

    // Moves to `offset` from the start of the part.
    void MoveTo(uint64_t offset);

private:
    [[noreturn]] void Fail() const;

    const Image& mImage;
    const char* mName;
    const uint8_t* mStart;
    const uint8_t* mAt;
    const uint8_t* mEnd;
};

}  // namespace macho
