#include "base/Utf8.h"

#include <gtest/gtest.h>

using namespace base;

namespace {

// One to four bytes each, and the neighbours of the surrogates.
constexpr char kValid[] = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xED\x9F\xBF\xEE\x80\x80";

struct Wrong {
    const char* bytes;
    size_t replacements;
};

constexpr Wrong kWrong[] = {
    {"\xFF", 1},
    {"\x80", 1},
    {"\xCB\xCE", 2},
    {"\xE2\x82", 2},
    {"\xC0\x80", 2},
    {"\xE0\x80\x80", 3},
    {"\xED\xA0\x80", 3},
    {"\xED\xBF\xBF", 3},
    {"\xF0\x80\x80\x80", 4},
    {"\xF0\x9F\x98", 3},
    {"\xF4\x90\x80\x80", 4},
    {"\xF8\x88\x80\x80\x80", 5},
};

std::string Repeat(const std::string& text, size_t count)
{
    std::string result;
    for (; count > 0; --count) result += text;
    return result;
}

TEST(Utf8Test, ValidTextIsUnchanged)
{
    EXPECT_TRUE(IsValidUtf8(kValid));
    EXPECT_EQ(ToValidUtf8(kValid), kValid);
    EXPECT_TRUE(IsValidUtf8(""));
    EXPECT_EQ(ToValidUtf8(""), "");
    EXPECT_TRUE(IsValidUtf8(std::string_view("a\0b", 3)));
}

TEST(Utf8Test, EachWrongByteIsReplaced)
{
    for (const Wrong& wrong : kWrong) {
        const std::string replaced = Repeat("\uFFFD", wrong.replacements);
        EXPECT_FALSE(IsValidUtf8(wrong.bytes));
        EXPECT_EQ(ToValidUtf8(wrong.bytes), replaced);
        EXPECT_EQ(ToValidUtf8(std::string("a") + wrong.bytes + "b"), "a" + replaced + "b");
    }
}

TEST(Utf8Test, ACharacterIsAppended)
{
    std::string text;
    for (const char32_t each : {0x61, 0xE9, 0x20AC, 0x1F600, 0xD7FF, 0xE000}) {
        AppendCharacter(each, text);
    }
    EXPECT_EQ(text, kValid);
}

TEST(Utf8Test, WhatIsNoCharacterIsReplaced)
{
    std::string text;
    for (const char32_t each : {0xD800, 0xDFFF, 0x110000}) AppendCharacter(each, text);
    AppendCharacter(0x10FFFF, text);
    EXPECT_EQ(text, "\uFFFD\uFFFD\uFFFD\xF4\x8F\xBF\xBF");
}

TEST(Utf8Test, CharactersAreCounted)
{
    EXPECT_EQ(CountCharacters(""), 0U);
    EXPECT_EQ(CountCharacters(kValid), 6U);
}

TEST(Utf8Test, Utf16IsBigEndian)
{
    EXPECT_EQ(FromUtf16(std::string_view("\0a\0\xE9\x20\xAC\xD8\x3D\xDE\0", 10)),
              "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(FromUtf16(""), "");
}

TEST(Utf8Test, HalvesOfPairsAreReplaced)
{
    EXPECT_EQ(FromUtf16(std::string_view("\xD8\x3D\0a", 4)), "\uFFFDa");
    EXPECT_EQ(FromUtf16(std::string_view("\xDE\0\xD8\x3D", 4)), "\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf16(std::string_view("\xD8\x3D\xD8\x3D\xDE\0", 6)), "\uFFFD\xF0\x9F\x98\x80");
    EXPECT_EQ(FromUtf16(std::string_view("\0a\xD8", 3)), "a\uFFFD");
    EXPECT_EQ(FromUtf16(std::string_view("\xD8\x3D\xDE", 3)), "\uFFFD\uFFFD");
}

TEST(Utf8Test, AMessageIsOneShortLine)
{
    EXPECT_EQ(ToMessageText("a\nb\tc\x7F"), "a b c ");
    EXPECT_EQ(ToMessageText("caf\xE9"), "caf\uFFFD");
    EXPECT_EQ(ToMessageText(std::string(5000, 'x')).size(), 200U);
}

}  // namespace
