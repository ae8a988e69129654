#include "application/Options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "application/ExitStatus.h"

using namespace headless;

namespace {

ParseOutcome Parse(std::vector<const char*> arguments, Options& options, std::string& text)
{
    arguments.insert(arguments.begin(), "headless-host");
    return ParseCommandLine(static_cast<int>(arguments.size()), arguments.data(), options, text);
}

}  // namespace

TEST(OptionsTest, TakesAllOptions)
{
    Options options;
    std::string text;
    ASSERT_EQ(Parse({"open",      "a", "b",        "--json", "--home", "h",   "--library",    "l",
                     "--library", "m", "--plugin", "p",      "--log",  "c",   "--language",   "ja",
                     "--journal", "j", "--exec",   "true",   "--hold", "1.5", "--interactive"},
                    options, text),
              ParseOutcome::kRun)
        << text;
    EXPECT_THAT(options.files, testing::ElementsAre("a", "b"));
    EXPECT_THAT(options.libraries, testing::ElementsAre("l", "m"));
    EXPECT_TRUE(options.json && options.interactive);
    EXPECT_EQ(options.home + options.plugin + options.log + options.journal, "hpcj");
    EXPECT_EQ(options.language, "ja");
    EXPECT_EQ(options.command, "true");
    EXPECT_EQ(options.hold, 1.5);
}

TEST(OptionsTest, BothCommandsTakeTheSameOptions)
{
    for (const OptionRow& row : kOptions) {
        std::vector<const char*> arguments = {"run", row.name};
        if (row.argument != nullptr) arguments.push_back(row.number != nullptr ? "1" : "de");
        Options options;
        std::string text;
        EXPECT_EQ(Parse(arguments, options, text), ParseOutcome::kRun) << row.name << text;
        EXPECT_EQ(options.action, Command::kRun);
        arguments[0] = "open";
        arguments.push_back("a");
        EXPECT_EQ(Parse(arguments, options, text), ParseOutcome::kRun) << row.name << text;
        EXPECT_EQ(options.action, Command::kOpen);
    }
}

TEST(OptionsTest, ASessionIsAFileOrStandardInput)
{
    for (const char* const file : {"s.txt", "-"}) {
        Options options;
        std::string text;
        ASSERT_EQ(Parse({"run", file}, options, text), ParseOutcome::kRun) << text;
        EXPECT_EQ(options.session, file);
    }
    Options options;
    std::string text;
    EXPECT_EQ(Parse({"run", "a", "b"}, options, text), ParseOutcome::kWrongUse);
}

TEST(OptionsTest, ALibraryDoesNotSwallowTheFiles)
{
    Options options;
    std::string text;
    ASSERT_EQ(
        Parse({"open", "--library", "l", "a", "b", "--library", "m", "c", "d"}, options, text),
        ParseOutcome::kRun)
        << text;
    EXPECT_THAT(options.files, testing::ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(options.libraries, testing::ElementsAre("l", "m"));
}

TEST(OptionsTest, WrongUseIsToldInOneLine)
{
    const std::vector<std::vector<const char*>> wrong = {{},
                                                         {"open"},
                                                         {"close", "a"},
                                                         {"open", "a", "--nonsense"},
                                                         {"open", "a", "--language", "tlh"},
                                                         {"open", "a", "--home"},
                                                         {"open", "a", "--hold", "-1"}};
    for (const auto& arguments : wrong) {
        Options options;
        std::string text;
        EXPECT_EQ(Parse(arguments, options, text), ParseOutcome::kWrongUse);
        EXPECT_FALSE(text.empty());
        EXPECT_EQ(text.find('\n'), std::string::npos) << text;
    }
}

TEST(OptionsTest, HelpNamesEveryOptionAndExitStatus)
{
    Options options;
    std::string text;
    ASSERT_EQ(Parse({"open", "--help"}, options, text), ParseOutcome::kDone);
    for (const OptionRow& row : kOptions) EXPECT_THAT(text, testing::HasSubstr(row.name));
    for (const ExitStatusRow& row : kExitStatuses)
        EXPECT_THAT(text, testing::HasSubstr(row.meaning));
}
