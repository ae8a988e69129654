#include "console/CommandLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SampleCommandLine.h"

using console::ParseOutcome;
using testing::HasSubstr;
using testing::Not;

namespace {

struct Parsed {
    ParseOutcome outcome;
    std::string text;
};

Parsed Parse(std::vector<const char*> arguments, SampleOptions& options)
{
    arguments.insert(arguments.begin(), "pen-case");
    const auto app = MakeSampleCommandLine(options);
    console::HideAliases(*app);
    Parsed parsed;
    parsed.outcome = console::ParseCommandLine(*app, static_cast<int>(arguments.size()),
                                               arguments.data(), parsed.text);
    return parsed;
}

TEST(CommandLineTest, OptionsAreFilledIn)
{
    SampleOptions options;
    const Parsed parsed = Parse({"draw", "a", "--ink", "red"}, options);
    EXPECT_EQ(ParseOutcome::kRun, parsed.outcome) << parsed.text;
    EXPECT_EQ("", parsed.text);
    EXPECT_EQ("a", options.file);
    EXPECT_EQ("red", options.word);
}

TEST(CommandLineTest, AnUnknownCommandIsNamed)
{
    SampleOptions options;
    const Parsed parsed = Parse({"fold", "a"}, options);
    EXPECT_EQ(ParseOutcome::kWrongUse, parsed.outcome);
    EXPECT_EQ("unknown command \"fold\"", parsed.text);
    EXPECT_EQ("unknown command \"fold\"", Parse({"--loud", "fold", "a"}, options).text);
    EXPECT_EQ("unknown command \"\"", Parse({""}, options).text);
}

TEST(CommandLineTest, AnUnknownOptionBeforeTheCommandIsNamed)
{
    SampleOptions options;
    for (const std::vector<const char*>& arguments :
         {std::vector<const char*>{"--loud", "draw", "a"}, {"--loud"}, {"--loud=yes", "draw"}}) {
        const Parsed parsed = Parse(arguments, options);
        EXPECT_EQ(ParseOutcome::kWrongUse, parsed.outcome);
        EXPECT_EQ("unknown option \"--loud\" before the command", parsed.text);
    }
}

TEST(CommandLineTest, AnUnknownOptionIsNamedInOneLine)
{
    SampleOptions options;
    const Parsed parsed = Parse({"draw", "--fast"}, options);
    EXPECT_EQ(ParseOutcome::kWrongUse, parsed.outcome);
    EXPECT_THAT(parsed.text, HasSubstr("--fast"));
    EXPECT_THAT(parsed.text, Not(HasSubstr("\n")));
}

TEST(CommandLineTest, AnAliasIsAcceptedAndNotListed)
{
    SampleOptions options;
    EXPECT_EQ(ParseOutcome::kRun, Parse({"paint", "a"}, options).outcome);
    const Parsed help = Parse({"--help"}, options);
    EXPECT_EQ(ParseOutcome::kDone, help.outcome);
    EXPECT_THAT(help.text, HasSubstr("draw"));
    EXPECT_THAT(help.text, Not(HasSubstr("paint")));
}

TEST(CommandLineTest, TheUsageOfACommandHasTheNameOfTheProgram)
{
    SampleOptions options;
    const Parsed help = Parse({"draw", "--help"}, options);
    EXPECT_EQ(ParseOutcome::kDone, help.outcome);
    EXPECT_THAT(help.text, HasSubstr("Usage: pen-case draw [OPTIONS] [FILE]\n"));
}

TEST(CommandLineTest, TheVersionIsALine)
{
    SampleOptions options;
    const Parsed version = Parse({"--version"}, options);
    EXPECT_EQ(ParseOutcome::kDone, version.outcome);
    EXPECT_EQ("pen-case 1.2\n", version.text);
}

TEST(CommandLineTest, ASectionHasTwoColumns)
{
    EXPECT_EQ("Title:\n  A text.\n  0    none\n  100  many\n",
              console::FormatSection({"Title", "A text.", {{"0", "none"}, {"100", "many"}}}));
}

}  // namespace
