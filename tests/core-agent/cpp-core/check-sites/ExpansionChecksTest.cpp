#include <gmock/gmock.h>

#include "ExpectedReport.h"
#include "GFileSystem.h"
#include "GFileSystemSpec.h"
#include "ScriptedPlatformString.h"

using testing::ElementsAre;

namespace {

typedef ScriptedPlatformString::Step Step;

constexpr unsigned int kCode = GFileSystem::kInvalidCharacterForFileSystemRepresentation;
constexpr char kName[] = "GFileSystem::kInvalidCharacterForFileSystemRepresentation";
constexpr char kWarning[] =
    "GFileSystem::OSExpandPath(), called with invalid UTF8 Path. Attempting convserion with other "
    "encodings.";

const ExpectedReport kErr = {
    "FileSystem", "err", kCode, 1, kName, "core-agent/cpp-core/src/GFileSystem."};
const ExpectedReport kSetFullPath = {"FileSystem", "GFileSystem::OSExpandPath(strCopy)",
                                     kCode,        1,
                                     kName,        "core-agent/cpp-core/src/GFileSystemSpec."};

class ExpansionChecks : public testing::Test {
protected:
    ExpansionChecks() { script = ScriptedPlatformString(); }

    unsigned int Expand()
    {
        path = "/before";
        return GFileSystem::OSExpandPath(path);
    }
    void ExpectLine(std::size_t index, const char* level, const std::string& message)
    {
        ASSERT_LT(index, log.Reports().size());
        EXPECT_EQ("FileSystem", log.Reports()[index].category);
        EXPECT_EQ(level, log.Reports()[index].level);
        EXPECT_EQ(message, log.Reports()[index].message);
    }
    // Omits the log lines that are not failure reports.
    std::vector<LoggedReport> FailureReports()
    {
        std::vector<LoggedReport> reports;
        for (const LoggedReport& report : log.Reports()) {
            if (!report.expression.empty()) reports.push_back(report);
        }
        return reports;
    }

    ScriptedPlatformString& script = ScriptedPlatformString::Current();
    RecordingLog log;
    std::string path;
};

TEST_F(ExpansionChecks, SuccessReplacesThePathByTheExpandedText)
{
    EXPECT_EQ(CoreErrorCodes::kSuccess, Expand());
    EXPECT_EQ("/expanded", path);
    EXPECT_THAT(script.calls, ElementsAre("utf8 /before", "expand"));
    EXPECT_TRUE(log.Reports().empty());
}

TEST_F(ExpansionChecks, EmptyPathCallsNoPlatformOperation)
{
    script.utf8 = Step::kThrows;
    std::string empty;
    EXPECT_EQ(CoreErrorCodes::kSuccess, GFileSystem::OSExpandPath(empty));
    EXPECT_TRUE(script.calls.empty());
}

TEST_F(ExpansionChecks, TextThatIsNotUTF8IsTriedAsMacRomanWithAWarning)
{
    script.utf8 = Step::kReturnsNull;
    EXPECT_EQ(CoreErrorCodes::kSuccess, Expand());
    EXPECT_EQ("/expanded", path);
    EXPECT_THAT(script.calls, ElementsAre("utf8 /before", "MacRoman /before", "expand"));
    EXPECT_EQ(1U, log.Reports().size());
    ExpectLine(0, "Warning", kWarning);
}

TEST_F(ExpansionChecks, PathThatNoDecoderAcceptsIsReported)
{
    script.utf8 = Step::kReturnsNull;
    script.macRoman = Step::kReturnsNull;
    EXPECT_EQ(kCode, Expand());
    EXPECT_EQ("/before", path);
    EXPECT_EQ(2U, log.Reports().size());
    ExpectLine(0, "Warning", kWarning);
    ExpectReports(FailureReports(), {kErr});
}

TEST_F(ExpansionChecks, ExceptionOfTheExpansionIsLoggedAndReported)
{
    script.expansion = Step::kThrows;
    EXPECT_EQ(kCode, Expand());
    EXPECT_EQ("/before", path);
    EXPECT_EQ(2U, log.Reports().size());
    ExpectLine(0, "Error", "GFileSystem::OSExpandPath(), exception caught\n- no such form");
    ExpectReports(FailureReports(), {kErr});
}

TEST_F(ExpansionChecks, ExceptionsOfTheDecodersAreReported)
{
    script.utf8 = Step::kThrows;
    EXPECT_EQ(kCode, Expand());
    script.utf8 = Step::kReturnsNull;
    script.macRoman = Step::kThrows;
    EXPECT_EQ(kCode, Expand());
    EXPECT_EQ("/before", path);
    ExpectReports(FailureReports(), {kErr, kErr});
}

TEST_F(ExpansionChecks, PercentSignInAnExceptionIsNotAConversion)
{
    script.expansion = Step::kThrows;
    script.description = "100%s";
    EXPECT_EQ(kCode, Expand());
    ExpectLine(0, "Error", "GFileSystem::OSExpandPath(), exception caught\n- 100%s");
}

TEST_F(ExpansionChecks, FailedSetFullPathIsReportedAndKeepsThePath)
{
    GFileSystemSpec spec;
    ASSERT_EQ(CoreErrorCodes::kSuccess, spec.SetFullPath("/first"));
    script.utf8 = Step::kReturnsNull;
    script.macRoman = Step::kReturnsNull;
    EXPECT_EQ(kCode, spec.SetFullPath("/second"));
    EXPECT_EQ("/expanded", spec.GetFullPath());
    ExpectReports(FailureReports(), {kErr, kSetFullPath});
}

TEST_F(ExpansionChecks, FailedAppendKeepsThePath)
{
    GFileSystemSpec spec;
    ASSERT_EQ(CoreErrorCodes::kSuccess, spec.SetFullPath("/first"));
    script.expansion = Step::kThrows;
    EXPECT_EQ(&spec, &spec.AppendPathComponent("x"));
    EXPECT_EQ("/expanded", spec.GetFullPath());
}

// The constructor continues with the unexpanded text, for which SetFullPath then fails too.
TEST_F(ExpansionChecks, ConstructorThatCannotExpandGivesAnEmptyPath)
{
    script.expansion = Step::kThrows;
    EXPECT_EQ("", GFileSystemSpec("/before").GetFullPath());
    EXPECT_THAT(script.calls, ElementsAre("utf8 /before", "expand", "utf8 /before", "expand"));
    ExpectReports(FailureReports(), {kErr, kErr, kSetFullPath});
}

}  // namespace
