#include "documents/postscript/DscText.h"

#include <gtest/gtest.h>

using namespace documents;

namespace {

std::string GetWords(std::string_view value)
{
    std::string text;
    DscWord word;
    while (TakeDscWord(value, word)) text += (word.quoted ? "(" : "[") + word.text + "]";
    return text;
}

}  // namespace

TEST(DscText, CommentHasAKeywordAndAValue)
{
    EXPECT_EQ("DocumentFonts", SplitDscComment("%%DocumentFonts: A B ").keyword);
    EXPECT_EQ("A B", SplitDscComment("%%DocumentFonts: A B ").value);
    EXPECT_EQ("/a b.eps", SplitDscComment("%%DocumentFiles:/a b.eps").value);
    EXPECT_EQ("A", SplitDscComment("%%DocumentFonts A").value);
    EXPECT_EQ("", SplitDscComment("%%EndComments").value);
    EXPECT_EQ("", SplitDscComment("%%").keyword);
}

TEST(DscText, ContinuationHasAPlusAsItsKeyword)
{
    EXPECT_EQ("+", SplitDscComment("%%+font A").keyword);
    EXPECT_EQ("font A", SplitDscComment("%%+ font A").value);
}

TEST(DscText, SpacesSeparateWords)
{
    EXPECT_EQ("[A][B-c]", GetWords("  A\tB-c "));
    EXPECT_EQ("(My Font][B]", GetWords("(My Font) B"));
    EXPECT_EQ("", GetWords("   "));
}

TEST(DscText, PostScriptStringsAreWords)
{
    EXPECT_EQ("(a(b)c]", GetWords("(a(b)c)"));
    EXPECT_EQ("(a)b\\A", GetWords(R"((a\)b\\\101)").substr(0, 6));
    EXPECT_EQ("(open]", GetWords("(open"));
    EXPECT_EQ("(open]", GetWords("(open\\"));
}

TEST(DscText, WholeValueMayBeAString)
{
    EXPECT_EQ("My Drawer 8", GetDscText("(My Drawer 8)"));
    EXPECT_EQ("(C) 1999 A. Writer", GetDscText("(C) 1999 A. Writer"));
    EXPECT_EQ("Drawer(R) 8", GetDscText(" Drawer(R) 8 "));
}

TEST(DscText, AtEndMayHaveParentheses)
{
    EXPECT_TRUE(IsAtEnd("(atend)"));
    EXPECT_TRUE(IsAtEnd("atend"));
    EXPECT_FALSE(IsAtEnd("attend"));
}

TEST(DscText, QuotedTextIsReadBack)
{
    EXPECT_EQ(R"((a \(b\) \\c\nd))", QuoteAsString("a (b) \\c\nd"));
    for (const char* const text :
         {"", "plain", "a b", "(", ")", "\\n", "one\rtwo\nthree", "\xC3\xA9"}) {
        EXPECT_EQ(text, GetDscText(QuoteAsString(text))) << text;
    }
}
