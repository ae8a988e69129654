#include "Fixups.h"

#include <cstdio>

#include "ByteReader.h"
#include "LoadError.h"

namespace macho {

namespace {

constexpr uint8_t kOpcodeMask = 0xf0;
constexpr uint8_t kImmediateMask = 0x0f;
constexpr uint8_t kTypePointer = 1;
constexpr uint64_t kPointerSize = 8;

enum RebaseOpcode : uint8_t {
    kRebaseDone = 0x00,
    kRebaseSetType = 0x10,
    kRebaseSetSegment = 0x20,
    kRebaseAddAddress = 0x30,
    kRebaseAddAddressScaled = 0x40,
    kRebaseTimes = 0x50,
    kRebaseUlebTimes = 0x60,
    kRebaseAddAddressUleb = 0x70,
    kRebaseUlebTimesSkipping = 0x80,
};

enum BindOpcode : uint8_t {
    kBindDone = 0x00,
    kBindOrdinal = 0x10,
    kBindOrdinalUleb = 0x20,
    kBindSpecial = 0x30,
    kBindSymbol = 0x40,
    kBindType = 0x50,
    kBindAddend = 0x60,
    kBindSegment = 0x70,
    kBindAddAddress = 0x80,
    kBindOnce = 0x90,
    kBindAddAddressUleb = 0xa0,
    kBindAddAddressScaled = 0xb0,
    kBindUlebTimesSkipping = 0xc0,
};

[[noreturn]] void RefuseOpcode(const Image& image, const char* kind, uint8_t byte)
{
    char number[16];
    (void)std::snprintf(number, sizeof number, "0x%02x", byte);  // always fits
    throw LoadError(image.path + ": " + kind + " opcode " + number + " is unknown");
}

// A place in the image's memory that opcodes move.
class Place {
public:
    explicit Place(const Image& image) : mImage(image) {}

    void Set(uint8_t segment, uint64_t offset)
    {
        if (segment >= mImage.segments.size()) {
            throw LoadError(mImage.path + ": a fixup is in a segment that doesn't exist");
        }
        mSegment = &mImage.segments[segment];
        mOffset = offset;
    }
    void Skip(uint64_t size) { mOffset += size; }

    // Returns the address of the pointer here and moves behind it.
    uint64_t Take()
    {
        if (mSegment == nullptr || mOffset > mSegment->size ||
            mSegment->size - mOffset < kPointerSize) {
            throw LoadError(mImage.path + ": a fixup is beyond the end of its segment");
        }
        mOffset += kPointerSize;
        return mSegment->address + mOffset - kPointerSize;
    }

private:
    const Image& mImage;
    const Segment* mSegment = nullptr;
    uint64_t mOffset = 0;
};

// library   the ordinal of binds that name none
void AddBinds(const Image& image, Range range, const char* name, int library,
              std::vector<Bind>& binds)
{
    const bool isLazy = range.offset == image.lazyBinds.offset;
    ByteReader reader(image, range, name);
    Place place(image);
    Bind bind = {0, 0, library, "", false};
    const auto add = [&](uint64_t count, uint64_t skip) {
        for (; count != 0; --count) {
            bind.address = place.Take();
            binds.push_back(bind);
            place.Skip(skip);
        }
    };
    while (!reader.IsAtEnd()) {
        const uint8_t byte = reader.Byte();
        const uint8_t immediate = byte & kImmediateMask;
        switch (byte & kOpcodeMask) {
            case kBindDone:
                // Each lazy bind ends with one; dyld runs them one at a time.
                if (!isLazy) return;
                break;
            case kBindOrdinal:
                bind.library = immediate;
                break;
            case kBindOrdinalUleb:
                bind.library = static_cast<int>(reader.Unsigned());
                break;
            case kBindSpecial:
                bind.library = immediate == 0 ? 0 : immediate - 16;
                break;
            case kBindSymbol:
                bind.isOptional = (immediate & 1) != 0;
                bind.symbol = reader.String();
                break;
            case kBindType:
                if (immediate != kTypePointer) RefuseOpcode(image, "bind", byte);
                break;
            case kBindAddend:
                bind.addend = reader.Signed();
                break;
            case kBindSegment:
                place.Set(immediate, reader.Unsigned());
                break;
            case kBindAddAddress:
                place.Skip(reader.Unsigned());
                break;
            case kBindOnce:
                add(1, 0);
                break;
            case kBindAddAddressUleb:
                add(1, reader.Unsigned());
                break;
            case kBindAddAddressScaled:
                add(1, immediate * kPointerSize);
                break;
            case kBindUlebTimesSkipping: {
                const uint64_t count = reader.Unsigned();
                add(count, reader.Unsigned());
                break;
            }
            default:
                RefuseOpcode(image, "bind", byte);
        }
    }
}

}  // namespace

std::vector<uint64_t> ReadRebases(const Image& image)
{
    std::vector<uint64_t> addresses;
    ByteReader reader(image, image.rebases, "rebases");
    Place place(image);
    const auto add = [&](uint64_t count, uint64_t skip) {
        for (; count != 0; --count) {
            addresses.push_back(place.Take());
            place.Skip(skip);
        }
    };
    while (!reader.IsAtEnd()) {
        const uint8_t byte = reader.Byte();
        const uint8_t immediate = byte & kImmediateMask;
        switch (byte & kOpcodeMask) {
            case kRebaseDone:
                return addresses;
            case kRebaseSetType:
                if (immediate != kTypePointer) RefuseOpcode(image, "rebase", byte);
                break;
            case kRebaseSetSegment:
                place.Set(immediate, reader.Unsigned());
                break;
            case kRebaseAddAddress:
                place.Skip(reader.Unsigned());
                break;
            case kRebaseAddAddressScaled:
                place.Skip(immediate * kPointerSize);
                break;
            case kRebaseTimes:
                add(immediate, 0);
                break;
            case kRebaseUlebTimes:
                add(reader.Unsigned(), 0);
                break;
            case kRebaseAddAddressUleb:
                add(1, reader.Unsigned());
                break;
            case kRebaseUlebTimesSkipping: {
                const uint64_t count = reader.Unsigned();
                add(count, reader.Unsigned());
                break;
            }
            default:
                RefuseOpcode(image, "rebase", byte);
        }
    }
    return addresses;
}

std::vector<Bind> ReadBinds(const Image& image)
{
    std::vector<Bind> binds;
    AddBinds(image, image.binds, "binds", 0, binds);
    AddBinds(image, image.weakBinds, "weak binds", kWeakLookup, binds);
    AddBinds(image, image.lazyBinds, "lazy binds", 0, binds);
    return binds;
}

}  // namespace macho
