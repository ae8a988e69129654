#include "ByteReader.h"

#include "LoadError.h"

namespace macho {

ByteReader::ByteReader(const Image& image, Range range, const char* name)
    : mImage(image), mName(name), mStart(nullptr), mAt(nullptr), mEnd(nullptr)
{
    if (uint64_t{range.offset} + range.size > image.bytes.size()) Fail();
    mStart = image.bytes.data() + range.offset;
    mAt = mStart;
    mEnd = mStart + range.size;
}

void ByteReader::Fail() const
{
    throw LoadError(mImage.path + ": the " + mName + " reach beyond their end");
}

uint8_t ByteReader::Byte()
{
    if (IsAtEnd()) Fail();
    return *mAt++;
}

uint64_t ByteReader::Unsigned()
{
    uint64_t value = 0;
    for (unsigned shift = 0;; shift += 7) {
        const uint8_t byte = Byte();
        if (shift < 64) value |= uint64_t{byte & 0x7fU} << shift;
        if ((byte & 0x80) == 0) return value;
    }
}

int64_t ByteReader::Signed()
{
    uint64_t value = 0;
    for (unsigned shift = 0;;) {
        const uint8_t byte = Byte();
        if (shift < 64) value |= uint64_t{byte & 0x7fU} << shift;
        shift += 7;
        if ((byte & 0x80) != 0) continue;
        if ((byte & 0x40) != 0 && shift < 64) value |= ~uint64_t{0} << shift;
        return static_cast<int64_t>(value);
    }
}

std::string ByteReader::String()
{
    std::string text;
    for (uint8_t byte = Byte(); byte != 0; byte = Byte()) text += static_cast<char>(byte);
    return text;
}

void ByteReader::MoveTo(uint64_t offset)
{
    if (offset >= static_cast<uint64_t>(mEnd - mStart)) Fail();
    mAt = mStart + offset;
}

}  // namespace macho
