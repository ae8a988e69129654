#include "docfonts/html/HtmlText.h"

#include <gtest/gtest.h>

namespace {

using docfonts::EncodeBase64;
using docfonts::FormatNumber;
using docfonts::ToShownText;

TEST(HtmlText, ShownTextHasNoControlCharacters)
{
    EXPECT_EQ(U"a b c", ToShownText("a\nb\tc", 100));
    EXPECT_EQ(U"\uFFFD\uFFFD\uFFFD\uFFFD", ToShownText("\x01\x7F\xFF\xE2\x80\xAE", 100));
    EXPECT_EQ(U"\uFFFDx", ToShownText("\xEF\xBF\xBEx", 100));
    EXPECT_EQ(U"", ToShownText("", 100));
}

TEST(HtmlText, LongTextIsCut)
{
    EXPECT_EQ(U"äö", ToShownText("äö", 2));
    EXPECT_EQ(U"äö…", ToShownText("äöü", 2));
    EXPECT_EQ(U"xx…", ToShownText(std::string(100'000, 'x'), 2));
}

TEST(HtmlText, EscapesForTextAndAttributes)
{
    std::string html;
    docfonts::AppendName("<a b=\"c\" d='&'>", html);
    EXPECT_EQ("&lt;a b=&quot;c&quot; d=&#39;&amp;&#39;&gt;", html);
}

TEST(HtmlText, NumbersHaveThousands)
{
    EXPECT_EQ("0", FormatNumber(0));
    EXPECT_EQ("999", FormatNumber(999));
    EXPECT_EQ("1,000", FormatNumber(1000));
    EXPECT_EQ("12,345,678", FormatNumber(12'345'678));
}

TEST(HtmlText, Base64IsPadded)
{
    EXPECT_EQ("", EncodeBase64(""));
    EXPECT_EQ("Zg==", EncodeBase64("f"));
    EXPECT_EQ("Zm8=", EncodeBase64("fo"));
    EXPECT_EQ("Zm9v", EncodeBase64("foo"));
    EXPECT_EQ("//79", EncodeBase64("\xff\xfe\xfd"));
}

}  // namespace
