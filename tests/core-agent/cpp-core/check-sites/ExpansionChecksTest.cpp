#include <gmock/gmock.h>

#include "ExpectedReport.h"
#include "GFileSystem.h"
#include "GFileSystemSpec.h"
#include "ScriptedPlatformString.h"

using testing::ElementsAre;

namespace {

typedef ScriptedPlatformString::Step Step;

constexpr unsigned int kCode = 0x0C001005;
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
        EXPECT_EQ(log.Reports()[index].category, "FileSystem");
        EXPECT_EQ(log.Reports()[index].level, level);
        EXPECT_EQ(log.Reports()[index].message, message);
    }
    // Without the lines that are no failure reports.
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

TEST_F(ExpansionChecks, SuccessTakesTheExpandedText)
{
    EXPECT_EQ(Expand(), 0U);
    EXPECT_EQ(path, "/expanded");
    EXPECT_THAT(script.calls, ElementsAre("utf8 /before", "expand"));
    EXPECT_TRUE(log.Reports().empty());
}

TEST_F(ExpansionChecks, EmptyPathAsksForNothing)
{
    script.utf8 = Step::kThrows;
    std::string empty;
    EXPECT_EQ(GFileSystem::OSExpandPath(empty), 0U);
    EXPECT_TRUE(script.calls.empty());
}

TEST_F(ExpansionChecks, TextThatIsNotUTF8IsTriedOnceMoreWithAWarning)
{
    script.utf8 = Step::kGivesNothing;
    EXPECT_EQ(Expand(), 0U);
    EXPECT_EQ(path, "/expanded");
    EXPECT_THAT(script.calls, ElementsAre("utf8 /before", "MacRoman /before", "expand"));
    EXPECT_EQ(log.Reports().size(), 1U);
    ExpectLine(0, "Warning", kWarning);
}

TEST_F(ExpansionChecks, NoStringObjectAtAllIsAFailure)
{
    script.utf8 = Step::kGivesNothing;
    script.macRoman = Step::kGivesNothing;
    EXPECT_EQ(Expand(), kCode);
    EXPECT_EQ(path, "/before");
    EXPECT_EQ(log.Reports().size(), 2U);
    ExpectLine(0, "Warning", kWarning);
    ExpectReports(FailureReports(), {kErr});
}

TEST_F(ExpansionChecks, ExceptionOfTheExpansionIsLoggedAndAFailure)
{
    script.expansion = Step::kThrows;
    EXPECT_EQ(Expand(), kCode);
    EXPECT_EQ(path, "/before");
    EXPECT_EQ(log.Reports().size(), 2U);
    ExpectLine(0, "Error", "GFileSystem::OSExpandPath(), exception caught\n- no such form");
    ExpectReports(FailureReports(), {kErr});
}

TEST_F(ExpansionChecks, ExceptionsOfTheDecodersAreAFailureToo)
{
    script.utf8 = Step::kThrows;
    EXPECT_EQ(Expand(), kCode);
    script.utf8 = Step::kGivesNothing;
    script.macRoman = Step::kThrows;
    EXPECT_EQ(Expand(), kCode);
    EXPECT_EQ(path, "/before");
    ExpectReports(FailureReports(), {kErr, kErr});
}

TEST_F(ExpansionChecks, PercentInTheDescriptionIsText)
{
    script.expansion = Step::kThrows;
    script.description = "100%s";
    EXPECT_EQ(Expand(), kCode);
    ExpectLine(0, "Error", "GFileSystem::OSExpandPath(), exception caught\n- 100%s");
}

TEST_F(ExpansionChecks, SetFullPathReportsTheCallAndKeepsItsPath)
{
    GFileSystemSpec spec;
    ASSERT_EQ(spec.SetFullPath("/first"), 0U);
    script.utf8 = Step::kGivesNothing;
    script.macRoman = Step::kGivesNothing;
    EXPECT_EQ(spec.SetFullPath("/second"), kCode);
    EXPECT_EQ(spec.GetFullPath(), "/expanded");
    ExpectReports(FailureReports(), {kErr, kSetFullPath});
}

TEST_F(ExpansionChecks, AppendThatFailsLeavesThePath)
{
    GFileSystemSpec spec;
    ASSERT_EQ(spec.SetFullPath("/first"), 0U);
    script.expansion = Step::kThrows;
    EXPECT_EQ(&spec.AppendPathComponent("x"), &spec);
    EXPECT_EQ(spec.GetFullPath(), "/expanded");
}

// The constructor goes on with the text as it is, and SetFullPath fails for it once more.
TEST_F(ExpansionChecks, ConstructorThatCannotExpandHasNoPath)
{
    script.expansion = Step::kThrows;
    EXPECT_EQ(GFileSystemSpec("/before").GetFullPath(), "");
    EXPECT_THAT(script.calls, ElementsAre("utf8 /before", "expand", "utf8 /before", "expand"));
    ExpectReports(FailureReports(), {kErr, kErr, kSetFullPath});
}

}  // namespace
