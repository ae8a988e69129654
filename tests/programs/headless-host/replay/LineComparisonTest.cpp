#include "replay/LineComparison.h"

#include <gtest/gtest.h>

using headless::LineComparison;
using headless::RecordedLine;

namespace {

RecordedLine MakeLine(const std::string& handle)
{
    return {1, 0, "suite", "AI Art Suite, GetArtType", {{"art", handle}}, nullptr};
}

std::string Compare(LineComparison& comparison, const std::string& recorded,
                    const std::string& arisen)
{
    return comparison.FindDifference(MakeLine(recorded), MakeLine(arisen));
}

}  // namespace

TEST(LineComparison, AHandleStandsForTheSameOneInAllLines)
{
    LineComparison comparison("");
    EXPECT_EQ("", Compare(comparison, "art#5", "art#9"));
    EXPECT_EQ("", Compare(comparison, "art#5", "art#9"));
    EXPECT_EQ(1U, comparison.CountNames());
    EXPECT_EQ("args/art", Compare(comparison, "art#5", "art#10"));
    EXPECT_EQ("args/art", Compare(comparison, "art#6", "art#9"));
    EXPECT_EQ("args/art", Compare(comparison, "art#9", "art#9"));
    EXPECT_EQ("args/art", Compare(comparison, "art#7", "document#7"));
    EXPECT_EQ("art#9", comparison.GetPresentName("art#5"));
    EXPECT_EQ("art#8", comparison.GetPresentName("art#8"));
}

TEST(LineComparison, AHandleOfTheSameNameStandsForNoOther)
{
    LineComparison comparison("");
    EXPECT_EQ("", Compare(comparison, "art#5", "art#5"));
    EXPECT_EQ("", Compare(comparison, "art#5", "art#5"));
    EXPECT_EQ("args/art", Compare(comparison, "art#5", "art#6"));
    EXPECT_EQ("args/art", Compare(comparison, "art#4", "art#5"));
    EXPECT_EQ("art#5", comparison.GetPresentName("art#5"));
}

// A journal of a long run has millions of them.
TEST(LineComparison, HandlesOfTheSameNamesAreNotRememberedByName)
{
    LineComparison comparison("");
    for (int number = 1; number <= 1000; ++number) {
        const std::string name = "art#" + std::to_string(number);
        EXPECT_EQ("", Compare(comparison, name, name));
    }
    EXPECT_EQ(0U, comparison.CountNames());
}

TEST(LineComparison, AnyNumberIsCompared)
{
    LineComparison comparison("");
    for (const char* const number : {"0", "18446744073709551615", "99999999999999999999999"}) {
        const std::string name = std::string("art#") + number;
        EXPECT_EQ("", Compare(comparison, name, name));
        EXPECT_EQ("args/art", Compare(comparison, name, "art#1"));
    }
}
