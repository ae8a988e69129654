#include "JSONReports.h"

namespace {

class JSONGetValueForKey : public JSONReports {
protected:
    // What each kind of value is asked for in the same way.
    static void ExpectNothingFrom(const json& source, unsigned int code)
    {
        std::string text = "before";
        EXPECT_EQ(GJSONUtils::GetValueForKey(source, "id", text), code);
        EXPECT_EQ(text, "before");
        json value = "before";
        EXPECT_EQ(GJSONUtils::GetValueForKey(source, "id", value), code);
        EXPECT_EQ(value, "before");
    }
    static bool IsFromTheHeader(const LoggedReport& report)
    {
        return report.file.find("core-agent/cpp-core/include/GJSONUtils") != std::string::npos;
    }
};

TEST_F(JSONGetValueForKey, GivesAText)
{
    std::string text = "before";
    EXPECT_EQ(GJSONUtils::GetValueForKey(json{{"id", "7"}, {"label", "Libraries"}}, "label", text),
              CoreErrorCodes::kSuccess);
    EXPECT_EQ(text, "Libraries");
    EXPECT_TRUE(Reports().empty());
}

TEST_F(JSONGetValueForKey, GivesAnEmptyText)
{
    std::string text = "before";
    EXPECT_EQ(GJSONUtils::GetValueForKey(json{{"id", ""}}, "id", text), CoreErrorCodes::kSuccess);
    EXPECT_EQ(text, "");
}

TEST_F(JSONGetValueForKey, GivesValuesOfAnyKind)
{
    const json source = {{"child", json::array({1, "2"})}, {"id", 5}, {"title", nullptr}};
    json value;
    EXPECT_EQ(GJSONUtils::GetValueForKey(source, "child", value), CoreErrorCodes::kSuccess);
    EXPECT_EQ(value, json::array({1, "2"}));
    EXPECT_EQ(GJSONUtils::GetValueForKey(source, "id", value), CoreErrorCodes::kSuccess);
    EXPECT_EQ(value, 5);
    EXPECT_EQ(GJSONUtils::GetValueForKey(source, "title", value), CoreErrorCodes::kSuccess);
    EXPECT_TRUE(value.is_null());
    EXPECT_TRUE(Reports().empty());
}

TEST_F(JSONGetValueForKey, KeysAreComparedWithTheirCase)
{
    std::string text;
    EXPECT_EQ(GJSONUtils::GetValueForKey(json{{"ID", "7"}}, "id", text), CoreErrorCodes::kNotFound);
}

TEST_F(JSONGetValueForKey, EmptyValuesAreNotFound)
{
    for (const json& source : {json(), json::object(), json::array()}) {
        ExpectNothingFrom(source, CoreErrorCodes::kNotFound);
    }
}

TEST_F(JSONGetValueForKey, EmptyValueIsReportedAsAnError)
{
    std::string text;
    (void)GJSONUtils::GetValueForKey(json::object(), "id", text);  // only the report counts
    ExpectOneError(CoreErrorCodes::kNotFound, "json.empty()");
    EXPECT_TRUE(IsFromTheHeader(Reports()[0])) << Reports()[0].file;
}

TEST_F(JSONGetValueForKey, WhatIsNoObjectIsAnInvalidParameter)
{
    for (const json& source : {json(5), json(""), json("id"), json(true), json::array({1})}) {
        ExpectNothingFrom(source, CoreErrorCodes::kInvalidParam);
    }
}

TEST_F(JSONGetValueForKey, WhatIsNoObjectIsReportedAsAnError)
{
    json value;
    (void)GJSONUtils::GetValueForKey(json(5), "id", value);  // only the report counts
    ExpectOneError(CoreErrorCodes::kInvalidParam, "!json.is_object()");
    EXPECT_TRUE(IsFromTheHeader(Reports()[0])) << Reports()[0].file;
}

TEST_F(JSONGetValueForKey, AbsentKeyIsNotFoundAndItsReportSilent)
{
    ExpectNothingFrom(json{{"label", "x"}}, CoreErrorCodes::kNotFound);
    EXPECT_TRUE(Reports().empty());
}

TEST_F(JSONGetValueForKey, TextThatIsOfAnotherTypeIsNotFoundAndReportedAsAnError)
{
    const std::vector<json> others = {json(5), json(), json(false), json::object(),
                                      json::array({"text"})};
    for (const json& other : others) {
        Reports().clear();
        std::string text = "before";
        EXPECT_EQ(GJSONUtils::GetValueForKey(json{{"id", other}}, "id", text),
                  CoreErrorCodes::kNotFound)
            << other;
        EXPECT_EQ(text, "before") << other;
        ExpectOneError(CoreErrorCodes::kNotFound, "CoreErrorCodes::kNotFound");
        EXPECT_TRUE(IsFromTheHeader(Reports().at(0))) << other;
    }
}

}  // namespace
