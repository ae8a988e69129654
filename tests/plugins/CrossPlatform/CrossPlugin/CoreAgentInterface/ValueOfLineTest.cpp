#include <gtest/gtest.h>

#include <string>

#include "GetPathToRunningProcess.h"

namespace {

struct Line {
    const char* name;
    const char* line;
    const char* value;
};

void PrintTo(const Line& row, std::ostream* out) { *out << testing::PrintToString(row.line); }

class ValueOfLine : public testing::TestWithParam<Line> {};

TEST_P(ValueOfLine, IsTheTextAfterTheFirstEqualsSign)
{
    std::string value = "before";
    EXPECT_TRUE(GetValueAtEndOfThisLine(GetParam().line, &value));
    EXPECT_EQ(GetParam().value, value);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ValueOfLine,
    testing::Values(Line{"Plain", "vexcor.path=/a/b/Vexcor", "/a/b/Vexcor"},
                    Line{"LineFeed", "key=value\n", "value"},
                    Line{"ReturnAndLineFeed", "key=value\r\n", "value"},
                    Line{"ReturnAlone", "key=value\rother=x", "value"},
                    Line{"ReturnAfterALineFeed", "key=one\ntwo\rthree", "one\ntwo"},
                    Line{"SecondEquals", "key=a=b", "a=b"}, Line{"Empty", "key=", ""},
                    Line{"EmptyWithReturn", "key=\r", ""}, Line{"EmptyWithLineFeed", "key=\n", ""},
                    Line{"NothingIsTrimmed", "key = \tvalue ", " \tvalue "},
                    Line{"EqualsAtTheStart", "=value", "value"}, Line{"EqualsAlone", "=", ""}),
    [](const auto& row) { return std::string(row.param.name); });

class LineWithoutValue : public testing::TestWithParam<const char*> {};

TEST_P(LineWithoutValue, ReturnsFalseAndKeepsTheValue)
{
    std::string value = "before";
    EXPECT_FALSE(GetValueAtEndOfThisLine(GetParam(), &value));
    EXPECT_EQ("before", value);
}

INSTANTIATE_TEST_SUITE_P(Lines, LineWithoutValue,
                         testing::Values("", "vexcor.path", "vexcor.path: /a/b", "\r", "\n",
                                         "key\r=value", "\r\nkey=value", "key\n=value"));

}  // namespace
