#include "base/Lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace base;
using testing::ElementsAre;

namespace {

std::vector<std::string> Split(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty()) lines.emplace_back(TakeLine(text));
    return lines;
}

TEST(TakeLineTest, LinesEndInCrLfOrBoth)
{
    EXPECT_THAT(Split("a\rb\nc\r\nd"), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(Split("a\n"), ElementsAre("a"));
}

TEST(TakeLineTest, EmptyLinesAreLines)
{
    EXPECT_THAT(Split("\n\na\r\r\n\n"), ElementsAre("", "", "a", "", ""));
    EXPECT_THAT(Split("\n\r"), ElementsAre("", ""));
}

TEST(TakeLineTest, ZeroBytesBelongToTheLine)
{
    EXPECT_THAT(Split(std::string_view("a\0b\nc", 5)), ElementsAre(std::string("a\0b", 3), "c"));
}

TEST(TakeLineTest, AnEmptyTextHasAnEmptyLine)
{
    std::string_view rest;
    EXPECT_EQ(TakeLine(rest), "");
    EXPECT_EQ(rest, "");
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
