#include <gmock/gmock.h>

#include <CLI/CLI.hpp>
#include <fstream>
#include <iterator>
#include <string>

#include "console/BashCompletion.h"
#include "console/CommandPages.h"
#include "docfonts/commands/CommandLine.h"

TEST(DocfontsOptions, AreParsed)
{
    docfonts::Options options;
    std::string text;
    const char* const arguments[] = {"docfonts", "--html", "r.html",    "--placed", "--jobs",
                                     "3",        "a.ai",   "--missing", "b.ai",     "--json"};
    ASSERT_EQ(console::ParseOutcome::kRun,
              docfonts::ParseCommandLine(10, arguments, options, text));
    EXPECT_THAT(options.files, testing::ElementsAre("a.ai", "b.ai"));
    EXPECT_EQ("r.html", options.html);
    EXPECT_EQ(3U, options.jobs);
    EXPECT_TRUE(options.placed && options.onlyMissing && options.json);
    EXPECT_FALSE(options.names || options.isRecursive);
}

TEST(DocfontsOptions, AreInTheReadme)
{
    docfonts::Options options;
    std::ifstream stream(README_FILE);
    const std::string readme{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_THAT(readme, testing::EndsWith(
                            "\n" + console::WriteReadmeSection(*docfonts::MakeCommandLine(options),
                                                               docfonts::ListHelpSections())))
        << "run: write-pages --readme docfonts README.md";
}

TEST(DocfontsOptions, AreCompletedWithoutACommand)
{
    docfonts::Options options;
    const std::string script = console::WriteBashCompletion(*docfonts::MakeCommandLine(options));
    EXPECT_THAT(script, testing::HasSubstr(" --missing "));
    EXPECT_THAT(script, testing::HasSubstr("' kinds=files candidate\n"));
}
