#include <gtest/gtest.h>

#include "CrossPluginUtils.h"
#include "RecordingTrace.h"

namespace {

using CrossPluginUtils::GetSettingFromJSONBuffer;

constexpr int kUntouched = 4711;

class Settings : public testing::Test {
protected:
    Settings() { ClearTraces(); }

    int Get(const char* buffer, const char* key = "DialogSuppression")
    {
        return GetSettingFromJSONBuffer(buffer, key, &value);
    }
    // Expects -1, an unchanged value and exactly one trace with this text.
    void ExpectFailure(const char* buffer, const std::string& trace)
    {
        EXPECT_EQ(-1, Get(buffer)) << buffer;
        EXPECT_EQ(kUntouched, value);
        EXPECT_EQ(1U, CountTraces(trace)) << trace;
    }
    void ExpectValue(const std::string& text, int expected)
    {
        EXPECT_EQ(0, Get(("{\"DialogSuppression\":\"" + text + "\"}").c_str())) << text;
        EXPECT_EQ(expected, value) << text;
    }

    int value = kUntouched;
};

TEST_F(Settings, ReadsADecimalIntegerFromAString)
{
    ExpectValue("0", 0);
    ExpectValue("1", 1);
    ExpectValue("2", 2);
    ExpectValue("-5", -5);
    ExpectValue("007", 7);
}

TEST_F(Settings, ReadsTextWithoutDigitsAsZero)
{
    ExpectValue("twelve", 0);
    value = kUntouched;
    ExpectValue("", 0);
}

TEST_F(Settings, EndsTheNumberAtTheFirstOtherCharacter)
{
    ExpectValue("12 angry", 12);
    ExpectValue("0x10", 0);
    ExpectValue("3.9", 3);
}

TEST_F(Settings, KeepsTheLow32Bits)
{
    ExpectValue("4294967297", 1);
    ExpectValue("2147483648", INT32_MIN);
}

TEST_F(Settings, IgnoresOtherMembers)
{
    EXPECT_EQ(0, Get(R"({"A":1,"DialogSuppression":"2","Z":[{}]})"));
    EXPECT_EQ(2, value);
}

TEST_F(Settings, TracesAKeyThatIsMissing)
{
    ExpectFailure(R"({"Other":"1"})",
                  "GetSettingFromObject() could not find key 'DialogSuppression'");
}

TEST_F(Settings, TracesAMemberOfTheWrongType)
{
    for (const char* buffer : {R"({"DialogSuppression":1})", R"({"DialogSuppression":true})",
                               R"({"DialogSuppression":null})", R"({"DialogSuppression":["1"]})"}) {
        ClearTraces();
        ExpectFailure(buffer, "GetSettingFromObject() could not find key 'DialogSuppression'");
    }
}

TEST_F(Settings, TracesANullKeyAsNULL)
{
    EXPECT_EQ(-1, Get(R"({"Other":"1"})", nullptr));
    EXPECT_EQ(kUntouched, value);
    EXPECT_TRUE(HasTrace("GetSettingFromObject() could not find key 'NULL'"));
}

TEST_F(Settings, RejectsANullBuffer) { ExpectFailure(nullptr, "Could not parse 'NULL'"); }

TEST_F(Settings, RejectsAnEmptyBuffer) { ExpectFailure("", "Could not parse ''"); }

TEST_F(Settings, RejectsInvalidJSON)
{
    ExpectFailure("rubbish", "Could not parse 'rubbish'");
    ExpectFailure("{\"DialogSuppression\":\"1\"", "Could not parse '{\"DialogSuppression\":\"1\"'");
}

TEST_F(Settings, RejectsComments)
{
    ExpectFailure("/* c */ {\"DialogSuppression\":\"1\"}",
                  "Could not parse '/* c */ {\"DialogSuppression\":\"1\"}'");
}

TEST_F(Settings, RejectsEveryArray)
{
    for (const std::string buffer :
         {"[1,2]", "[]", "[null]", R"([{"DialogSuppression":"1"}])", R"(["DialogSuppression"])"}) {
        ClearTraces();
        ExpectFailure(buffer.c_str(), "Could not parse '" + buffer + "'");
    }
}

TEST_F(Settings, RejectsABareString)
{
    ExpectFailure(R"("Dialog\u0053uppression")", "What is this? 'DialogSuppression'");
    EXPECT_FALSE(HasTraceBeginningWith("Could not parse"));
}

TEST_F(Settings, RejectsEveryOtherTypeWithoutATrace)
{
    for (const char* buffer : {"null", "7", "1.5", "true"}) {
        EXPECT_EQ(-1, Get(buffer)) << buffer;
        EXPECT_EQ(kUntouched, value);
    }
    EXPECT_FALSE(HasTraceBeginningWith("Could not parse"));
    EXPECT_FALSE(HasTraceBeginningWith("What is this?"));
    EXPECT_FALSE(HasTraceBeginningWith("GetSettingFromObject() could not find"));
}

TEST_F(Settings, TextThatIsNestedTooDeepDoesNotParse)
{
    const std::string deep = std::string(100000, '[') + std::string(100000, ']');
    const std::string text = R"({"DialogSuppression":"1","Other":)" + deep + "}";
    ExpectFailure(text.c_str(), "Could not parse '" + text + "'");
}

}  // namespace
