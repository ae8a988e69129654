#include "JSONReports.h"

namespace {

class JSONParse : public JSONReports {};

TEST_F(JSONParse, ReadsAText)
{
    json value = "before";
    EXPECT_EQ(GJSONUtils::Parse(R"({"child":[{"id":"1"},2]})", value), CoreErrorCodes::kSuccess);
    EXPECT_EQ(value["child"][0]["id"], "1");
    EXPECT_EQ(value["child"][1], 2);
    EXPECT_TRUE(Reports().empty());
}

TEST_F(JSONParse, ReadsWhatIsNeitherObjectNorArray)
{
    json value;
    EXPECT_EQ(GJSONUtils::Parse("5", value), CoreErrorCodes::kSuccess);
    EXPECT_EQ(value, 5);
    EXPECT_EQ(GJSONUtils::Parse("null", value), CoreErrorCodes::kSuccess);
    EXPECT_TRUE(value.is_null());
}

struct Unreadable {
    const char* name;
    const char* text;
};

void PrintTo(const Unreadable& row, std::ostream* out) { *out << row.text; }

class JSONParseOfUnreadable : public JSONReports, public testing::WithParamInterface<Unreadable> {};

TEST_P(JSONParseOfUnreadable, IsReportedAndKeepsTheValue)
{
    json value = {{"id", "before"}};
    EXPECT_EQ(GJSONUtils::Parse(GetParam().text, value), CoreErrorCodes::kInvalidParam);
    EXPECT_EQ(value, json({{"id", "before"}}));
    ExpectOneError(CoreErrorCodes::kInvalidParam, "CoreErrorCodes::kInvalidParam");
    EXPECT_NE(Reports()[0].file.find("core-agent/cpp-core/src/GJSONUtils."), std::string::npos)
        << Reports()[0].file;
}

INSTANTIATE_TEST_SUITE_P(Texts, JSONParseOfUnreadable,
                         testing::Values(Unreadable{"Empty", ""}, Unreadable{"Blanks", "  \n"},
                                         Unreadable{"BlockComment", "/* none */ {}"},
                                         Unreadable{"LineComment", "{} // none"},
                                         Unreadable{"Unfinished", R"({"child":[)"},
                                         Unreadable{"TrailingText", "{} {}"},
                                         Unreadable{"NotUTF8", "{\"id\":\"\xff\"}"},
                                         Unreadable{"HugeNumber", "1e999999"}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
