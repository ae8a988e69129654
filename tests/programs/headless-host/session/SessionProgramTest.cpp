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

// Runs sessions with the program itself.
class SessionProgram : public testing::Test {
protected:
    SessionProgram() { std::filesystem::create_directory(folder + "/core"); }

    // `lines` stand in the file "session".
    int Run(const std::string& lines, const std::string& arguments = "session")
    {
        std::ofstream(folder + "/session") << lines;
        const std::string command =
            "cd '" + folder + "' && '" HEADLESS_HOST_PROGRAM "' script " + arguments + " --home '" +
            folder + "/home' --plugin '" GUEST_FOLDER "/subscribes-all.aip' >out 2>err <session";
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

TEST_F(SessionProgram, AllAsExpected)
{
    EXPECT_EQ(Run("# two documents\nnew\nsave a.pdf\nnew\nexpect documents 2\n"
                  "expect file a.pdf\nclose a.pdf\nexpect documents 1"),
              headless::kAllOpened)
        << errors;
    EXPECT_EQ(errors, "");
}

TEST_F(SessionProgram, AWrongLineEndsTheSession)
{
    EXPECT_EQ(Run("new\nopn a\nsave a.pdf\n"), headless::kWrongUse);
    EXPECT_THAT(errors, testing::StartsWith("headless-host: session:2: \"opn\" is no action; "));
    EXPECT_FALSE(std::filesystem::exists(folder + "/a.pdf"));
}

TEST_F(SessionProgram, AnUnmetExpectationDoesNotEndIt)
{
    EXPECT_EQ(Run("expect documents 3\nnew\nsave a.pdf\n"), headless::kNotAsExpected);
    EXPECT_EQ(errors, "headless-host: session:1: expected is number of documents 3, found is 0\n");
    EXPECT_TRUE(std::filesystem::exists(folder + "/a.pdf"));
}

TEST_F(SessionProgram, AFileThatCanNotBeOpened)
{
    EXPECT_EQ(Run("open nowhere.ai\nexpect documents 0\n"), headless::kFileNotOpened);
    EXPECT_THAT(errors, HasSubstr("headless-host: nowhere.ai: "));
}

TEST_F(SessionProgram, StandardInput)
{
    for (const char* const arguments : {"-", ""}) {
        EXPECT_EQ(Run("new\nshow documents\nquit\nopn", arguments), headless::kAllOpened) << errors;
        EXPECT_THAT(output, HasSubstr("  * 1  Untitled-1\n"));
        EXPECT_EQ(Run("new\nexpect documents 2", arguments), headless::kNotAsExpected);
        EXPECT_THAT(errors, HasSubstr("standard input:2: "));
    }
}

TEST_F(SessionProgram, ASessionThatIsNotThere)
{
    EXPECT_EQ(Run("", "none"), headless::kWrongUse);
    EXPECT_THAT(errors, HasSubstr("headless-host: none: "));
}
