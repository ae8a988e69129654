#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <fstream>
#include <iterator>

#include "application/ExitStatus.h"
#include "commands/CommandLine.h"
#include "console/BashCompletion.h"
#include "console/CommandPages.h"
#include "session/ActionTable.h"
#include "session/ExpectAction.h"

using namespace headless;
using console::ParseOutcome;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

namespace {

ParseOutcome Parse(std::vector<const char*> arguments, Options& options, std::string& text)
{
    arguments.insert(arguments.begin(), "headless-host");
    return ParseCommandLine(static_cast<int>(arguments.size()), arguments.data(), options, text);
}

// The visible options of a command, without --help.
std::vector<const CLI::Option*> ListOptions(const CLI::App& app, const std::string& command)
{
    const CLI::App* const described = app.get_subcommand(command);
    return described->get_options([described](const CLI::Option* option) {
        return option->nonpositional() && !option->get_group().empty() &&
               option != described->get_help_ptr();
    });
}

}  // namespace

TEST(OptionsTest, EveryOptionSetsItsMember)
{
    Options options;
    std::string text;
    ASSERT_EQ(
        ParseOutcome::kRun,
        Parse({"open",      "a", "b",        "--json", "--home",      "h",   "--library",    "l",
               "--library", "m", "--plugin", "p",      "--log",       "c",   "--language",   "ja",
               "--journal", "j", "--exec",   "true",   "--keep-open", "1.5", "--interactive"},
              options, text))
        << text;
    EXPECT_THAT(options.files, testing::ElementsAre("a", "b"));
    EXPECT_THAT(options.libraries, testing::ElementsAre("l", "m"));
    EXPECT_TRUE(options.json && options.interactive);
    EXPECT_EQ("hpcj", options.home + options.plugin + options.log + options.journal);
    EXPECT_EQ("ja", options.language);
    EXPECT_EQ("true", options.command);
    EXPECT_EQ(1.5, options.keepOpen);
}

TEST(OptionsTest, OpenAndScriptHaveTheSameOptions)
{
    Options described;
    const auto app = MakeCommandLine(described);
    const auto rows = ListOptions(*app, "open");
    EXPECT_EQ(rows.size(), ListOptions(*app, "script").size());
    for (const CLI::Option* const row : rows) {
        const std::string name = row->get_name();
        std::vector<const char*> arguments = {"script", name.c_str()};
        if (row->get_items_expected_max() > 0) {
            arguments.push_back(row->get_option_text() == "SECONDS" ? "1" : "de");
        }
        Options options;
        std::string text;
        EXPECT_EQ(ParseOutcome::kRun, Parse(arguments, options, text)) << name << text;
        EXPECT_EQ(Command::kScript, options.action);
        arguments[0] = "open";
        arguments.push_back("a");
        EXPECT_EQ(ParseOutcome::kRun, Parse(arguments, options, text)) << name << text;
        EXPECT_EQ(Command::kOpen, options.action);
    }
}

TEST(OptionsTest, FontsHasOptionsOfItsOwn)
{
    Options options;
    std::string text;
    ASSERT_EQ(ParseOutcome::kRun,
              Parse({"fonts", "a", "--names", "--recursive", "--timeout", "2"}, options, text))
        << text;
    EXPECT_EQ(Command::kFonts, options.action);
    EXPECT_TRUE(options.names && options.recursive);
    EXPECT_EQ(2, options.timeout);
    EXPECT_EQ(ParseOutcome::kWrongUse, Parse({"fonts", "a", "--names", "--json"}, options, text));
}

TEST(OptionsTest, ValidateHasOptionsOfItsOwn)
{
    Options options;
    std::string text;
    ASSERT_EQ(
        ParseOutcome::kRun,
        Parse({"validate",  "--rule", "302",      "p.aip",   "--rule", "101",          "--level",
               "10",        "--seed", "3",        "--count", "400",    "--jobs",       "4",
               "--time",    "1.5",    "--json",   "--junit", "j",      "--output-dir", "o",
               "--profile", "any",    "--length", "50"},
              options, text))
        << text;
    EXPECT_EQ(Command::kValidate, options.action);
    EXPECT_EQ("p.aip", options.plugin);
    EXPECT_THAT(options.validate.rules, testing::ElementsAre(302, 101));
    EXPECT_EQ(10, options.validate.level);
    EXPECT_EQ(3U, options.validate.seed);
    EXPECT_EQ(400U, options.validate.count);
    EXPECT_EQ(50U, options.validate.length);
    EXPECT_EQ(4U, options.validate.jobs);
    EXPECT_EQ(1.5, options.validate.seconds);
    EXPECT_TRUE(options.json);
    EXPECT_EQ("joany",
              options.validate.junit + options.validate.outputFolder + options.validate.profile);
}

TEST(OptionsTest, ValidateNeedsAPluginUnlessItLists)
{
    Options options;
    std::string text;
    EXPECT_EQ(ParseOutcome::kWrongUse, Parse({"validate"}, options, text));
    EXPECT_THAT(text, HasSubstr("PLUGIN"));
    ASSERT_EQ(ParseOutcome::kRun, Parse({"validate", "--list"}, options, text)) << text;
    EXPECT_TRUE(options.validate.lists);
}

TEST(OptionsTest, ARandomScriptHasAtLeastOneMessage)
{
    Options options;
    std::string text;
    EXPECT_EQ(ParseOutcome::kWrongUse,
              Parse({"validate", "p.aip", "--length", "0"}, options, text));
    EXPECT_THAT(text, HasSubstr("--length"));
}

