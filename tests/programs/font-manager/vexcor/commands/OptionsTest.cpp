#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <fstream>
#include <iterator>

#include "console/CommandPages.h"
#include "vexcor/commands/CommandLine.h"
#include "vexcor/commands/ExitStatus.h"

using console::ParseOutcome;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using vexcor::Command;
using vexcor::Options;

namespace {

struct CommandCase {
    Command command;
    const char* name;
    bool hasOperand;
    bool hasJson;
};

constexpr CommandCase kCommands[] = {
    {Command::kWatch, "watch", false, false}, {Command::kInstall, "install", false, false},
    {Command::kAdd, "add", true, false},      {Command::kList, "list", false, true},
    {Command::kWhy, "why", true, true},       {Command::kRepair, "repair", false, false},
};

ParseOutcome Parse(std::vector<const char*> arguments, Options& options, std::string& text)
{
    arguments.insert(arguments.begin(), "Vexcor");
    return ParseCommandLine(static_cast<int>(arguments.size()), arguments.data(), options, text);
}

TEST(OptionsTest, EveryCommandTakesItsOperandAndTheLog)
{
    for (const CommandCase& known : kCommands) {
        std::vector<const char*> arguments = {known.name, "--log", "l"};
        if (known.hasOperand) arguments.push_back("operand");
        if (known.hasJson) arguments.push_back("--json");
        Options options;
        std::string text;
        ASSERT_EQ(ParseOutcome::kRun, Parse(arguments, options, text)) << known.name << text;
        EXPECT_EQ(known.command, options.command);
        EXPECT_EQ(known.hasOperand ? "operand" : "", options.operand);
        EXPECT_EQ(known.hasJson, options.json);
        EXPECT_EQ("l", options.log);
    }
}

TEST(OptionsTest, WithTakesItsCommandAsItIs)
{
    Options options;
    std::string text;
    ASSERT_EQ(ParseOutcome::kRun,
              Parse({"--log", "with", "with", "a.ai", "b.ai", "--", "list", "--help", "--", "x"},
                    options, text))
        << text;
    EXPECT_EQ(Command::kWith, options.command);
    EXPECT_THAT(options.operands, testing::ElementsAre("a.ai", "b.ai"));
    EXPECT_THAT(options.words, testing::ElementsAre("list", "--help", "--", "x"));
    EXPECT_EQ("with", options.log);
}

TEST(OptionsTest, TheFormerNameOfWatchWorksAndIsHidden)
{
    Options options;
    options.command = Command::kAdd;
    std::string text;
    ASSERT_EQ(ParseOutcome::kRun, Parse({"run"}, options, text)) << text;
    EXPECT_EQ(Command::kWatch, options.command);
    ASSERT_EQ(ParseOutcome::kDone, Parse({"--help"}, options, text));
    EXPECT_THAT(text, Not(HasSubstr(", run")));
}

TEST(OptionsTest, WrongUseIsReportedInOneLineThatNamesIt)
{
    const std::vector<std::pair<std::vector<const char*>, const char*>> wrong = {
        {{}, "subcommand"},
        {{"bogus"}, "\"bogus\""},
        {{"add"}, "FOLDER"},
        {{"why"}, "NAME"},
        {{"with"}, "FILE"},
        {{"with", "--", "true"}, "FILE"},
        {{"with", "a.ai", "--"}, "command"},
        {{"with", "--bogus", "a.ai", "--", "true"}, "--bogus"},
        {{"why", ""}, "empty"},
        {{"why", "a", "b"}, "b"},
        {{"repair", "--json"}, "--json"},
        {{"list", "--log"}, "--log"},
        {{"watch", "list"}, "list"},
        {{"--readme"}, "--readme"}};
    for (const auto& [arguments, word] : wrong) {
        Options options;
        std::string text;
        EXPECT_EQ(ParseOutcome::kWrongUse, Parse(arguments, options, text)) << word;
        EXPECT_THAT(text, HasSubstr(word));
        EXPECT_EQ(std::string::npos, text.find('\n')) << text;
    }
}

TEST(OptionsTest, HelpAndVersionAreForStandardOutput)
{
    Options options;
    std::string text;
    ASSERT_EQ(ParseOutcome::kDone, Parse({"--help"}, options, text));
    for (const CommandCase& known : kCommands) EXPECT_THAT(text, HasSubstr(known.name));
    for (const auto& row : vexcor::kExitStatuses) EXPECT_THAT(text, HasSubstr(row.meaning));
    ASSERT_EQ(ParseOutcome::kDone, Parse({"why", "--help"}, options, text));
    EXPECT_THAT(text, HasSubstr("Usage: Vexcor why [OPTIONS] NAME\n"));
    ASSERT_EQ(ParseOutcome::kDone, Parse({"--version"}, options, text));
    EXPECT_THAT(text, testing::MatchesRegex("Vexcor [0-9.]+\n"));
}

TEST(OptionsTest, TheReadmeHasTheGeneratedReference)
{
    Options options;
    std::ifstream stream(README_FILE);
    const std::string readme{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_THAT(readme, EndsWith("\n" + console::WriteReadmeSection(*MakeCommandLine(options),
                                                                    vexcor::ListHelpSections())))
        << "run: write-pages --readme Vexcor README.md";
}

}  // namespace
