#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "ProgramFixture.h"
#include "application/ExitStatus.h"

using testing::HasSubstr;

// Runs scripts with the program itself.
class SessionProgram : public ProgramFixture {
protected:
    // Runs a script with these lines, written to the file "session". Returns the exit status.
    int Run(const std::string& lines, const std::string& arguments = "session")
    {
        std::ofstream(folder + "/session") << lines;
        return RunProgram("script " + arguments, "subscribes-all", "session");
    }
};

TEST_F(SessionProgram, EndsWithStatus0IfEveryExpectationIsMet)
{
    EXPECT_EQ(headless::kAllOpened,
              Run("# two documents\nnew\nsave a.pdf\nnew\nexpect documents 2\n"
                  "expect file a.pdf\nclose a.pdf\nexpect documents 1"))
        << errors;
    EXPECT_EQ("", errors);
}

TEST_F(SessionProgram, AnInvalidLineEndsTheScript)
{
    EXPECT_EQ(headless::kWrongUse, Run("new\nopn a\nsave a.pdf\n"));
    EXPECT_THAT(errors, testing::StartsWith("headless-host: session:2: unknown action \"opn\"; "));
    EXPECT_FALSE(std::filesystem::exists(folder + "/a.pdf"));
}

TEST_F(SessionProgram, AnUnmetExpectationDoesNotEndTheScript)
{
    EXPECT_EQ(headless::kNotAsExpected, Run("expect documents 3\nnew\nsave a.pdf\n"));
    EXPECT_EQ("headless-host: session:1: expected number of documents 3, found 0\n", errors);
    EXPECT_TRUE(std::filesystem::exists(folder + "/a.pdf"));
}

TEST_F(SessionProgram, AFailureThatNoCallHadIsReported)
{
    EXPECT_EQ(headless::kNotAsExpected, Run("fail NoSuchOperation\n"));
    EXPECT_EQ("headless-host: session: fail NoSuchOperation: the plug-in made no such call\n",
              errors);
}

TEST_F(SessionProgram, AFileThatCannotBeOpenedIsReported)
{
    EXPECT_EQ(headless::kFileNotOpened, Run("open nowhere.ai\nexpect documents 0\n"));
    EXPECT_THAT(errors, HasSubstr("headless-host: nowhere.ai: "));
}

TEST_F(SessionProgram, ReadsLinesFromStandardInput)
{
    for (const char* const arguments : {"-", ""}) {
        EXPECT_EQ(headless::kAllOpened, Run("new\nshow documents\nquit\nopn", arguments)) << errors;
        EXPECT_THAT(output, HasSubstr("  * 1  Untitled-1\n"));
        EXPECT_EQ(headless::kNotAsExpected, Run("new\nexpect documents 2", arguments));
        EXPECT_THAT(errors, HasSubstr("standard input:2: "));
    }
}

TEST_F(SessionProgram, AMissingScriptIsReported)
{
    EXPECT_EQ(headless::kWrongUse, Run("", "none"));
    EXPECT_THAT(errors, HasSubstr("headless-host: none: "));
}

TEST_F(SessionProgram, ALineInsideOfACallIsPlayedAfterTheLastLineToo)
{
    EXPECT_EQ(headless::kNotAsExpected, Run("simulate\nduring ReleaseSuite expect documents 7\n"));
    EXPECT_THAT(errors, HasSubstr("expected number of documents 7, found 0"));
}
