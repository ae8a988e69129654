#include "JSONReports.h"

namespace {

class JSONGetValueForKey : public JSONReports {
protected:
    // Expects the same failure, and an unchanged value, for T = std::string and T = json.
    static void ExpectFailure(const json& source, unsigned int code)
    {
        std::string text = "before";
        EXPECT_EQ(code, GJSONUtils::GetValueForKey(source, "id", text));
        EXPECT_EQ("before", text);
        json value = "before";
        EXPECT_EQ(code, GJSONUtils::GetValueForKey(source, "id", value));
        EXPECT_EQ("before", value);
    }
    static bool IsFromTheHeader(const LoggedReport& report)
    {
        return report.file.find("core-agent/cpp-core/include/GJSONUtils") != std::string::npos;
    }
};

TEST_F(JSONGetValueForKey, CopiesAString)
{
    std::string text = "before";
    EXPECT_EQ(CoreErrorCodes::kSuccess,
              GJSONUtils::GetValueForKey(json{{"id", "7"}, {"label", "Libraries"}}, "label", text));
    EXPECT_EQ("Libraries", text);
    EXPECT_TRUE(Reports().empty());
}

TEST_F(JSONGetValueForKey, CopiesAnEmptyString)
{
    std::string text = "before";
    EXPECT_EQ(CoreErrorCodes::kSuccess, GJSONUtils::GetValueForKey(json{{"id", ""}}, "id", text));
    EXPECT_EQ("", text);
}

TEST_F(JSONGetValueForKey, CopiesJSONValuesOfAnyType)
{
    const json source = {{"child", json::array({1, "2"})}, {"id", 5}, {"title", nullptr}};
    json value;
    EXPECT_EQ(CoreErrorCodes::kSuccess, GJSONUtils::GetValueForKey(source, "child", value));
    EXPECT_EQ(json::array({1, "2"}), value);
    EXPECT_EQ(CoreErrorCodes::kSuccess, GJSONUtils::GetValueForKey(source, "id", value));
    EXPECT_EQ(5, value);
    EXPECT_EQ(CoreErrorCodes::kSuccess, GJSONUtils::GetValueForKey(source, "title", value));
    EXPECT_TRUE(value.is_null());
    EXPECT_TRUE(Reports().empty());
}

TEST_F(JSONGetValueForKey, KeysAreCaseSensitive)
{
    std::string text;
    EXPECT_EQ(CoreErrorCodes::kNotFound, GJSONUtils::GetValueForKey(json{{"ID", "7"}}, "id", text));
}

TEST_F(JSONGetValueForKey, EmptyValuesAreNotFound)
{
    for (const json& source : {json(), json::object(), json::array()}) {
        ExpectFailure(source, CoreErrorCodes::kNotFound);
    }
}

TEST_F(JSONGetValueForKey, EmptyValueIsReportedAsAnError)
{
    std::string text;
    (void)GJSONUtils::GetValueForKey(json::object(), "id", text);  // only the report is tested
    ExpectOneError(CoreErrorCodes::kNotFound, "json.empty()");
    EXPECT_TRUE(IsFromTheHeader(Reports()[0])) << Reports()[0].file;
}

TEST_F(JSONGetValueForKey, ValueThatIsNotAnObjectIsAnInvalidParameter)
{
    for (const json& source : {json(5), json(""), json("id"), json(true), json::array({1})}) {
        ExpectFailure(source, CoreErrorCodes::kInvalidParam);
    }
}

TEST_F(JSONGetValueForKey, ValueThatIsNotAnObjectIsReportedAsAnError)
{
    json value;
    (void)GJSONUtils::GetValueForKey(json(5), "id", value);  // only the report is tested
    ExpectOneError(CoreErrorCodes::kInvalidParam, "!json.is_object()");
    EXPECT_TRUE(IsFromTheHeader(Reports()[0])) << Reports()[0].file;
}

TEST_F(JSONGetValueForKey, AbsentKeyIsNotFoundAndNotLogged)
{
    ExpectFailure(json{{"label", "x"}}, CoreErrorCodes::kNotFound);
    EXPECT_TRUE(Reports().empty());
}

TEST_F(JSONGetValueForKey, MemberThatIsNotAStringIsNotFoundAndReportedAsAnError)
{
    const std::vector<json> others = {json(5), json(), json(false), json::object(),
                                      json::array({"text"})};
    for (const json& other : others) {
        Reports().clear();
        std::string text = "before";
        EXPECT_EQ(CoreErrorCodes::kNotFound,
                  GJSONUtils::GetValueForKey(json{{"id", other}}, "id", text))
            << other;
        EXPECT_EQ("before", text) << other;
        ExpectOneError(CoreErrorCodes::kNotFound, "CoreErrorCodes::kNotFound");
        EXPECT_TRUE(IsFromTheHeader(Reports().at(0))) << other;
    }
}

}  // namespace
