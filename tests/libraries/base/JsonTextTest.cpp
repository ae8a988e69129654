#include "base/JsonText.h"

#include <gtest/gtest.h>

using base::PrintJson;

TEST(PrintJsonTest, OneLine)
{
    EXPECT_EQ(PrintJson(nlohmann::json{{"b", 1}, {"a", {"x", nullptr}}}),
              R"({"a":["x",null],"b":1})");
}

TEST(PrintJsonTest, OrderedMembersRemainInOrder)
{
    nlohmann::ordered_json value;
    value["b"] = 1;
    value["a"] = 2;
    EXPECT_EQ(PrintJson(value), R"({"b":1,"a":2})");
}

TEST(PrintJsonTest, LinesWithAnIndent)
{
    EXPECT_EQ(PrintJson(nlohmann::json{{"a", 1}}, 2), "{\n  \"a\": 1\n}");
}

TEST(PrintJsonTest, BytesThatAreNotUtf8AreReplaced)
{
    EXPECT_EQ(PrintJson(nlohmann::json("caf\xE9")), "\"caf\uFFFD\"");
    EXPECT_EQ(PrintJson(nlohmann::ordered_json("caf\xE9")), "\"caf\uFFFD\"");
    EXPECT_EQ(PrintJson(nlohmann::json("caf\xC3\xA9")), "\"caf\xC3\xA9\"");
}
