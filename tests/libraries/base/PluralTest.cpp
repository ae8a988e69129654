#include "base/Plural.h"

#include <gtest/gtest.h>

using base::Count;

TEST(CountTest, OnlyOneIsSingular)
{
    EXPECT_EQ(Count(0, "run"), "0 runs");
    EXPECT_EQ(Count(1, "text frame"), "1 text frame");
    EXPECT_EQ(Count(3, "run"), "3 runs");
}

TEST(CountTest, APluralOfAnotherForm)
{
    EXPECT_EQ(Count(1, "stretch of text", "stretches of text"), "1 stretch of text");
    EXPECT_EQ(Count(2, "stretch of text", "stretches of text"), "2 stretches of text");
}
