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

TEST(StringSplit, AtEachDelimiter)
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

TEST(StringSplit, DelimiterIsAWholeText)
{
    EXPECT_THAT(GStringUtils::Split("a, b,c", ", "), ElementsAre("a", "b,c"));
    EXPECT_THAT(GStringUtils::Split("a, b, ", ", "), ElementsAre("a", "b", ""));
    EXPECT_THAT(GStringUtils::Split("aaa", "aa"), ElementsAre("", "a"));
    EXPECT_THAT(GStringUtils::Split("a", "abc"), ElementsAre("a"));
    EXPECT_THAT(GStringUtils::Split("abc", "abc"), ElementsAre("", ""));
}

TEST(StringSplit, TextThatOnlyEndsLikeADelimiterHasNoLastElement)
{
    EXPECT_THAT(GStringUtils::Split("aab", "ab"), ElementsAre("a", ""));
    EXPECT_THAT(GStringUtils::Split("ababa", "aba"), ElementsAre("", "ba"));
}

TEST(StringStrip, EveryRepetitionInFrontGoes)
{
    EXPECT_EQ(GStringUtils::StripPrecedingString("///a", "/"), "a");
    EXPECT_EQ(GStringUtils::StripPrecedingString("//", "/"), "");
    EXPECT_EQ(GStringUtils::StripPrecedingString("abab", "ab"), "");
    EXPECT_EQ(GStringUtils::StripPrecedingString("ababa", "ab"), "a");
    EXPECT_EQ(GStringUtils::StripPrecedingString("a/b/", "/"), "a/b/");
}

TEST(StringStrip, EveryRepetitionBehindGoes)
{
    EXPECT_EQ(GStringUtils::StripTrailingString("a///", "/"), "a");
    EXPECT_EQ(GStringUtils::StripTrailingString("//", "/"), "");
    EXPECT_EQ(GStringUtils::StripTrailingString("abab", "ab"), "");
    EXPECT_EQ(GStringUtils::StripTrailingString("babab", "ab"), "b");
    EXPECT_EQ(GStringUtils::StripTrailingString("aaa", "aa"), "a");
    EXPECT_EQ(GStringUtils::StripTrailingString("/a/b", "/"), "/a/b");
}

TEST(StringStrip, EmptyTextsStripNothing)
{
    EXPECT_EQ(GStringUtils::StripPrecedingString("", "/"), "");
    EXPECT_EQ(GStringUtils::StripPrecedingString("a", ""), "a");
    EXPECT_EQ(GStringUtils::StripTrailingString("", "/"), "");
    EXPECT_EQ(GStringUtils::StripTrailingString("a", ""), "a");
    EXPECT_EQ(GStringUtils::StripTrailingString("a", "ba"), "a");
    EXPECT_EQ(GStringUtils::StripPrecedingString("a", "ab"), "a");
}

TEST(StringEnds, BeginsWith)
{
    EXPECT_TRUE(GStringUtils::BeginsWith("ab", "a"));
    EXPECT_TRUE(GStringUtils::BeginsWith("ab", "ab"));
    EXPECT_TRUE(GStringUtils::BeginsWith("ab", ""));
    EXPECT_TRUE(GStringUtils::BeginsWith("", ""));
    EXPECT_FALSE(GStringUtils::BeginsWith("ab", "b"));
    EXPECT_FALSE(GStringUtils::BeginsWith("a", "ab"));
    EXPECT_FALSE(GStringUtils::BeginsWith("ab", "A"));
}

TEST(StringEnds, EndsWith)
{
    EXPECT_TRUE(GStringUtils::EndsWith("ab", "b"));
    EXPECT_TRUE(GStringUtils::EndsWith("ab", "ab"));
    EXPECT_TRUE(GStringUtils::EndsWith("ab", ""));
    EXPECT_TRUE(GStringUtils::EndsWith("", ""));
    EXPECT_FALSE(GStringUtils::EndsWith("ab", "a"));
    EXPECT_FALSE(GStringUtils::EndsWith("a", "ab"));
    EXPECT_FALSE(GStringUtils::EndsWith("ab", "B"));
}

TEST(StringLowerCase, ChangesPlainLettersAlone)
{
    EXPECT_EQ(GStringUtils::OSToLowerCase("DeFault-9 Z"), "default-9 z");
    EXPECT_EQ(GStringUtils::OSToLowerCase(""), "");
    EXPECT_EQ(GStringUtils::OSToLowerCase("\xC3\x84"), "\xC3\x84");
    const std::string withZero("A\0B", 3);
    EXPECT_EQ(GStringUtils::OSToLowerCase(withZero), std::string("a\0b", 3));
}

TEST(StringLowerCase, FunctorChangesItsCharacter)
{
    char letter = 'Q';
    GLowerCaseFunctor()(letter);
    EXPECT_EQ(letter, 'q');
}

TEST(StringPrint, TellsTheSizeThatIsNeeded)
{
    char buffer[4] = "xxx";
    EXPECT_EQ(Print(buffer, sizeof buffer, "%d-%s", 12, "ab"), 5);
    EXPECT_STREQ(buffer, "12-");
    EXPECT_EQ(Print(nullptr, 0, "%s", "12345"), 5);
}

}  // namespace
