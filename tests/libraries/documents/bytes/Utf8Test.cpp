#include "documents/bytes/Utf8.h"

#include <gtest/gtest.h>

using namespace documents;

TEST(Utf8, ValidTextStays)
{
    const std::string text = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xED\x9F\xBF\xEE\x80\x80";
    EXPECT_EQ(text, ToValidUtf8(text));
}

TEST(Utf8, EachWrongByteIsReplaced)
{
    EXPECT_EQ("a\uFFFDb", ToValidUtf8("a\xFF\x62"));
    EXPECT_EQ("\uFFFD\uFFFD", ToValidUtf8("\xCB\xCE"));
    EXPECT_EQ("\uFFFD\uFFFD", ToValidUtf8("\xE2\x82"));
}

TEST(Utf8, OverlongFormsSurrogatesAndTooHighOnesAreWrong)
{
    EXPECT_EQ("\uFFFD\uFFFD", ToValidUtf8("\xC0\x80"));
    EXPECT_EQ("\uFFFD\uFFFD\uFFFD", ToValidUtf8("\xE0\x80\x80"));
    EXPECT_EQ("\uFFFD\uFFFD\uFFFD", ToValidUtf8("\xED\xA0\x80"));
    EXPECT_EQ("\uFFFD\uFFFD\uFFFD\uFFFD", ToValidUtf8("\xF0\x80\x80\x80"));
    EXPECT_EQ("\uFFFD\uFFFD\uFFFD\uFFFD", ToValidUtf8("\xF4\x90\x80\x80"));
}

TEST(Utf8, MessagesAreOneShortLine)
{
    EXPECT_EQ("a b c", ToMessageText("a\nb\tc"));
    EXPECT_EQ(200u, ToMessageText(std::string(5000, 'x')).size());
}
