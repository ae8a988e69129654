#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CppCoreMacros.h"

namespace {

struct Report {
    std::string category;
    int level;
    unsigned int code;
    std::string expression;
    std::string file;
    int line;
};

std::vector<Report> gReports;

void Receive(const char* category, int level, unsigned int code, const char* expression,
             const char* file, int line)
{
    gReports.push_back({category, level, code, expression, file, line});
}

class CoreChecks : public testing::Test {
protected:
    CoreChecks()
    {
        gReports.clear();
        SetCoreErrorReceiver(Receive);
    }
    ~CoreChecks() override { SetCoreErrorReceiver(nullptr); }
};

unsigned int FailWhenOdd(int number)
{
    CHECK_CORE_CONDITION("Miscellaneous", 1, number % 2 != 0, CoreErrorCodes::kInvalidParam);
    return CoreErrorCodes::kSuccess;
}

unsigned int FailWhenNull(const int* gmtZone)
{
    CHECK_CORE_POINTER("FileSystem", 4, gmtZone);
    return CoreErrorCodes::kSuccess;
}

unsigned int PassOn(unsigned int status, int level)
{
    CHECK_CORE_CALL("Lockable", level, status);
    return CoreErrorCodes::kSuccess;
}

unsigned int AlwaysFail()
{
    CHECK_CORE_CALL("Miscellaneous", 1, CoreErrorCodes::kNotFound);
    return CoreErrorCodes::kSuccess;
}

TEST_F(CoreChecks, AConditionThatHoldsReturnsItsCodeAndReports)
{
    EXPECT_EQ(CoreErrorCodes::kInvalidParam, FailWhenOdd(3));
    ASSERT_EQ(1u, gReports.size());
    EXPECT_EQ("Miscellaneous", gReports[0].category);
    EXPECT_EQ(1, gReports[0].level);
    EXPECT_EQ(CoreErrorCodes::kInvalidParam, gReports[0].code);
    EXPECT_EQ("number % 2 != 0", gReports[0].expression);
}

TEST_F(CoreChecks, AConditionThatDoesNotHoldIsSilent)
{
    EXPECT_EQ(CoreErrorCodes::kSuccess, FailWhenOdd(4));
    EXPECT_TRUE(gReports.empty());
}

TEST_F(CoreChecks, ANullPointerIsNamedInTheExpression)
{
    EXPECT_EQ(CoreErrorCodes::kNullPointer, FailWhenNull(nullptr));
    ASSERT_EQ(1u, gReports.size());
    EXPECT_EQ("(gmtZone) == nullptr", gReports[0].expression);
    EXPECT_EQ(CoreErrorCodes::kNullPointer, gReports[0].code);
    EXPECT_EQ("FileSystem", gReports[0].category);
    EXPECT_EQ(4, gReports[0].level);
}

TEST_F(CoreChecks, APointerThatIsSetIsSilent)
{
    const int zone = 0;
    EXPECT_EQ(CoreErrorCodes::kSuccess, FailWhenNull(&zone));
    EXPECT_TRUE(gReports.empty());
}

TEST_F(CoreChecks, ACallsCodeIsPassedOnAndReported)
{
    EXPECT_EQ(0x0100100Bu, PassOn(0x0100100Bu, 1));
    ASSERT_EQ(1u, gReports.size());
    EXPECT_EQ(0x0100100Bu, gReports[0].code);
    EXPECT_EQ("status", gReports[0].expression);
    EXPECT_EQ("Lockable", gReports[0].category);
}

TEST_F(CoreChecks, TheCodeZeroNeverReachesAReport)
{
    EXPECT_EQ(CoreErrorCodes::kSuccess, PassOn(0, 1));
    EXPECT_TRUE(gReports.empty());
}

TEST_F(CoreChecks, ALiteralCodeIsAnUnconditionalFailure)
{
    EXPECT_EQ(CoreErrorCodes::kNotFound, AlwaysFail());
    ASSERT_EQ(1u, gReports.size());
    EXPECT_EQ("CoreErrorCodes::kNotFound", gReports[0].expression);
}

TEST_F(CoreChecks, ASilentReportStillReturnsItsCode)
{
    EXPECT_EQ(CoreErrorCodes::kError, PassOn(CoreErrorCodes::kError, 0));
    for (const Report& report : gReports) EXPECT_EQ(0, report.level);
}

TEST_F(CoreChecks, AReportTellsThePlaceOfTheCheck)
{
    (void)AlwaysFail();  // Only the report counts here.
    ASSERT_EQ(1u, gReports.size());
    EXPECT_NE(std::string::npos, gReports[0].file.find("core_checks.cpp"));
    EXPECT_GT(gReports[0].line, 0);
    EXPECT_LT(gReports[0].line, __LINE__);
}

TEST_F(CoreChecks, WithoutAReceiverTheCodeComesBackAllTheSame)
{
    SetCoreErrorReceiver(nullptr);
    EXPECT_EQ(CoreErrorCodes::kStopped, PassOn(CoreErrorCodes::kStopped, 1));
    EXPECT_TRUE(gReports.empty());
}

TEST_F(CoreChecks, TheLineHasTwoBlanksBehindEachField)
{
    EXPECT_EQ(
        "Error='CoreErrorCodes::kNotFound'  File='src/GDateTime.cpp'  Line=12  "
        "Expression='(zone) == nullptr'  Code='117440512'  ",
        FormatCoreError("CoreErrorCodes::kNotFound", "src/GDateTime.cpp", 12, "(zone) == nullptr",
                        CoreErrorCodes::kNotFound));
}

TEST_F(CoreChecks, TheLinesCodeIsUnsigned)
{
    const std::string line = FormatCoreError("", "", 0, "", 0xFF000001u);
    EXPECT_NE(std::string::npos, line.find("Code='4278190081'  "));
}

}  // namespace
