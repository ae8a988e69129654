#include "DebugUtils.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string>

// What the replaced vsnprintf below saw at its last call.
namespace {

struct Formatted {
    std::size_t limit = 0;
    bool zeroed = false;
    std::size_t length = 0;
    int wanted = 0;  // the length without a limit
    std::string text;
    std::string beginning;
    int calls = 0;
};
Formatted gFormatted;

}  // namespace

extern "C" int vsnprintf(char* buffer, std::size_t size, const char* format, va_list arguments)
{
    typedef int (*Function)(char*, std::size_t, const char*, va_list);
    static const Function next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "vsnprintf"));
    bool zeroed = true;
    for (std::size_t i = 0; i < size && zeroed; ++i) zeroed = buffer[i] == 0;
    const int result = next(buffer, size, format, arguments);
    ++gFormatted.calls;
    gFormatted.limit = size;
    gFormatted.zeroed = zeroed;
    gFormatted.wanted = result;
    gFormatted.length = size == 0 ? 0 : std::strlen(buffer);
    gFormatted.text.assign(buffer, gFormatted.length);
    gFormatted.beginning.assign(buffer, std::min<std::size_t>(gFormatted.length, 64));
    return result;
}

namespace {

class DebugUtils : public testing::Test {
protected:
    DebugUtils() { gFormatted = Formatted(); }
};

TEST_F(DebugUtils, FormatsItsText)
{
    OutputIndentedAndFormattedString(1, "Entering %s(%08x, '%s')", "Name", 0x2AU, "text");
    EXPECT_EQ(1, gFormatted.calls);
    EXPECT_EQ("Entering Name(0000002a, 'text')", gFormatted.beginning);
}

TEST_F(DebugUtils, FormatsIntoAZeroedBufferOf65536Bytes)
{
    OutputIndentedAndFormattedString(0, "%d", 7);
    EXPECT_EQ(65536U, gFormatted.limit);
    EXPECT_TRUE(gFormatted.zeroed);
}

TEST_F(DebugUtils, ClearsTheBufferAtEveryCall)
{
    OutputIndentedAndFormattedString(0, "%s", std::string(1000, 'x').c_str());
    OutputIndentedAndFormattedString(0, "%s", "y");
    EXPECT_TRUE(gFormatted.zeroed);
    EXPECT_EQ("y", gFormatted.beginning);
}

TEST_F(DebugUtils, FormatsATextOf65535Characters)
{
    OutputIndentedAndFormattedString(0, "%s", std::string(65535, 'x').c_str());
    EXPECT_EQ(65535U, gFormatted.length);
}

TEST_F(DebugUtils, TruncatesALongerText)
{
    OutputIndentedAndFormattedString(0, "%s", std::string(200000, 'x').c_str());
    EXPECT_EQ(65535U, gFormatted.length);
}

TEST_F(DebugUtils, PassesOnOnlyWhatHasRoomOfALongText)
{
    const std::string text(200000, 'x');
    OutputIndentedAndFormattedString(0, "Menus: %s, %d%%", text.c_str(), 7);
    EXPECT_EQ("Menus: " + std::string(65528, 'x'), gFormatted.text);
    EXPECT_EQ(65536, gFormatted.wanted);
    EXPECT_EQ(65536U, gFormatted.limit);
    EXPECT_TRUE(gFormatted.zeroed);
    EXPECT_EQ(1, gFormatted.calls);
}

TEST_F(DebugUtils, FormatsWhatIsBehindATextThatFits)
{
    OutputIndentedAndFormattedString(0, "%s%d", std::string(65530, 'x').c_str(), 12345);
    EXPECT_EQ(std::string(65530, 'x') + "12345", gFormatted.text);
    OutputIndentedAndFormattedString(0, "%d %s", 7, std::string(200000, 'x').c_str());
    EXPECT_EQ("7 " + std::string(65533, 'x'), gFormatted.text);
    const std::string percents = "%%" + std::string(70000, 'y') + "%s";
    OutputIndentedAndFormattedString(0, percents.c_str(), "z");
    EXPECT_EQ("%" + std::string(65534, 'y'), gFormatted.text);
    const std::string prefix = std::string(70000, 'y') + "%s";
    OutputIndentedAndFormattedString(0, prefix.c_str(), "z");
    EXPECT_EQ(std::string(65535, 'y'), gFormatted.text);
}

TEST_F(DebugUtils, WritesNothingToTheStandardStreams)
{
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    OutputIndentedAndFormattedString(1, "Entering %s()", "Name");
    OutputIndentedAndFormattedString(0, "%s", std::string(200000, 'x').c_str());
    OutputIndentedAndFormattedString(-1, "Exiting %s()", "Name");
    OutputIndentedAndFormattedString(static_cast<int>(0xFFFFFFFFU), "Exiting %s", "Name");
    EXPECT_EQ("", testing::internal::GetCapturedStdout());
    EXPECT_EQ("", testing::internal::GetCapturedStderr());
}

}  // namespace
