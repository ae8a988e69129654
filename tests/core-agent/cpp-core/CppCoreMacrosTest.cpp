#include "CppCoreMacros.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "GLogger.h"
#include "GMutex.h"
#include "RecordingLog.h"

namespace {

class CoreChecks : public testing::Test {
protected:
    RecordingLog log;
    std::vector<LoggedReport>& reports = log.Reports();
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

TEST_F(CoreChecks, TrueConditionIsReportedAndReturnsTheCode)
{
    EXPECT_EQ(CoreErrorCodes::kInvalidParam, FailWhenOdd(3));
    ASSERT_EQ(1U, reports.size());
    EXPECT_EQ("Miscellaneous", reports[0].category);
    EXPECT_EQ("Error", reports[0].level);
    EXPECT_EQ(CoreErrorCodes::kInvalidParam, reports[0].code);
    EXPECT_EQ("number % 2 != 0", reports[0].expression);
}

TEST_F(CoreChecks, FalseConditionIsNotReported)
{
    EXPECT_EQ(CoreErrorCodes::kSuccess, FailWhenOdd(4));
    EXPECT_TRUE(reports.empty());
}

TEST_F(CoreChecks, NullPointerIsNamedInTheExpression)
{
    EXPECT_EQ(CoreErrorCodes::kNullPointer, FailWhenNull(nullptr));
    ASSERT_EQ(1U, reports.size());
    EXPECT_EQ("(gmtZone) == nullptr", reports[0].expression);
    EXPECT_EQ(CoreErrorCodes::kNullPointer, reports[0].code);
    EXPECT_EQ("FileSystem", reports[0].category);
    EXPECT_EQ("Debug", reports[0].level);
}

TEST_F(CoreChecks, ValidPointerIsNotReported)
{
    const int zone = 0;
    EXPECT_EQ(CoreErrorCodes::kSuccess, FailWhenNull(&zone));
    EXPECT_TRUE(reports.empty());
}

TEST_F(CoreChecks, ErrorCodeOfACallIsReportedAndReturned)
{
    EXPECT_EQ(GMutex::kMutexDeadlockErr, PassOn(GMutex::kMutexDeadlockErr, 1));
    ASSERT_EQ(1U, reports.size());
    EXPECT_EQ(GMutex::kMutexDeadlockErr, reports[0].code);
    EXPECT_EQ("status", reports[0].expression);
    EXPECT_EQ("Lockable", reports[0].category);
}

TEST_F(CoreChecks, SuccessIsNotReported)
{
    EXPECT_EQ(CoreErrorCodes::kSuccess, PassOn(CoreErrorCodes::kSuccess, 1));
    EXPECT_TRUE(reports.empty());
}

TEST_F(CoreChecks, ConstantCodeFailsUnconditionally)
{
    EXPECT_EQ(CoreErrorCodes::kNotFound, AlwaysFail());
    ASSERT_EQ(1U, reports.size());
    EXPECT_EQ("CoreErrorCodes::kNotFound", reports[0].expression);
}

TEST_F(CoreChecks, LevelZeroIsNotLoggedButReturnsTheCode)
{
    EXPECT_EQ(CoreErrorCodes::kError, PassOn(CoreErrorCodes::kError, 0));
    EXPECT_TRUE(reports.empty());
}

TEST_F(CoreChecks, ReportHasFileAndLineOfTheCheck)
{
    (void)AlwaysFail();  // only the report is tested
    ASSERT_EQ(1U, reports.size());
    EXPECT_NE(std::string::npos, reports[0].file.find("CppCoreMacrosTest.cpp"));
    EXPECT_GT(reports[0].line, 0);
    EXPECT_LT(reports[0].line, __LINE__);
}

TEST_F(CoreChecks, CodeIsReturnedWithoutAnAppender)
{
    GLogger::GetSharedInstance()->RemoveAllAppenders();
    EXPECT_EQ(CoreErrorCodes::kStopped, PassOn(CoreErrorCodes::kStopped, 1));
    EXPECT_TRUE(reports.empty());
}

TEST_F(CoreChecks, EachFieldOfALineIsFollowedByTwoSpaces)
{
    ReportCoreError("FileSystem", 1, CoreErrorCodes::kNotFound, "(zone) == nullptr",
                    "src/GDateTime.cpp", 12);
    ASSERT_EQ(1U, reports.size());
    EXPECT_EQ(
        "Error='CoreErrorCodes::kNotFound'  File='src/GDateTime.cpp'  Line=12  "
        "Expression='(zone) == nullptr'  Code='117440512'  ",
        reports[0].message);
}

TEST_F(CoreChecks, CodeWithoutANameIsReportedByItsNumber)
{
    ReportCoreError("FileSystem", 1, 0xFF000001U, "err", "file", 1);
    ASSERT_EQ(1U, reports.size());
    EXPECT_EQ(
        "Error='Unknown error code'  File='file'  Line=1  Expression='err'  "
        "Code='4278190081'  ",
        reports[0].message);
}

}  // namespace
