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

}  // namespace
