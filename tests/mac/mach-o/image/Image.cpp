#include "Image.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>

#include "ByteReader.h"
#include "LoadError.h"

namespace macho {

namespace {

constexpr uint32_t kFatMagic = 0xcafebabe;
constexpr uint32_t kMagic64 = 0xfeedfacf;
constexpr uint32_t kX86_64 = 0x01000007;
constexpr uint32_t kDylib = 6;
constexpr uint32_t kBundle = 8;
constexpr size_t kHeaderSize = 32;
constexpr size_t kSegmentSize = 72;  // without its sections
constexpr size_t kSectionSize = 80;

enum LoadCommand : uint32_t {
    kSymtab = 0x2,
    kDysymtab = 0xb,
    kLoadDylib = 0xc,
    kIdDylib = 0xd,
    kSegment64 = 0x19,
    kUuid = 0x1b,
    kCodeSignature = 0x1d,
    kVersionMinMacOS = 0x24,
    kFunctionStarts = 0x26,
    kDataInCode = 0x29,
    kSourceVersion = 0x2a,
    kBuildVersion = 0x32,
    kLoadWeakDylib = 0x80000018,
    kDyldInfoOnly = 0x80000022,
};

[[noreturn]] void Refuse(const Image& image, const std::string& reason)
{
    throw LoadError(image.path + ": " + reason);
}

// Fixed-size numbers at any place of the file.
class Fields {
public:
    explicit Fields(const Image& image) : mImage(image) {}

    uint32_t U32(uint64_t offset) const
    {
        uint32_t value = 0;
        Copy(offset, &value, sizeof value);
        return value;
    }
    uint64_t U64(uint64_t offset) const
    {
        uint64_t value = 0;
        Copy(offset, &value, sizeof value);
        return value;
    }
    uint32_t BigEndian32(uint64_t offset) const { return __builtin_bswap32(U32(offset)); }
    std::string Name(uint64_t offset) const
    {
        char name[17] = {};
        Copy(offset, name, 16);
        return name;
    }
    Range Part(uint64_t offset) const { return {U32(offset), U32(offset + 4)}; }

private:
    void Copy(uint64_t offset, void* value, size_t size) const
    {
        if (offset > mImage.bytes.size() || size > mImage.bytes.size() - offset) {
            Refuse(mImage, "ends inside of its headers");
        }
        std::memcpy(value, mImage.bytes.data() + offset, size);
    }

