#include "JSONReports.h"

namespace {

class JSONParse : public JSONReports {};

TEST_F(JSONParse, ParsesAnObject)
{
    json value = "before";
    EXPECT_EQ(CoreErrorCodes::kSuccess, GJSONUtils::Parse(R"({"child":[{"id":"1"},2]})", value));
    EXPECT_EQ("1", value["child"][0]["id"]);
    EXPECT_EQ(2, value["child"][1]);
    EXPECT_TRUE(Reports().empty());
}

TEST_F(JSONParse, ParsesScalarValues)
{
    json value;
    EXPECT_EQ(CoreErrorCodes::kSuccess, GJSONUtils::Parse("5", value));
    EXPECT_EQ(5, value);
    EXPECT_EQ(CoreErrorCodes::kSuccess, GJSONUtils::Parse("null", value));
    EXPECT_TRUE(value.is_null());
}

struct Unreadable {
    const char* name;
    const char* text;
};

void PrintTo(const Unreadable& row, std::ostream* out) { *out << row.text; }

class JSONParseOfUnreadable : public JSONReports, public testing::WithParamInterface<Unreadable> {};

TEST_P(JSONParseOfUnreadable, ReportsAnErrorAndKeepsTheValue)
{
    json value = {{"id", "before"}};
    EXPECT_EQ(CoreErrorCodes::kInvalidParam, GJSONUtils::Parse(GetParam().text, value));
    EXPECT_EQ(json({{"id", "before"}}), value);
    ExpectOneError(CoreErrorCodes::kInvalidParam, "CoreErrorCodes::kInvalidParam");
    EXPECT_NE(std::string::npos, Reports()[0].file.find("core-agent/cpp-core/src/GJSONUtils."))
        << Reports()[0].file;
}

INSTANTIATE_TEST_SUITE_P(Texts, JSONParseOfUnreadable,
                         testing::Values(Unreadable{"Empty", ""}, Unreadable{"WhiteSpace", "  \n"},
                                         Unreadable{"BlockComment", "/* none */ {}"},
                                         Unreadable{"LineComment", "{} // none"},
                                         Unreadable{"Unfinished", R"({"child":[)"},
                                         Unreadable{"TrailingText", "{} {}"},
                                         Unreadable{"NotUTF8", "{\"id\":\"\xff\"}"},
                                         Unreadable{"HugeNumber", "1e999999"}),
                         [](const auto& row) { return std::string(row.param.name); });

std::string Nested(size_t depth, const std::string& inner = "")
{
    return std::string(depth, '[') + inner + std::string(depth, ']');
}

TEST_F(JSONParse, ParsesATextAtTheLimitOfNesting)
{
    json value;
    EXPECT_EQ(CoreErrorCodes::kSuccess,
              GJSONUtils::Parse(Nested(GJSONUtils::kMaximumNesting), value));
    EXPECT_EQ(Nested(GJSONUtils::kMaximumNesting), value.dump());
}

TEST_F(JSONParse, RefusesATextBeyondTheLimitOfNesting)
{
    json value = "before";
    EXPECT_EQ(CoreErrorCodes::kInvalidParam,
              GJSONUtils::Parse(Nested(GJSONUtils::kMaximumNesting + 1), value));
    EXPECT_EQ(CoreErrorCodes::kInvalidParam, GJSONUtils::Parse(Nested(1000000), value));
    EXPECT_EQ("before", value);
    ASSERT_EQ(2U, Reports().size());
    EXPECT_EQ("CoreErrorCodes::kInvalidParam", Reports()[0].expression);
}

TEST_F(JSONParse, BracketsInsideStringsAreNotNesting)
{
    const std::string brackets(GJSONUtils::kMaximumNesting + 1, '{');
    json value;
    EXPECT_EQ(CoreErrorCodes::kSuccess,
              GJSONUtils::Parse(R"(["a\\","\")" + brackets + R"(\\\"["])", value));
    EXPECT_EQ("a\\", value[0]);
    EXPECT_EQ("\"" + brackets + "\\\"[", value[1]);
}

TEST_F(JSONParse, TextsBesideEachOtherAreNotNesting)
{
    std::string text = "[";
    for (size_t index = 0; index <= GJSONUtils::kMaximumNesting; ++index) text += "{},[],";
    json value;
    EXPECT_EQ(CoreErrorCodes::kSuccess, GJSONUtils::Parse(text + "1]", value));
}

TEST_F(JSONParse, ThrowingFormThrowsTheLibrarysParseErrorAndLogsNothing)
{
    EXPECT_EQ(json({1, 2}), GJSONUtils::ParseOrThrow("[1,2]"));
    EXPECT_THROW((void)GJSONUtils::ParseOrThrow("[1,2"), json::parse_error);
    EXPECT_THROW((void)GJSONUtils::ParseOrThrow(Nested(1000000)), json::parse_error);
    EXPECT_TRUE(Reports().empty());
}

TEST_F(JSONParse, ClearEmptiesArraysAndObjectsOnly)
{
    json object = {{"a", {1, {{"b", json::array({"c"})}}}}};
    GJSONUtils::Clear(object);
    EXPECT_EQ(json::object(), object);
    json array = GJSONUtils::ParseOrThrow(Nested(GJSONUtils::kMaximumNesting));
    GJSONUtils::Clear(array);
    EXPECT_EQ(json::array(), array);
    json text = "text";
    GJSONUtils::Clear(text);
    EXPECT_EQ("text", text);
}

}  // namespace
