#include "Unwinding.h"

#include <cstdio>
#include <cstring>
#include <map>

#include "CompactFrames.h"
#include "LoadError.h"

// Of libgcc: the unwinder of this machine.
extern "C" void __register_frame(const void* frames);

namespace macho {

namespace {

// The compact form of a frame on x86_64.
constexpr uint32_t kModeMask = 0x0f000000;
constexpr uint32_t kModeFramePointer = 0x01000000;
constexpr uint32_t kModeStack = 0x02000000;
constexpr int kMaximumRegisters = 6;
constexpr uint64_t kWord = 8;

// DWARF's numbers of the registers.
enum Register : uint8_t { kRbx = 3, kRbp = 6, kRsp = 7, kR12 = 12, kReturnAddress = 16 };

enum CallFrameInstruction : uint8_t { kDefineCfa = 0x0c, kOffset = 0x80 };

// DWARF's number for each number of the compact form. Both forms of a frame use the same list.
constexpr uint8_t kRegisters[] = {0, kRbx, kR12, kR12 + 1, kR12 + 2, kR12 + 3, kRbp};

class Writer {
public:
    void U8(uint8_t value) { mBytes.push_back(value); }
    void U32(uint32_t value) { Append(&value, sizeof value); }
    void U64(uint64_t value) { Append(&value, sizeof value); }
    void Text(const char* text) { Append(text, std::strlen(text) + 1); }
    void Uleb(uint64_t value)
    {
        for (; value >= 0x80; value >>= 7) U8(static_cast<uint8_t>(value | 0x80));
        U8(static_cast<uint8_t>(value));
    }
    // Begins an entry, whose length End writes. Returns its place.
    size_t Begin()
    {
        U32(0);
        return mBytes.size();
    }
    void End(size_t start)
    {
        while ((mBytes.size() - start) % kWord != 4) U8(0);  // DW_CFA_nop
        const auto length = static_cast<uint32_t>(mBytes.size() - start);
        std::memcpy(mBytes.data() + start - 4, &length, sizeof length);
    }
    size_t Size() const { return mBytes.size(); }
    std::vector<uint8_t> Take() { return std::move(mBytes); }

private:
    void Append(const void* value, size_t size)
    {
        const auto* const bytes = static_cast<const uint8_t*>(value);
        mBytes.insert(mBytes.end(), bytes, bytes + size);
    }

    std::vector<uint8_t> mBytes;
};

// What all functions with the same personality function share.
size_t WriteCommonEntry(Writer& writer, uint64_t personality)
{
    const size_t start = writer.Begin();
    writer.U32(0);  // the kind: common
    writer.U8(1);   // version
    writer.Text(personality != 0 ? "zPLR" : "zR");
    writer.Uleb(1);   // a unit of code
    writer.U8(0x78);  // a unit of data: -8
    writer.U8(kReturnAddress);
    writer.Uleb(personality != 0 ? 11 : 1);
    if (personality != 0) {
        writer.U8(0);  // an absolute address
        writer.U64(personality);
        writer.U8(0);  // tables have absolute addresses
    }
    writer.U8(0);  // functions have absolute addresses
    writer.End(start);
    return start - 4;
}

void WriteSaved(Writer& writer, uint8_t reg, uint64_t wordsBelowCfa)
{
    writer.U8(static_cast<uint8_t>(kOffset | reg));
    writer.Uleb(wordsBelowCfa);
}

void WriteCfa(Writer& writer, uint8_t reg, uint64_t offset)
{
    writer.U8(kDefineCfa);
    writer.Uleb(reg);
    writer.Uleb(offset);
    WriteSaved(writer, kReturnAddress, 1);
}

// The frame begins with the saved rbp; other registers are below, at an offset in words.
void WriteFramePointerFrame(Writer& writer, uint32_t encoding)
{
    WriteCfa(writer, kRbp, 2 * kWord);
    WriteSaved(writer, kRbp, 2);
    const uint64_t offset = encoding >> 16 & 0xff;
    for (uint64_t index = 0; index < 5; ++index) {
        const uint32_t number = encoding >> (3 * index) & 7;
        if (number != 0) WriteSaved(writer, kRegisters[number], 2 + offset - index);
    }
}

// Decodes which registers a frame without rbp has saved: a permutation as one number.
std::vector<uint8_t> DecodePermutation(uint32_t count, uint32_t number)
{
    std::vector<uint8_t> unused = {1, 2, 3, 4, 5, 6};
    std::vector<uint8_t> registers;
    for (uint32_t index = 0; index < count; ++index) {
        uint32_t factor = 1;
        for (uint32_t later = index + 1; later < count; ++later)
            factor *= kMaximumRegisters - later;
        const auto chosen = unused.begin() + number / factor;
        number %= factor;
        registers.push_back(kRegisters[*chosen]);
        unused.erase(chosen);
    }
    return registers;
}

void WriteStackFrame(Writer& writer, uint32_t encoding)
{
    const uint64_t size = (encoding >> 16 & 0xff) * kWord;
    const uint32_t count = encoding >> 10 & 7;
    WriteCfa(writer, kRsp, size);  // the size includes the return address
    const std::vector<uint8_t> saved = DecodePermutation(count, encoding & 0x3ff);
    // The last one is just below the return address.
    for (uint32_t index = 0; index < count; ++index) {
        WriteSaved(writer, saved[index], 1 + count - index);
    }
}

}  // namespace

std::vector<uint8_t> MakeFrames(const Image& image, const Memory& memory)
{
    Writer writer;
    std::map<uint64_t, size_t> commonEntries;  // by personality function
    for (const CompactFrame& frame : ReadCompactFrames(image)) {
        const uint64_t personality =
            frame.personalitySlot == 0 ? 0 : memory.PointerAt(frame.personalitySlot);
        auto common = commonEntries.find(personality);
        if (common == commonEntries.end()) {
            const size_t place = WriteCommonEntry(writer, personality);
            common = commonEntries.emplace(personality, place).first;
        }
        const size_t start = writer.Begin();
        writer.U32(static_cast<uint32_t>(start - common->second));
        writer.U64(reinterpret_cast<uint64_t>(memory.At(frame.start)));
        writer.U64(frame.end - frame.start);
        writer.Uleb(personality != 0 ? kWord : 0);
        if (personality != 0) {
            writer.U64(frame.lsda == 0 ? 0 : reinterpret_cast<uint64_t>(memory.At(frame.lsda)));
        }
        const uint32_t mode = frame.encoding & kModeMask;
        if (mode == kModeFramePointer) {
            WriteFramePointerFrame(writer, frame.encoding);
        } else if (mode == kModeStack) {
            WriteStackFrame(writer, frame.encoding);
        } else {
            char number[16];
            (void)std::snprintf(number, sizeof number, "0x%08x", frame.encoding);  // always fits
            throw LoadError(image.path + ": the frame " + number + " is unknown");
        }
        writer.End(start);
    }
    if (writer.Size() == 0) return {};
    writer.U32(0);  // the end
    return writer.Take();
}

void RegisterFrames(const std::vector<uint8_t>& frames)
{
    if (!frames.empty()) __register_frame(frames.data());
}

}  // namespace macho
