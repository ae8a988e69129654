#include "base/Lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace base;
using testing::ElementsAre;

namespace {

TEST(SplitLinesTest, LinesEndInCrLfOrBoth)
{
    EXPECT_THAT(SplitLines("a\rb\nc\r\nd"), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(SplitLines("a\n"), ElementsAre("a"));
}

TEST(SplitLinesTest, EmptyLinesAreLines)
{
    EXPECT_THAT(SplitLines("\n\na\r\r\n\n"), ElementsAre("", "", "a", "", ""));
    EXPECT_THAT(SplitLines("\n\r"), ElementsAre("", ""));
}

TEST(SplitLinesTest, ZeroBytesBelongToTheLine)
{
    EXPECT_THAT(SplitLines(std::string_view("a\0b\nc", 5)),
                ElementsAre(std::string("a\0b", 3), "c"));
}

TEST(SplitLinesTest, AnEmptyTextHasAnEmptyLine)
{
    std::string_view rest;
    EXPECT_EQ(TakeLine(rest), "");
    EXPECT_EQ(rest, "");
}

TEST(JoinLinesTest, EachLineHasAnEnd)
{
    EXPECT_EQ("a\n\nb\n", JoinLines({"a", "", "b"}));
    EXPECT_EQ("", JoinLines({}));
}

TEST(FindLineEndTest, TheFirstCrOrLf)
{
    // Bytes that differ from CR and LF in one bit or by one, and a zero byte.
    const std::string_view others("\x0c\x0e\x0b\x09\x8d\x8a\x00\x2d\x1d\x01\xff", 11);
    for (size_t size = 0; size < 40; ++size) {
        std::string text;
        while (text.size() < size) text += others[text.size() % others.size()];
        EXPECT_EQ(size, FindLineEnd(text));
        for (size_t place = 0; place < size; ++place) {
            for (const char end : {'\r', '\n'}) {
                std::string lines = text;
                lines[place] = end;
                EXPECT_EQ(place, FindLineEnd(lines)) << size;
                lines.back() = end == '\r' ? '\n' : '\r';
                EXPECT_EQ(place, FindLineEnd(lines)) << size;
            }
        }
    }
}

constexpr std::string_view kText = "x%%A\n%%A 1\r\n%%B\r%%A 2\n %%A";

TEST(FindLineTest, TheFirstOrTheLastLineThatBeginsSo)
{
    EXPECT_EQ(FindLine(kText, "%%A"), kText.find("%%A 1"));
    EXPECT_EQ(FindLastLine(kText, "%%A"), kText.find("%%A 2"));
    EXPECT_EQ(FindLine(kText, "%%B"), kText.find("%%B"));
    EXPECT_EQ(FindLastLine(kText, "x"), 0U);
    EXPECT_EQ(FindLine(kText, "x"), 0U);
}

TEST(FindLineTest, NoneIsFound)
{
    EXPECT_EQ(FindLine(kText, "%%C"), std::string_view::npos);
    EXPECT_EQ(FindLastLine(kText, "%%C"), std::string_view::npos);
    EXPECT_EQ(FindLine(" %%A", "%%A"), std::string_view::npos);
    EXPECT_EQ(FindLastLine(" %%A", "%%A"), std::string_view::npos);
    EXPECT_EQ(FindLine("", "%%A"), std::string_view::npos);
    EXPECT_EQ(FindLastLine("", "%%A"), std::string_view::npos);
}

}  // namespace
