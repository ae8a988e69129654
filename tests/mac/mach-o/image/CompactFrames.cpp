#include "CompactFrames.h"

#include <cstring>
#include <map>

#include "LoadError.h"

namespace macho {

namespace {

constexpr uint32_t kVersion = 1;
constexpr uint32_t kRegularPage = 2;
constexpr uint32_t kCompressedPage = 3;
constexpr uint32_t kPersonalityShift = 28;
constexpr uint32_t kPersonalityMask = 3;

// The section __unwind_info: numbers of 16 and 32 bits at offsets from its start.
class UnwindInfo {
public:
    explicit UnwindInfo(const Image& image, const Section& section)
        : mImage(image), mSize(section.size)
    {
        for (const Segment& segment : image.segments) {
            if (section.address < segment.address ||
                section.address + section.size > segment.address + segment.fileSize) {
                continue;
            }
            mStart = image.bytes.data() + segment.fileOffset + (section.address - segment.address);
        }
        if (mStart == nullptr) Refuse("is not in the file");
    }

    uint32_t U32(uint64_t offset) const { return Read<uint32_t>(offset); }
    uint16_t U16(uint64_t offset) const { return Read<uint16_t>(offset); }
    [[noreturn]] void Refuse(const std::string& reason) const
    {
        throw LoadError(mImage.path + ": section __unwind_info " + reason);
    }

private:
    template <class Number>
    Number Read(uint64_t offset) const
    {
        if (offset + sizeof(Number) > mSize) Refuse("is cut off");
        Number value;
        std::memcpy(&value, mStart + offset, sizeof value);
        return value;
    }

    const Image& mImage;
    uint64_t mSize;
    const uint8_t* mStart = nullptr;
};

// Adds the functions of one page. The end of each is the start of the next one and set later.
void AddPage(const UnwindInfo& info, uint64_t page, uint64_t base,
             std::vector<CompactFrame>& frames)
{
    const uint32_t kind = info.U32(page);
    const uint64_t entries = page + info.U16(page + 4);
    const uint32_t count = info.U16(page + 6);
    if (kind == kRegularPage) {
        for (uint32_t index = 0; index < count; ++index) {
            const uint64_t entry = entries + uint64_t{index} * 8;
            frames.push_back({info.U32(entry), 0, info.U32(entry + 4), 0, 0});
        }
        return;
    }
    if (kind != kCompressedPage) info.Refuse("has a page of kind " + std::to_string(kind));
    const uint64_t ownEncodings = page + info.U16(page + 8);
    const uint64_t commonEncodings = info.U32(4);
    const uint32_t commonCount = info.U32(8);
    for (uint32_t index = 0; index < count; ++index) {
        const uint32_t entry = info.U32(entries + uint64_t{index} * 4);
        const uint32_t number = entry >> 24;
        const uint32_t encoding = number < commonCount
                                      ? info.U32(commonEncodings + uint64_t{number} * 4)
                                      : info.U32(ownEncodings + uint64_t{number - commonCount} * 4);
        frames.push_back({base + (entry & 0xffffff), 0, encoding, 0, 0});
    }
}

}  // namespace

std::vector<CompactFrame> ReadCompactFrames(const Image& image)
{
    std::vector<CompactFrame> all;
    const Section* const section = image.Find("__unwind_info");
    if (section == nullptr) return all;
    const UnwindInfo info(image, *section);
    if (info.U32(0) != kVersion) info.Refuse("has version " + std::to_string(info.U32(0)));
    const uint64_t personalities = info.U32(12);
    const uint64_t pages = info.U32(20);
    const uint32_t pageCount = info.U32(24);
    if (pageCount == 0) return all;

    std::map<uint64_t, uint64_t> tables;  // by function
    for (uint32_t index = 0; index + 1 < pageCount; ++index) {
        const uint64_t row = pages + uint64_t{index} * 12;
        if (info.U32(row + 4) != 0) AddPage(info, info.U32(row + 4), info.U32(row), all);
        for (uint64_t at = info.U32(row + 8); at < info.U32(row + 20); at += 8) {
            tables[info.U32(at)] = info.U32(at + 4);
        }
    }
    // The last row has only the end of the code.
    const uint64_t end = info.U32(pages + uint64_t{pageCount - 1} * 12);
    std::vector<CompactFrame> frames;
    for (size_t index = 0; index < all.size(); ++index) {
        CompactFrame frame = all[index];
        frame.end = index + 1 < all.size() ? all[index + 1].start : end;
        const uint32_t number = frame.encoding >> kPersonalityShift & kPersonalityMask;
        if (number != 0) frame.personalitySlot = info.U32(personalities + (number - 1) * 4);
        if (const auto found = tables.find(frame.start); found != tables.end()) {
            frame.lsda = found->second;
        }
        if (frame.encoding != 0) frames.push_back(frame);
    }
    return frames;
}

}  // namespace macho
