#include "ExpectedReport.h"
#include "GJSONUtils.h"

namespace {

constexpr char kHeader[] = "core-agent/cpp-core/include/GJSONUtils.";
constexpr char kSource[] = "core-agent/cpp-core/src/GJSONUtils.";

class JSONChecks : public testing::Test {
protected:
    // For a value of any kind, and for a text.
    void ExpectFromBoth(const json& source, unsigned int code, const char* expression)
    {
        const char* const name = code == CoreErrorCodes::kNotFound
                                     ? "CoreErrorCodes::kNotFound"
                                     : "CoreErrorCodes::kInvalidParam";
        const ExpectedReport expected = {"Miscellaneous", expression, code, 1, name, kHeader};
        json value;
        EXPECT_EQ(GJSONUtils::GetValueForKey(source, "id", value), code);
        std::string text;
        EXPECT_EQ(GJSONUtils::GetValueForKey(source, "id", text), code);
        ExpectReports(log.Reports(), {expected, expected});
    }
    RecordingLog log;
};

TEST_F(JSONChecks, EmptyObject)
{
    ExpectFromBoth(json::object(), CoreErrorCodes::kNotFound, "json.empty()");
}

TEST_F(JSONChecks, NoObject)
{
    ExpectFromBoth(5, CoreErrorCodes::kInvalidParam, "!json.is_object()");
}

TEST_F(JSONChecks, AbsentKeyHasNoLineAtAnyLevel)
{
    std::string text;
    EXPECT_EQ(GJSONUtils::GetValueForKey(json{{"label", "x"}}, "id", text),
              CoreErrorCodes::kNotFound);
    EXPECT_TRUE(log.Reports().empty());
}

TEST_F(JSONChecks, TextOfAnotherType)
{
    std::string text;
    EXPECT_EQ(GJSONUtils::GetValueForKey(json{{"id", 5}}, "id", text), CoreErrorCodes::kNotFound);
    ExpectReports(log.Reports(), {{"Miscellaneous", "CoreErrorCodes::kNotFound", 0x07000000, 1,
                                   "CoreErrorCodes::kNotFound", kHeader}});
}

TEST_F(JSONChecks, TextThatIsNoJSON)
{
    json value;
    EXPECT_EQ(GJSONUtils::Parse("{", value), CoreErrorCodes::kInvalidParam);
    ExpectReports(log.Reports(), {{"Miscellaneous", "CoreErrorCodes::kInvalidParam", 0x04000000, 1,
                                   "CoreErrorCodes::kInvalidParam", kSource}});
}

}  // namespace
