#include "vexcor/Options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "vexcor/Manual.h"
#include "vexcor/commands/ExitStatus.h"

using testing::HasSubstr;
using vexcor::Options;
using vexcor::ParseOutcome;

namespace {

ParseOutcome Parse(std::vector<const char*> arguments, Options& options, std::string& text)
{
    arguments.insert(arguments.begin(), "Vexcor");
    return ParseCommandLine(static_cast<int>(arguments.size()), arguments.data(), options, text);
}

TEST(OptionsTest, EveryCommandIsTakenWithItsOperandAndTheLog)
{
    for (const vexcor::CommandRow& row : vexcor::kCommands) {
        std::vector<const char*> arguments = {row.name, "--log", "l"};
        if (row.operand) arguments.push_back("operand");
        if (row.hasJson) arguments.push_back("--json");
        Options options;
        std::string text;
        ASSERT_EQ(Parse(arguments, options, text), ParseOutcome::kRun) << row.name << text;
        EXPECT_EQ(options.command, row.command);
        EXPECT_EQ(options.operand, row.operand ? "operand" : "");
        EXPECT_EQ(options.json, row.hasJson);
        EXPECT_EQ(options.log, "l");
    }
}

TEST(OptionsTest, WrongUseIsToldInOneLineThatNamesIt)
{
    const std::vector<std::pair<std::vector<const char*>, const char*>> wrong = {
        {{}, "subcommand"},
        {{"bogus"}, "\"bogus\""},
        {{"add"}, "FOLDER"},
        {{"why"}, "NAME"},
        {{"why", ""}, "empty"},
        {{"why", "a", "b"}, "b"},
        {{"run", "--json"}, "--json"},
        {{"list", "--log"}, "--log"},
        {{"run", "list"}, "list"}};
    for (const auto& [arguments, word] : wrong) {
        Options options;
        std::string text;
        EXPECT_EQ(Parse(arguments, options, text), ParseOutcome::kWrongUse) << word;
        EXPECT_THAT(text, HasSubstr(word));
        EXPECT_EQ(text.find('\n'), std::string::npos) << text;
    }
}

TEST(OptionsTest, HelpAndVersionAreForStandardOutput)
{
    Options options;
    std::string text;
    ASSERT_EQ(Parse({"--help"}, options, text), ParseOutcome::kDone);
    for (const vexcor::CommandRow& row : vexcor::kCommands) EXPECT_THAT(text, HasSubstr(row.name));
    for (const auto& row : vexcor::kExitStatuses) EXPECT_THAT(text, HasSubstr(row.meaning));
    ASSERT_EQ(Parse({"why", "--help"}, options, text), ParseOutcome::kDone);
    EXPECT_THAT(text, HasSubstr("NAME"));
    ASSERT_EQ(Parse({"--version"}, options, text), ParseOutcome::kDone);
    EXPECT_THAT(text, testing::MatchesRegex("Vexcor [0-9.]+\n"));
}

TEST(OptionsTest, ThePageInTheFolderIsWhatTheProgramWrites)
{
    std::ifstream stream(README_FILE);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), vexcor::WriteReadme());
}

}  // namespace
