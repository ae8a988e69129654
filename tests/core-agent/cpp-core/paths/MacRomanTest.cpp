#include <gtest/gtest.h>

#include <string>

#include "GFileSystem.h"
#include "GFileSystemSpec.h"
#include "RecordingLog.h"

namespace {

// The characters of the bytes 0x80 to 0xFF, in UTF-8.
const char* const kUpperHalf[] = {
    "\xC3\x84",     "\xC3\x85",     "\xC3\x87",     "\xC3\x89",     "\xC3\x91",     "\xC3\x96",
    "\xC3\x9C",     "\xC3\xA1",     "\xC3\xA0",     "\xC3\xA2",     "\xC3\xA4",     "\xC3\xA3",
    "\xC3\xA5",     "\xC3\xA7",     "\xC3\xA9",     "\xC3\xA8",     "\xC3\xAA",     "\xC3\xAB",
    "\xC3\xAD",     "\xC3\xAC",     "\xC3\xAE",     "\xC3\xAF",     "\xC3\xB1",     "\xC3\xB3",
    "\xC3\xB2",     "\xC3\xB4",     "\xC3\xB6",     "\xC3\xB5",     "\xC3\xBA",     "\xC3\xB9",
    "\xC3\xBB",     "\xC3\xBC",     "\xE2\x80\xA0", "\xC2\xB0",     "\xC2\xA2",     "\xC2\xA3",
    "\xC2\xA7",     "\xE2\x80\xA2", "\xC2\xB6",     "\xC3\x9F",     "\xC2\xAE",     "\xC2\xA9",
    "\xE2\x84\xA2", "\xC2\xB4",     "\xC2\xA8",     "\xE2\x89\xA0", "\xC3\x86",     "\xC3\x98",
    "\xE2\x88\x9E", "\xC2\xB1",     "\xE2\x89\xA4", "\xE2\x89\xA5", "\xC2\xA5",     "\xC2\xB5",
    "\xE2\x88\x82", "\xE2\x88\x91", "\xE2\x88\x8F", "\xCF\x80",     "\xE2\x88\xAB", "\xC2\xAA",
    "\xC2\xBA",     "\xCE\xA9",     "\xC3\xA6",     "\xC3\xB8",     "\xC2\xBF",     "\xC2\xA1",
    "\xC2\xAC",     "\xE2\x88\x9A", "\xC6\x92",     "\xE2\x89\x88", "\xE2\x88\x86", "\xC2\xAB",
    "\xC2\xBB",     "\xE2\x80\xA6", "\xC2\xA0",     "\xC3\x80",     "\xC3\x83",     "\xC3\x95",
    "\xC5\x92",     "\xC5\x93",     "\xE2\x80\x93", "\xE2\x80\x94", "\xE2\x80\x9C", "\xE2\x80\x9D",
    "\xE2\x80\x98", "\xE2\x80\x99", "\xC3\xB7",     "\xE2\x97\x8A", "\xC3\xBF",     "\xC5\xB8",
    "\xE2\x81\x84", "\xE2\x82\xAC", "\xE2\x80\xB9", "\xE2\x80\xBA", "\xEF\xAC\x81", "\xEF\xAC\x82",
    "\xE2\x80\xA1", "\xC2\xB7",     "\xE2\x80\x9A", "\xE2\x80\x9E", "\xE2\x80\xB0", "\xC3\x82",
    "\xC3\x8A",     "\xC3\x81",     "\xC3\x8B",     "\xC3\x88",     "\xC3\x8D",     "\xC3\x8E",
    "\xC3\x8F",     "\xC3\x8C",     "\xC3\x93",     "\xC3\x94",     "\xEF\xA3\xBF", "\xC3\x92",
    "\xC3\x9A",     "\xC3\x9B",     "\xC3\x99",     "\xC4\xB1",     "\xCB\x86",     "\xCB\x9C",
    "\xC2\xAF",     "\xCB\x98",     "\xCB\x99",     "\xCB\x9A",     "\xC2\xB8",     "\xCB\x9D",
    "\xCB\x9B",     "\xCB\x87"};

class MacRomanPath : public testing::Test {
protected:
    RecordingLog log;
};

// A single byte above 0x7F is never UTF-8, whether at the end or before an ASCII letter.
TEST_F(MacRomanPath, EveryByteFrom0x80IsDecoded)
{
    static_assert(std::size(kUpperHalf) == 128);
    for (int byte = 0x80; byte < 0x100; ++byte) {
        std::string path = "/a" + std::string(1, char(byte)) + "b";
        EXPECT_EQ(CoreErrorCodes::kSuccess, GFileSystem::OSExpandPath(path));
        EXPECT_EQ(std::string("/a") + kUpperHalf[byte - 0x80] + "b", path) << byte;
    }
    EXPECT_EQ(128U, log.Reports().size());
}

TEST_F(MacRomanPath, EveryByteBelow0x80IsUnchanged)
{
    for (int byte = 1; byte < 0x80; ++byte) {
        const std::string letter(1, char(byte));
        std::string path = "/a" + letter + "\x80";
        EXPECT_EQ(CoreErrorCodes::kSuccess, GFileSystem::OSExpandPath(path));
        EXPECT_EQ("/a" + letter + kUpperHalf[0], path) << byte;
    }
}

TEST_F(MacRomanPath, OneIllFormedByteMakesTheWholeTextMacRoman)
{
    std::string path = "/\xC3\xA9\xFF";
    EXPECT_EQ(CoreErrorCodes::kSuccess, GFileSystem::OSExpandPath(path));
    EXPECT_EQ(std::string("/") + kUpperHalf[0x43] + kUpperHalf[0x29] + kUpperHalf[0x7F], path);
}

TEST_F(MacRomanPath, DecodingAsMacRomanLogsAWarning)
{
    std::string path = "/\x8E";
    EXPECT_EQ(CoreErrorCodes::kSuccess, GFileSystem::OSExpandPath(path));
    EXPECT_EQ("/\xC3\xA9", path);
    ASSERT_EQ(1U, log.Reports().size());
    EXPECT_EQ("FileSystem", log.Reports()[0].category);
    EXPECT_EQ("Warning", log.Reports()[0].level);
    EXPECT_EQ(
        "GFileSystem::OSExpandPath(), called with invalid UTF8 Path. Attempting convserion "
        "with other encodings.",
        log.Reports()[0].message);
}

TEST_F(MacRomanPath, PathIsStoredInUTF8)
{
    GFileSystemSpec spec;
    EXPECT_EQ(CoreErrorCodes::kSuccess, spec.SetFullPath("/caf\x8E/"));
    EXPECT_EQ("/caf\xC3\xA9", spec.GetFullPath());
    EXPECT_EQ(1U, log.Reports().size());
}

// The first expansion converts to UTF-8, so the second one doesn't warn.
TEST_F(MacRomanPath, ConstructorWarnsOnce)
{
    EXPECT_EQ("/caf\xC3\xA9", GFileSystemSpec("/caf\x8E").GetFullPath());
    EXPECT_EQ(1U, log.Reports().size());
}

TEST_F(MacRomanPath, IllFormedUTF8IsDecodedAsMacRoman)
{
    const char* const kTexts[] = {
        "\xC0\x80",  // overlong
        "\xC1\xBF",
        "\xE0\x80\x80",
        "\xE0\x9F\xBF",
        "\xF0\x80\x80\x80",
        "\xF0\x8F\xBF\xBF",
        "\xED\xA0\x80",  // surrogates
        "\xED\xBF\xBF",
        "\xF4\x90\x80\x80",  // above U+10FFFF
        "\xF5\x80\x80\x80",
        "\xFE",
        "\xFF",
        "\xC3",
        "\xE2\x82",
        "\xF0\x9F\x98",  // truncated
        "\x80",
        "\xC3\xA9\xA9",  // one continuation byte too many
    };
    for (const char* const text : kTexts) {
        log.Reports().clear();
        std::string path = std::string("/") + text;
        EXPECT_EQ(CoreErrorCodes::kSuccess, GFileSystem::OSExpandPath(path));
        EXPECT_EQ(1U, log.Reports().size()) << testing::PrintToString(std::string(text));
    }
}

TEST_F(MacRomanPath, WellFormedUTF8IsUnchanged)
{
    const char* const kTexts[] = {"\xC2\x80",         "\xDF\xBF",         "\xE0\xA0\x80",
                                  "\xED\x9F\xBF",     "\xEE\x80\x80",     "\xEF\xBF\xBF",
                                  "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF", "\x01\x7F"};
    for (const char* const text : kTexts) {
        std::string path = std::string("/") + text;
        EXPECT_EQ(CoreErrorCodes::kSuccess, GFileSystem::OSExpandPath(path));
        EXPECT_EQ(std::string("/") + text, path);
    }
    EXPECT_TRUE(log.Reports().empty());
}

}  // namespace
