#include "console/CommandPages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SampleCommandLine.h"

using testing::HasSubstr;
using testing::Not;

namespace {

const std::vector<console::HelpSection> kSections = {
    {"Exit status", "Of `pen-case`.", {{"0", "success"}}}};

TEST(CommandPagesTest, TheReadmeSectionListsCommandsOptionsAndSections)
{
    SampleOptions options;
    EXPECT_EQ(
        "## Commands\n"
        "\n### `pen-case draw [OPTIONS] [FILE]`\n"
        "\nDraw a thing.\n"
        "\n| | |\n|---|---|\n"
        "| `FILE` | The thing |\n"
        "| `--into DIR` | Write into DIR |\n"
        "| `--ink COLOUR` | Use COLOUR\\|none |\n"
        "| `--loud` | Print \\ and - |\n"
        "\n### `pen-case erase [OPTIONS] [FILE]`\n"
        "\nErase a thing.\n"
        "\n| | |\n|---|---|\n"
        "| `FILE` | The thing |\n"
        "\nIts options are those of `draw`.\n"
        "\n## Options\n"
        "\n| | |\n|---|---|\n"
        "| `-h, --help` | Print this help message and exit |\n"
        "| `--version` | Print the version and exit |\n"
        "\n## Exit status\n"
        "\nOf `pen-case`.\n"
        "\n| | |\n|---|---|\n"
        "| `0` | success |\n",
        console::WriteReadmeSection(*MakeSampleCommandLine(options), kSections));
}

TEST(CommandPagesTest, TheManualPageEscapesWhatRoffWouldInterpret)
{
    SampleOptions options;
    const std::string page = console::WriteManPage(*MakeSampleCommandLine(options), kSections);
    EXPECT_THAT(page, HasSubstr(".TH \"PEN\\-CASE\" 1 \"\" \"pen\\-case 1.2\"\n"));
    EXPECT_THAT(page, HasSubstr(".SH NAME\npen\\-case \\- draws things\n"));
    EXPECT_THAT(page, HasSubstr(".TP\n\\fB\\-\\-loud\\fR\nPrint \\e and \\-\n"));
    EXPECT_THAT(page, HasSubstr(".SH EXIT STATUS\nOf \\fBpen\\-case\\fR.\n.TP\n\\fB0\\fR\n"));
}

TEST(CommandPagesTest, AProgramWithoutCommandsHasItsArgumentsAmongTheOptions)
{
    std::string file;
    CLI::App app("Draws things.", "pen");
    app.add_option("FILE", file, "The thing")->required();
    const std::string section = console::WriteReadmeSection(app, {});
    EXPECT_EQ(
        "## Usage\n"
        "\n`pen [OPTIONS] FILE`\n"
        "\n## Options\n"
        "\n| | |\n|---|---|\n"
        "| `FILE` | The thing |\n"
        "| `-h, --help` | Print this help message and exit |\n",
        section);
    EXPECT_EQ("# Pen\n\n" + section,
              console::ReplaceReadmeSection("# Pen\n\n## Usage\n\nold\n", section));
    const std::string page = console::WriteManPage(app, {});
    EXPECT_THAT(page, HasSubstr(".SH SYNOPSIS\n.nf\npen [OPTIONS] FILE\n.fi\n"));
    EXPECT_THAT(page, Not(HasSubstr("COMMANDS")));
}

TEST(CommandPagesTest, AProgramWithoutCommandsTakesAnyFirstWord)
{
    std::string file;
    CLI::App app("Draws things.", "pen");
    app.add_option("FILE", file, "The thing")->required();
    const char* const arguments[] = {"pen", "a.ai"};
    std::string text;
    EXPECT_EQ(console::ParseOutcome::kRun, console::ParseCommandLine(app, 2, arguments, text));
    EXPECT_EQ("a.ai", file);
}

TEST(CommandPagesTest, HiddenCommandsAndOptionsAreLeftOut)
{
    SampleOptions options;
    const auto app = MakeSampleCommandLine(options);
    for (const std::string& page :
         {console::WriteManPage(*app, {}), console::WriteReadmeSection(*app, {})}) {
        EXPECT_THAT(page, Not(HasSubstr("secret")));
        EXPECT_THAT(page, Not(HasSubstr("former")));
        EXPECT_THAT(page, Not(HasSubstr("paint")));
    }
}

TEST(CommandPagesTest, TheReferenceOfAReadmeIsReplacedAndTheRestIsKept)
{
    EXPECT_EQ("# Title\n\n## Commands\nnew\n",
              console::ReplaceReadmeSection("# Title\n\n## Commands\nold\n\n## Options\nold\n",
                                            "## Commands\nnew\n"));
    EXPECT_EQ("# Title\n\n## Commands\nnew\n",
              console::ReplaceReadmeSection("# Title\n", "## Commands\nnew\n"));
}

}  // namespace
