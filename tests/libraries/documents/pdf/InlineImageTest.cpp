#include "documents/pdf/InlineImage.h"

#include <gtest/gtest.h>

#include <string>

#include "PdfMaker.h"

using namespace documents;

namespace {

// Returns the content behind the image that it begins with.
std::string GetRestBehind(const std::string& content)
{
    ContentLexer lexer(content);
    EXPECT_EQ("BI", lexer.Next().text);
    SkipInlineImage(lexer);
    return std::string(lexer.GetRest());
}

}  // namespace

TEST(InlineImage, EndsAtEIBetweenWhiteSpace)
{
    EXPECT_EQ(" Q", GetRestBehind("BI /F /A85 ID xxxEIxx~> EI Q"));
    EXPECT_EQ("\nQ", GetRestBehind("BI /F /A85 ID xxx\nEI\nQ"));
    EXPECT_EQ("", GetRestBehind("BI /F /A85 ID xxx EI"));
}

TEST(InlineImage, DataThatLooksLikeItsEndIsSkippedByLength)
{
    EXPECT_EQ(" Q", GetRestBehind("BI /L 15 /F /Fl ID x EI (no) Tj EI EI Q"));
}

TEST(InlineImage, LengthOfAnUnfilteredImageIsCalculated)
{
    EXPECT_EQ(" Q", GetRestBehind("BI /W 4 /H 2 /BPC 8 /CS /G ID a EI bcd EI Q"));
    EXPECT_EQ(" Q", GetRestBehind("BI /W 9 /H 4 /IM true ID a EI bcd EI Q"));
    EXPECT_EQ(" Q", GetRestBehind("BI /W 2 /H 4 /BPC 8 /CS [/I /RGB 1 <00>] ID a EI bcd EI Q"));
}

TEST(InlineImage, WrongLengthFallsBackToTheSearch)
{
    EXPECT_EQ(" Q", GetRestBehind("BI /L 3 /F /Fl ID abcdefg EI Q"));
    EXPECT_EQ(" Q", GetRestBehind("BI /L 999999999999 /F /Fl ID abcdefg EI Q"));
    EXPECT_EQ(" Q", GetRestBehind("BI /W 65000 /H 65000 /BPC 8 /CS /RGB ID abcdefg EI Q"));
}

TEST(InlineImage, EIBeforeBinaryBytesIsData)
{
    EXPECT_EQ(" Q", GetRestBehind("BI /F /Fl ID ab EI \x01\x02\xFF zz EI Q"));
}

TEST(InlineImage, ImageWithoutAnEndTakesTheRest)
{
    EXPECT_EQ("", GetRestBehind("BI /W 1 ID abc"));
    EXPECT_EQ("", GetRestBehind("BI /W 1 ID"));
}

TEST(InlineImage, ImageWithoutDataIsSkipped)
{
    EXPECT_EQ(" /W 1 Q", GetRestBehind("BI /W 1 Q"));
    EXPECT_EQ("", GetRestBehind("BI"));
}

TEST(InlineImage, TextIsReadBehindAnImageOnly)
{
    EXPECT_EQ("Alpha-Regular:2",
              DescribeContent("BT /F1 9 Tf BI /W 3 /H 5 /BPC 8 /CS /G ID /F2 1 Tf (ab)Tj EI"
                              " (cd) Tj ET"));
}
