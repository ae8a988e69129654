#include <fstream>

#include "TwoPlugins.h"

namespace fs = std::filesystem;

namespace {

constexpr uint32_t kX86_64 = 0x01000007;
constexpr uint32_t kLoadCommandUuid = 0x1b;

uint32_t BigEndianAt(const std::string& bytes, size_t at)
{
    uint32_t value = 0;
    for (size_t index = 0; index < 4; ++index) {
        value = value << 8 | static_cast<uint8_t>(bytes.at(at + index));
    }
    return value;
}

uint32_t At(const std::string& bytes, size_t at)
{
    return __builtin_bswap32(BigEndianAt(bytes, at));
}

// The offset of the slice for x86_64. The bundle has two.
size_t FindSlice(const std::string& bytes)
{
    for (size_t row = 8; row < 48; row += 20) {
        if (BigEndianAt(bytes, row) == kX86_64) return BigEndianAt(bytes, row + 8);
    }
    ADD_FAILURE() << "no slice for x86_64";
    return 0;
}

}  // namespace

// A bundle that the loader cannot run: one line names the reason, and nothing has passed.
class MachORefused : public TwoPlugins {
protected:
    void SetUp() override
    {
        TwoPlugins::SetUp();
        if (IsSkipped()) return;
        fs::remove(machO.scratch / "TypeloftSPEA.aip/Contents");
        fs::copy(fs::path(MACH_O_BUNDLE) / "Contents", machO.scratch / "TypeloftSPEA.aip/Contents",
                 fs::copy_options::recursive);
        bytes = machO.ReadFile(executable);
    }

    void ExpectNotRun(const std::string& line)
    {
        if (!bytes.empty()) machO.WriteFile(executable, bytes);
        EXPECT_EQ(77, machO.Run("open leaflet.eps"));
        EXPECT_EQ("", machO.output);
        EXPECT_EQ("mach-o: " + line + "\n", machO.WithoutFolder(machO.errors));
    }

    const fs::path executable = machO.scratch / "TypeloftSPEA.aip/Contents/MacOS/TypeloftSPEA";
    const std::string name = "FOLDER/TypeloftSPEA.aip/Contents/MacOS/TypeloftSPEA: ";
    std::string bytes;
};

TEST_F(MachORefused, WithAnUnknownLoadCommand)
{
    const size_t slice = FindSlice(bytes);
    size_t command = slice + 32;
    while (At(bytes, command) != kLoadCommandUuid) command += At(bytes, command + 4);
    bytes.replace(command, 4, std::string("\x34\x00\x00\x80", 4));
    ExpectNotRun(name + "load command 0x80000034 is unknown");
}

TEST_F(MachORefused, WithAnUnknownBind)
{
    const std::string symbol("_NSLog\0", 7);
    size_t count = 0;
    for (size_t at = bytes.find(symbol); at != std::string::npos; at = bytes.find(symbol, at)) {
        bytes[at + 5] = 'f';
        ++count;
    }
    EXPECT_LE(2U, count);
    ExpectNotRun("Foundation: bind _NSLof is unknown");
}

TEST_F(MachORefused, WithAnUnknownLibrary)
{
    const std::string library = "/usr/lib/libobjc.A.dylib";
    for (size_t at = bytes.find(library); at != std::string::npos; at = bytes.find(library, at)) {
        bytes[at + library.size() - 7] = 'B';
    }
    machO.WriteFile(executable, bytes);
    EXPECT_EQ(77, machO.Run("open leaflet.eps"));
    EXPECT_THAT(machO.errors, testing::StartsWith("mach-o: library /usr/lib/libobjc.B.dylib of "));
}

TEST_F(MachORefused, WithoutASliceForX86)
{
    for (size_t row = 8; row < 48; row += 20) {
        if (BigEndianAt(bytes, row) == kX86_64) bytes.replace(row, 4, std::string("\1\0\0\14", 4));
    }
    ExpectNotRun(name + "has no slice for x86_64");
}

TEST_F(MachORefused, ThatIsCutOff)
{
    bytes.resize(FindSlice(bytes) + 20000);
    ExpectNotRun(name + "the slice for x86_64 is cut off");
}

TEST_F(MachORefused, ThatIsAText)
{
    bytes = std::string(100, 'x');
    ExpectNotRun(name + "is not a Mach-O file of 64 bits");
}

TEST_F(MachORefused, ThatIsNotThere)
{
    fs::remove(executable);
    bytes.clear();
    ExpectNotRun(name + "cannot be read");
}
