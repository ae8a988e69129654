#include "ExpectedReport.h"
#include "GJSONUtils.h"

namespace {

constexpr char kHeader[] = "core-agent/cpp-core/include/GJSONUtils.";
constexpr char kSource[] = "core-agent/cpp-core/src/GJSONUtils.";

class JSONChecks : public testing::Test {
protected:
    // Expects the same failure and report for T = json and T = std::string.
    void ExpectFromBoth(const json& source, unsigned int code, const char* expression)
    {
        const char* const name = code == CoreErrorCodes::kNotFound
                                     ? "CoreErrorCodes::kNotFound"
                                     : "CoreErrorCodes::kInvalidParam";
        const ExpectedReport expected = {"Miscellaneous", expression, code, 1, name, kHeader};
        json value;
        EXPECT_EQ(code, GJSONUtils::GetValueForKey(source, "id", value));
        std::string text;
        EXPECT_EQ(code, GJSONUtils::GetValueForKey(source, "id", text));
        ExpectReports(log.Reports(), {expected, expected});
    }
    RecordingLog log;
};

TEST_F(JSONChecks, EmptyObjectIsReported)
{
    ExpectFromBoth(json::object(), CoreErrorCodes::kNotFound, "json.empty()");
}

TEST_F(JSONChecks, ValueThatIsNotAnObjectIsReported)
{
    ExpectFromBoth(5, CoreErrorCodes::kInvalidParam, "!json.is_object()");
}

TEST_F(JSONChecks, AbsentKeyIsNotLoggedAtAnyLevel)
{
    std::string text;
    EXPECT_EQ(CoreErrorCodes::kNotFound,
              GJSONUtils::GetValueForKey(json{{"label", "x"}}, "id", text));
    EXPECT_TRUE(log.Reports().empty());
}

TEST_F(JSONChecks, MemberOfAnotherTypeIsReported)
{
    std::string text;
    EXPECT_EQ(CoreErrorCodes::kNotFound, GJSONUtils::GetValueForKey(json{{"id", 5}}, "id", text));
    ExpectReports(log.Reports(),
                  {{"Miscellaneous", "CoreErrorCodes::kNotFound", CoreErrorCodes::kNotFound, 1,
                    "CoreErrorCodes::kNotFound", kHeader}});
}

TEST_F(JSONChecks, TextThatIsNotJSONIsReported)
{
    json value;
    EXPECT_EQ(CoreErrorCodes::kInvalidParam, GJSONUtils::Parse("{", value));
    ExpectReports(log.Reports(),
                  {{"Miscellaneous", "CoreErrorCodes::kInvalidParam", CoreErrorCodes::kInvalidParam,
                    1, "CoreErrorCodes::kInvalidParam", kSource}});
}

}  // namespace