    const Image& mImage;
};

void KeepSlice(Image& image)
{
    const Fields fields(image);
    if (fields.BigEndian32(0) != kFatMagic) return;
    const uint32_t count = fields.BigEndian32(4);
    for (uint32_t index = 0; index < count; ++index) {
        const uint64_t row = 8 + uint64_t{index} * 20;
        if (fields.BigEndian32(row) != kX86_64) continue;
        const uint64_t offset = fields.BigEndian32(row + 8);
        const uint64_t size = fields.BigEndian32(row + 12);
        if (offset + size > image.bytes.size()) Refuse(image, "the slice for x86_64 is cut off");
        const auto start = image.bytes.begin() + static_cast<long>(offset);
        image.bytes = std::vector<uint8_t>(start, start + static_cast<long>(size));
        return;
    }
    Refuse(image, "has no slice for x86_64");
}

int GetProtection(uint32_t initial)
{
    return ((initial & 1) != 0 ? PROT_READ : 0) | ((initial & 2) != 0 ? PROT_WRITE : 0) |
           ((initial & 4) != 0 ? PROT_EXEC : 0);
}

void AddSegment(Image& image, uint64_t at)
{
    const Fields fields(image);
    Segment segment{fields.Name(at + 8), fields.U64(at + 24), fields.U64(at + 32),
                    fields.U64(at + 40), fields.U64(at + 48), GetProtection(fields.U32(at + 60))};
    if (segment.fileSize > segment.size || segment.fileOffset > image.bytes.size() ||
        segment.fileSize > image.bytes.size() - segment.fileOffset || segment.size > UINT32_MAX ||
        segment.address > UINT32_MAX) {
        Refuse(image, "segment " + segment.name + " is not inside of the file");
    }
    const uint32_t count = fields.U32(at + 64);
    for (uint32_t index = 0; index < count; ++index) {
        const uint64_t row = at + kSegmentSize + uint64_t{index} * kSectionSize;
        const Section section{fields.Name(row), fields.U64(row + 32), fields.U64(row + 40),
                              fields.U32(row + 64) & 0xff};
        if (section.address < segment.address ||
            section.address + section.size > segment.address + segment.size) {
            Refuse(image, "section " + section.name + " is not inside of its segment");
        }
        image.sections.push_back(section);
    }
    image.segments.push_back(segment);
}

void AddCommand(Image& image, uint64_t at)
{
    const Fields fields(image);
    const uint32_t command = fields.U32(at);
    switch (command) {
        case kSegment64:
            return AddSegment(image, at);
        case kLoadDylib:
        case kLoadWeakDylib: {
            const Range name = {static_cast<uint32_t>(at + fields.U32(at + 8)),
                                fields.U32(at + 4) - fields.U32(at + 8)};
            image.libraries.push_back(ByteReader(image, name, "library names").String());
            return;
        }
        case kDyldInfoOnly:
            image.rebases = fields.Part(at + 8);
            image.binds = fields.Part(at + 16);
            image.weakBinds = fields.Part(at + 24);
            image.lazyBinds = fields.Part(at + 32);
            image.exports = fields.Part(at + 40);
            return;
        case kSymtab:
        case kDysymtab:
        case kIdDylib:
        case kUuid:
        case kCodeSignature:
        case kVersionMinMacOS:
        case kFunctionStarts:
        case kDataInCode:
        case kSourceVersion:
        case kBuildVersion:
            return;  // not needed to run the code
    }
    char number[16];
    (void)std::snprintf(number, sizeof number, "0x%x", command);  // always fits
    Refuse(image, std::string("load command ") + number + " is unknown");
}

}  // namespace

const Section* Image::Find(const std::string& sectionName) const
{
    const auto found = std::find_if(sections.begin(), sections.end(),
                                    [&](const Section& s) { return s.name == sectionName; });
    return found == sections.end() ? nullptr : &*found;
}

uint64_t Image::GetSize() const
{
    uint64_t end = 0;
    for (const Segment& segment : segments) end = std::max(end, segment.address + segment.size);
    return end;
}

Image ReadImage(const std::string& path)
{
    Image image;
    image.path = path;
    std::ifstream file(path, std::ios::binary);
    image.bytes.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    if (!file.is_open() || file.bad()) Refuse(image, "cannot be read");
    KeepSlice(image);

    const Fields fields(image);
    if (fields.U32(0) != kMagic64) Refuse(image, "is not a Mach-O file of 64 bits");
    if (fields.U32(4) != kX86_64) Refuse(image, "has no slice for x86_64");
    const uint32_t type = fields.U32(12);
    if (type != kBundle && type != kDylib) Refuse(image, "is not a bundle");
    const uint32_t count = fields.U32(16);
    uint64_t at = kHeaderSize;
    for (uint32_t index = 0; index < count; ++index) {
        const uint32_t size = fields.U32(at + 4);
        if (size < 8) Refuse(image, "a load command has no size");
        AddCommand(image, at);
        at += size;
    }
    return image;
}

uint64_t FindExport(const Image& image, const std::string& symbol)
{
    // A tree of prefixes: each node has its own address, if any, and its children by text.
    ByteReader reader(image, image.exports, "exports");
    std::string rest = symbol;
    while (image.exports.size != 0) {
        const uint64_t infoSize = reader.Unsigned();
        if (rest.empty()) {
            if (infoSize == 0) break;
            (void)reader.Unsigned();  // the kind: code, or data
            return reader.Unsigned();
        }
        for (uint64_t skipped = 0; skipped < infoSize; ++skipped) (void)reader.Byte();
        uint64_t next = 0;
        for (uint8_t children = reader.Byte(); children != 0; --children) {
            const std::string text = reader.String();
            const uint64_t offset = reader.Unsigned();
            if (text.empty() || rest.compare(0, text.size(), text) != 0) continue;
            rest.erase(0, text.size());
            next = offset;
            break;
        }
        if (next == 0) break;
        reader.MoveTo(next);
    }
    Refuse(image, "does not export " + symbol);
}

}  // namespace macho
