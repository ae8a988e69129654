#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "ScratchFolder.h"
#include "application/ExitStatus.h"
#include "validator/Rules.h"

using namespace headless;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

namespace fs = std::filesystem;

// Runs `headless-host validate` with a folder for temporary files of the test's own.
class Validate : public testing::Test {
protected:
    Validate() { fs::create_directory(scratch.Path("tmp")); }
    ~Validate() override { EXPECT_TRUE(fs::is_empty(scratch.Path("tmp"))); }

    int Run(const std::string& arguments)
    {
        const std::string command =
            "cd '" + scratch.Path() + "' && TMPDIR='" + scratch.Path("tmp") +
            "' '" HEADLESS_HOST_PROGRAM "' validate " + arguments + " >out 2>err </dev/null";
        const int status = std::system(command.c_str());
        output = ReadFile("out");
        errors = ReadFile("err");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string ReadFile(const std::string& name) const
    {
        std::ifstream stream(scratch.Path(name));
        std::stringstream text;
        text << stream.rdbuf();
        return text.str();
    }

    const ScratchFolder scratch;
    std::string output;
    std::string errors;
};

}  // namespace

TEST_F(Validate, ListsTheRulesWithoutAPlugin)
{
    EXPECT_EQ(kAllOpened, Run("--list")) << errors;
    ASSERT_FALSE(kRules.empty());
    EXPECT_THAT(output, HasSubstr(kRules.front().sentence));
    EXPECT_THAT(output, HasSubstr(kRules.back().sentence));
    EXPECT_EQ(kAllOpened, Run("--list --json")) << errors;
    std::istringstream lines(output);
    size_t count = 0;
    for (std::string line; std::getline(lines, line); ++count) {
        EXPECT_EQ(kRules[count].number, nlohmann::json::parse(line)["rule"]);
    }
    EXPECT_EQ(kRules.size(), count);
}

TEST_F(Validate, AModuleThatCannotBeLoadedIsNoFinding)
{
    EXPECT_EQ(kPluginNotLoaded, Run("nowhere.aip"));
    EXPECT_THAT(errors, StartsWith("headless-host: cannot load the plug-in: "));
    EXPECT_THAT(errors, HasSubstr("nowhere.aip"));
    EXPECT_EQ(kPluginNotLoaded, Run(TEST_PLUGINS_FOLDER "/no-entry.aip"));
    EXPECT_THAT(errors, HasSubstr("has no PluginMain"));
    EXPECT_EQ("", output);
}

TEST_F(Validate, AModuleThatEndsTheProcessAtItsLoadIsAFinding)
{
    EXPECT_EQ(kPluginBrokeRule, Run(ENDS_PROCESS_AT_LOAD " --output-dir found")) << errors;
    EXPECT_THAT(output, HasSubstr("failed: rule 101, case load\n"));
    EXPECT_THAT(output, HasSubstr("ended the process with status 3\n"));
    EXPECT_THAT(ReadFile("found/101-load.session"), HasSubstr("start\n"));
}

TEST_F(Validate, AnUnknownRuleIsReported)
{
    EXPECT_EQ(kWrongUse, Run(TEST_PLUGINS_FOLDER "/well-behaved.aip --rule 99"));
    EXPECT_EQ("headless-host: rule 99: unknown; headless-host validate --list prints all rules\n",
              errors);
}

TEST_F(Validate, ARuleOfAnotherProfileIsReported)
{
    for (const RuleRow& row : kRules) {
        if (!row.isForTypeloftOnly) continue;
        const std::string rule = std::to_string(row.number);
        EXPECT_EQ(kWrongUse, Run(TEST_PLUGINS_FOLDER "/well-behaved.aip --rule " + rule));
        EXPECT_EQ("headless-host: rule " + rule + ": needs --profile typeloft\n", errors);
        return;
    }
    ADD_FAILURE() << "no rule of this profile";
}
