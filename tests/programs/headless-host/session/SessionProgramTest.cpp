#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "ScratchFolder.h"
#include "application/ExitStatus.h"

using testing::HasSubstr;

// Runs scripts with the program itself.
class SessionProgram : public testing::Test {
protected:
    SessionProgram() { std::filesystem::create_directory(folder + "/core"); }

    // Runs a script with these lines, written to the file "session". Returns the exit status.
    int Run(const std::string& lines, const std::string& arguments = "session")
    {
        std::ofstream(folder + "/session") << lines;
        const std::string command = "cd '" + folder + "' && '" HEADLESS_HOST_PROGRAM "' script " +
                                    arguments + " --home '" + folder +
                                    "/home' --plugin '" TEST_PLUGINS_FOLDER
                                    "/subscribes-all.aip' >out 2>err <session";
        const int status = std::system(command.c_str());
        output = ReadFile("out");
        errors = ReadFile("err");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string ReadFile(const std::string& name) const
    {
        std::ifstream stream(folder + "/" + name);
        std::stringstream text;
        text << stream.rdbuf();
        return text.str();
    }

    const ScratchFolder scratch;
    const std::string folder = scratch.Path();
    std::string output;
    std::string errors;
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
