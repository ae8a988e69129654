#include "GStringUtils.h"

#include <gmock/gmock.h>

#include <cstdarg>
#include <string>

using testing::ElementsAre;

namespace {

int Print(char* buffer, unsigned long size, const char* format, ...)
{
    va_list args;
    va_start(args, format);
    const int result = GStringUtils::OSvsnprintf(buffer, size, format, args);
    va_end(args);
    return result;
}

TEST(StringSplit, SplitsAtEachDelimiter)
{
    EXPECT_THAT(GStringUtils::Split("a/b", "/"), ElementsAre("a", "b"));
    EXPECT_THAT(GStringUtils::Split("abc", "/"), ElementsAre("abc"));
    EXPECT_THAT(GStringUtils::Split("a//b", "/"), ElementsAre("a", "", "b"));
}

TEST(StringSplit, DelimitersAtTheEndsGiveEmptyElements)
{
    EXPECT_THAT(GStringUtils::Split("a/b/", "/"), ElementsAre("a", "b", ""));
    EXPECT_THAT(GStringUtils::Split("/a", "/"), ElementsAre("", "a"));
    EXPECT_THAT(GStringUtils::Split("/", "/"), ElementsAre("", ""));
    EXPECT_THAT(GStringUtils::Split("//", "/"), ElementsAre("", "", ""));
}

TEST(StringSplit, EmptyTextOrDelimiterGivesTheText)
{
    EXPECT_THAT(GStringUtils::Split("", "/"), ElementsAre(""));
    EXPECT_THAT(GStringUtils::Split("abc", ""), ElementsAre("abc"));
    EXPECT_THAT(GStringUtils::Split("", ""), ElementsAre(""));
}

TEST(StringSplit, DelimiterIsAWholeString)
{
    EXPECT_THAT(GStringUtils::Split("a, b,c", ", "), ElementsAre("a", "b,c"));
    EXPECT_THAT(GStringUtils::Split("a, b, ", ", "), ElementsAre("a", "b", ""));
    EXPECT_THAT(GStringUtils::Split("aaa", "aa"), ElementsAre("", "a"));
    EXPECT_THAT(GStringUtils::Split("a", "abc"), ElementsAre("a"));
    EXPECT_THAT(GStringUtils::Split("abc", "abc"), ElementsAre("", ""));
}

TEST(StringSplit, PartOfADelimiterAtTheEndAddsNoEmptyElement)
{
    EXPECT_THAT(GStringUtils::Split("aab", "ab"), ElementsAre("a", ""));
    EXPECT_THAT(GStringUtils::Split("ababa", "aba"), ElementsAre("", "ba"));
}

TEST(StringStrip, RemovesEveryRepetitionOfThePrefix)
{
    EXPECT_EQ("a", GStringUtils::StripPrecedingString("///a", "/"));
    EXPECT_EQ("", GStringUtils::StripPrecedingString("//", "/"));
    EXPECT_EQ("", GStringUtils::StripPrecedingString("abab", "ab"));
    EXPECT_EQ("a", GStringUtils::StripPrecedingString("ababa", "ab"));
    EXPECT_EQ("a/b/", GStringUtils::StripPrecedingString("a/b/", "/"));
}

TEST(StringStrip, RemovesEveryRepetitionOfTheSuffix)
{
    EXPECT_EQ("a", GStringUtils::StripTrailingString("a///", "/"));
    EXPECT_EQ("", GStringUtils::StripTrailingString("//", "/"));
    EXPECT_EQ("", GStringUtils::StripTrailingString("abab", "ab"));
    EXPECT_EQ("b", GStringUtils::StripTrailingString("babab", "ab"));
    EXPECT_EQ("a", GStringUtils::StripTrailingString("aaa", "aa"));
    EXPECT_EQ("/a/b", GStringUtils::StripTrailingString("/a/b", "/"));
}

TEST(StringStrip, EmptyStringsChangeNothing)
{
    EXPECT_EQ("", GStringUtils::StripPrecedingString("", "/"));
    EXPECT_EQ("a", GStringUtils::StripPrecedingString("a", ""));
    EXPECT_EQ("", GStringUtils::StripTrailingString("", "/"));
    EXPECT_EQ("a", GStringUtils::StripTrailingString("a", ""));
    EXPECT_EQ("a", GStringUtils::StripTrailingString("a", "ba"));
    EXPECT_EQ("a", GStringUtils::StripPrecedingString("a", "ab"));
}

TEST(StringEnds, BeginsWithIsCaseSensitive)
{
    EXPECT_TRUE(GStringUtils::BeginsWith("ab", "a"));
    EXPECT_TRUE(GStringUtils::BeginsWith("ab", "ab"));
    EXPECT_TRUE(GStringUtils::BeginsWith("ab", ""));
    EXPECT_TRUE(GStringUtils::BeginsWith("", ""));
    EXPECT_FALSE(GStringUtils::BeginsWith("ab", "b"));
    EXPECT_FALSE(GStringUtils::BeginsWith("a", "ab"));
    EXPECT_FALSE(GStringUtils::BeginsWith("ab", "A"));
}

TEST(StringEnds, EndsWithIsCaseSensitive)
{
    EXPECT_TRUE(GStringUtils::EndsWith("ab", "b"));
    EXPECT_TRUE(GStringUtils::EndsWith("ab", "ab"));
    EXPECT_TRUE(GStringUtils::EndsWith("ab", ""));
    EXPECT_TRUE(GStringUtils::EndsWith("", ""));
    EXPECT_FALSE(GStringUtils::EndsWith("ab", "a"));
    EXPECT_FALSE(GStringUtils::EndsWith("a", "ab"));
    EXPECT_FALSE(GStringUtils::EndsWith("ab", "B"));
}

TEST(StringLowerCase, ChangesOnlyASCIILetters)
{
    EXPECT_EQ("default-9 z", GStringUtils::OSToLowerCase("DeFault-9 Z"));
    EXPECT_EQ("", GStringUtils::OSToLowerCase(""));
    EXPECT_EQ("\xC3\x84", GStringUtils::OSToLowerCase("\xC3\x84"));
    const std::string withZero("A\0B", 3);
    EXPECT_EQ(std::string("a\0b", 3), GStringUtils::OSToLowerCase(withZero));
}

TEST(StringLowerCase, FunctorChangesItsCharacter)
{
    char letter = 'Q';
    GLowerCaseFunctor()(letter);
    EXPECT_EQ('q', letter);
}

TEST(StringPrint, ReturnsTheSizeThatIsNeeded)
{
    char buffer[4] = "xxx";
    EXPECT_EQ(5, Print(buffer, sizeof buffer, "%d-%s", 12, "ab"));
    EXPECT_STREQ("12-", buffer);
    EXPECT_EQ(5, Print(nullptr, 0, "%s", "12345"));
}

}  // namespace
