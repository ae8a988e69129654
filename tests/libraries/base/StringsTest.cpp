#include "base/Strings.h"

#include <gtest/gtest.h>

using namespace base;

TEST(StringsTest, StartsAndEnds)
{
    EXPECT_TRUE(StartsWith("abc", "ab"));
    EXPECT_TRUE(StartsWith("abc", ""));
    EXPECT_FALSE(StartsWith("ab", "abc"));
    EXPECT_TRUE(EndsWith("abc", "bc"));
    EXPECT_TRUE(EndsWith("abc", ""));
    EXPECT_FALSE(EndsWith("bc", "abc"));
}

TEST(StringsTest, TrimRemovesSpacesAtBothEnds)
{
    EXPECT_EQ(Trim(" \t a b\r\n"), "a b");
    EXPECT_EQ(Trim("ab"), "ab");
    EXPECT_EQ(Trim(" \t "), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(TrimEnd(" a b\r\n"), " a b");
    EXPECT_EQ(TrimEnd(" \n"), "");
}

TEST(StringsTest, TrimRemovesTheGivenCharactersOnly)
{
    EXPECT_EQ(Trim(" a\r", " \t"), "a\r");
    EXPECT_EQ(TrimEnd("a\r\t", " \t"), "a\r");
}

TEST(StringsTest, ToLowerChangesAsciiLettersOnly)
{
    EXPECT_EQ(ToLower("AZaz[@`{\xC3\x89"), "azaz[@`{\xC3\x89");
}

TEST(StringsTest, ControlCharactersAreNotPrinted)
{
    EXPECT_EQ(MakePrintable(std::string("a\0\x1B[\n\x7F \xC3\xA9", 9)), "a??[?? \xC3\xA9");
}
