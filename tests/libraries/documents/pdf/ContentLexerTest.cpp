#include "documents/pdf/ContentLexer.h"

#include <gtest/gtest.h>

#include <string>

using namespace documents;

namespace {

// Returns a letter for the type of each token, its text and, for strings, the length.
std::string Lex(std::string_view content)
{
    constexpr char kLetters[] = "?nNS[]<>o";
    ContentLexer lexer(content);
    std::string text;
    for (Token token = lexer.Next(); token.type != TokenType::kEnd; token = lexer.Next()) {
        if (!text.empty()) text += ' ';
        text += kLetters[static_cast<int>(token.type)];
        text += token.text;
        if (token.type == TokenType::kString) text += "=" + std::to_string(token.length);
    }
    return text;
}

size_t GetStringLength(std::string_view content)
{
    ContentLexer lexer(content);
    const Token token = lexer.Next();
    EXPECT_EQ(TokenType::kString, token.type);
    return token.length;
}

}  // namespace

TEST(ContentLexer, NumbersNamesAndOperatorsAreTokens)
{
    EXPECT_EQ("NF1 n12 oTf n-3.5 n+4 n.5 oTd oT*", Lex("/F1 12 Tf -3.5 +4 .5 Td T*"));
}

TEST(ContentLexer, QuoteOperatorsNeedNoSpaces) { EXPECT_EQ("Sa=1 o' Sb=1 o\"", Lex("(a)'(b)\"")); }

TEST(ContentLexer, NumberEndsWhereAnOperatorBegins) { EXPECT_EQ("n0 oTc", Lex("0Tc")); }

TEST(ContentLexer, WhiteSpaceHasNoTokens)
{
    EXPECT_EQ("", Lex(""));
    EXPECT_EQ("", Lex(std::string_view("\0\t\n\f\r ", 6)));
}

TEST(ContentLexer, NameMayBeEmpty) { EXPECT_EQ("N n1", Lex("/ 1")); }

TEST(ContentLexer, NameEndsAtADelimiter) { EXPECT_EQ("NA [[ NB Sx=1", Lex("/A[/B(x)")); }

TEST(ContentLexer, CommentsEndWithTheLine)
{
    EXPECT_EQ("n1 n2 n3", Lex("1%(not a string\r2 % ) more\n3"));
    EXPECT_EQ("n1", Lex("1 % to the end"));
}

TEST(ContentLexer, ArraysAndDictionariesAreTokens)
{
    EXPECT_EQ("[[ n1 ]] <<< NA n2 >>>", Lex("[1] <</A 2>>"));
}

TEST(ContentLexer, ParenthesesNest) { EXPECT_EQ("Sa(b(c))d=8 n1", Lex("(a(b(c))d) 1")); }

TEST(ContentLexer, EscapeIsOneByte)
{
    EXPECT_EQ(5U, GetStringLength(R"((\n\(\)\\\x))"));
    EXPECT_EQ(4U, GetStringLength(R"((\101\7\08))"));
}

TEST(ContentLexer, EscapedParenthesisDoesNotEndAString) { EXPECT_EQ("S\\)=1 oTj", Lex("(\\))Tj")); }

TEST(ContentLexer, EscapedLineEndHasNoLength)
{
    EXPECT_EQ(2U, GetStringLength("(a\\\nb)"));
    EXPECT_EQ(2U, GetStringLength("(a\\\r\nb)"));
    EXPECT_EQ(2U, GetStringLength("(a\\\rb)"));
}

TEST(ContentLexer, LineEndOfTwoBytesIsOneByte)
{
    EXPECT_EQ(3U, GetStringLength("(a\r\nb)"));
    EXPECT_EQ(3U, GetStringLength("(a\nb)"));
}

TEST(ContentLexer, EmptyStringsHaveNoLength)
{
    EXPECT_EQ(0U, GetStringLength("()"));
    EXPECT_EQ(0U, GetStringLength("<>"));
}

TEST(ContentLexer, HexStringsIgnoreOtherCharacters)
{
    EXPECT_EQ(2U, GetStringLength("<48 65>"));
    EXPECT_EQ(2U, GetStringLength("<486>"));
    EXPECT_EQ(1U, GetStringLength("<zz4\n8>"));
}

TEST(ContentLexer, UnfinishedStringsEndWithTheContent)
{
    EXPECT_EQ("Sabc=3", Lex("(abc"));
    EXPECT_EQ("Sab\\=2", Lex("(ab\\"));
    EXPECT_EQ("S4142=2", Lex("<4142"));
    EXPECT_EQ("S=0", Lex("("));
    EXPECT_EQ("S=0", Lex("<"));
}

TEST(ContentLexer, UnmatchedDelimitersAreSkipped) { EXPECT_EQ("n1 n2 n3", Lex(") 1 } { 2 > 3")); }

TEST(ContentLexer, BytesAboveAsciiAreRegular) { EXPECT_EQ("o\x80\xFF n1", Lex("\x80\xFF 1")); }

TEST(ContentLexer, EveryPairOfBytesEnds)
{
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const char bytes[] = {static_cast<char>(first), static_cast<char>(second)};
            ContentLexer lexer(std::string_view(bytes, 2));
            int tokens = 0;
            while (lexer.Next().type != TokenType::kEnd) ++tokens;
            ASSERT_LE(tokens, 2);
            ASSERT_TRUE(lexer.GetRest().empty());
        }
    }
}

TEST(DecodeName, ResolvesHexadecimalPairs)
{
    EXPECT_EQ("A B", DecodeName("A#20B"));
    EXPECT_EQ("\xCB\xCE", DecodeName("#CB#ce"));
    EXPECT_EQ("#", DecodeName("#23"));
}

TEST(DecodeName, KeepsIncompletePairs)
{
    EXPECT_EQ("A#2", DecodeName("A#2"));
    EXPECT_EQ("A#", DecodeName("A#"));
    EXPECT_EQ("A#G0", DecodeName("A#G0"));
}