TEST(OptionsTest, AScriptIsAFileOrStandardInput)
{
    for (const char* const file : {"s.txt", "-"}) {
        Options options;
        std::string text;
        ASSERT_EQ(ParseOutcome::kRun, Parse({"script", file}, options, text)) << text;
        EXPECT_EQ(file, options.session);
    }
    Options options;
    std::string text;
    EXPECT_EQ(ParseOutcome::kWrongUse, Parse({"script", "a", "b"}, options, text));
}

TEST(OptionsTest, TheFormerNamesWorkAndAreHidden)
{
    Options options;
    std::string text;
    ASSERT_EQ(ParseOutcome::kRun, Parse({"run", "s", "--hold", "2"}, options, text)) << text;
    EXPECT_EQ(Command::kScript, options.action);
    EXPECT_EQ("s", options.session);
    EXPECT_EQ(2, options.keepOpen);
    ASSERT_EQ(ParseOutcome::kDone, Parse({"--help"}, options, text));
    EXPECT_THAT(text, Not(HasSubstr("run,")));
    EXPECT_THAT(text, Not(HasSubstr(", run")));
    ASSERT_EQ(ParseOutcome::kDone, Parse({"run", "--help"}, options, text));
    EXPECT_THAT(text, HasSubstr("Usage: headless-host script [OPTIONS] [FILE]\n"));
    EXPECT_THAT(text, Not(HasSubstr("--hold")));
}

TEST(OptionsTest, ALibraryDoesNotSwallowTheFiles)
{
    Options options;
    std::string text;
    ASSERT_EQ(
        ParseOutcome::kRun,
        Parse({"open", "--library", "l", "a", "b", "--library", "m", "c", "d"}, options, text))
        << text;
    EXPECT_THAT(options.files, testing::ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(options.libraries, testing::ElementsAre("l", "m"));
}

TEST(OptionsTest, WrongUseIsReportedInOneLine)
{
    const std::vector<std::vector<const char*>> wrong = {{},
                                                         {"open"},
                                                         {"close", "a"},
                                                         {"open", "a", "--nonsense"},
                                                         {"open", "a", "--language", "tlh"},
                                                         {"open", "a", "--home"},
                                                         {"open", "a", "--keep-open", "-1"},
                                                         {"open", "a", "--hold", "-1"},
                                                         {"fonts", "a", "--timeout", "soon"},
                                                         {"validate", "p", "--level", "11"},
                                                         {"validate", "p", "--jobs", "0"},
                                                         {"validate", "p", "--seed", "0"},
                                                         {"validate", "p", "--rule", "x"},
                                                         {"validate", "p", "--profile", "x"},
                                                         {"--man"},
                                                         {"--readme"}};
    for (const auto& arguments : wrong) {
        Options options;
        std::string text;
        EXPECT_EQ(ParseOutcome::kWrongUse, Parse(arguments, options, text));
        EXPECT_FALSE(text.empty());
        EXPECT_EQ(std::string::npos, text.find('\n')) << text;
    }
}

TEST(OptionsTest, HelpNamesEveryOptionAndExitStatus)
{
    Options options;
    std::string text;
    ASSERT_EQ(ParseOutcome::kDone, Parse({"open", "--help"}, options, text));
    EXPECT_THAT(text, HasSubstr("Usage: headless-host open [OPTIONS] FILE...\n"));
    Options described;
    const auto app = MakeCommandLine(described);
    for (const CLI::Option* const option : ListOptions(*app, "open")) {
        EXPECT_THAT(text, HasSubstr(option->get_name()));
    }
    for (const auto& row : kExitStatuses) EXPECT_THAT(text, HasSubstr(row.meaning));
}

TEST(OptionsTest, TheVersionIsPrinted)
{
    Options options;
    std::string text;
    ASSERT_EQ(ParseOutcome::kDone, Parse({"--version"}, options, text));
    EXPECT_THAT(text, testing::MatchesRegex("headless-host [0-9.]+\n"));
}

TEST(CommandPagesTest, TheReadmeOfHeadlessHostHasTheGeneratedReference)
{
    Options options;
    std::ifstream stream(README_FILE);
    const std::string readme{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_THAT(readme, EndsWith("\n" + console::WriteReadmeSection(*MakeCommandLine(options),
                                                                    ListHelpSections())))
        << "run: write-pages --readme headless-host README.md";
}

TEST(CommandPagesTest, TheManualPageOfHeadlessHostNamesEverything)
{
    Options options;
    const auto app = MakeCommandLine(options);
    std::string page = console::WriteManPage(*app, ListHelpSections());
    page.erase(std::remove(page.begin(), page.end(), '\\'), page.end());
    for (const char* const command : {"open", "script", "fonts", "validate"}) {
        for (const CLI::Option* const option : ListOptions(*app, command)) {
            EXPECT_THAT(page, HasSubstr(option->get_name()));
        }
    }
    for (const auto& row : kActions) EXPECT_THAT(page, HasSubstr(GetUsage(row)));
    for (const auto& row : kExpectations) EXPECT_THAT(page, HasSubstr(GetUsage(row)));
    for (const auto& row : kExitStatuses) EXPECT_THAT(page, HasSubstr(row.meaning));
    EXPECT_THAT(page, Not(HasSubstr("--hold")));
}
