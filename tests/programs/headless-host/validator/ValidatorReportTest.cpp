#include "validator/ValidatorReport.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <pugixml.hpp>

#include "ScratchFolder.h"

using namespace headless;
using testing::HasSubstr;
using testing::Not;

namespace {

namespace fs = std::filesystem;

const std::vector<RuleRow> kSomeRules = {
    {101, 1, false, "load and unload", "The module can be loaded."},
    {302, 1, false, "exceptions", "No message crashes the process."},
    {1103, 7, true, "PluginCore", "A function that throws is a failure."},
};

ValidatorCase MakeCase(int rule, const std::string& name, const std::string& script = "start\n")
{
    ValidatorCase which;
    which.rule = rule;
    which.name = name;
    which.script = script;
    which.seed = 7;
    return which;
}

CaseOutcome MakeOutcome(CaseResult result, const std::string& reason = "")
{
    CaseOutcome outcome;
    outcome.result = result;
    outcome.reason = reason;
    return outcome;
}

CaseOutcome MakeCrash(const std::string& message = "crashed: SIGSEGV")
{
    CaseOutcome outcome = MakeOutcome(CaseResult::kFailed);
    outcome.findings = {{302, message}};
    outcome.journal = {"line 1", "line 2"};
    return outcome;
}

class Report : public testing::Test {
protected:
    std::string ReadFile(const std::string& path) const
    {
        std::ifstream stream(path);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    // Three cases, one of each result; returns what is printed.
    std::string ReportThree()
    {
        testing::internal::CaptureStdout();
        ValidatorReport report(kSomeRules, settings);
        report.Add(MakeCase(101, "loads"), MakeOutcome(CaseResult::kPassed));
        report.Add(MakeCase(1103, "GetMenus throws int", "core GetMenus throw=int\nopen a.ai\n"),
                   MakeCrash());
        report.Add(MakeCase(1103, "other"), MakeOutcome(CaseResult::kSkipped, "no such suite"));
        report.AddSkipped(101, 40, "the time was over");
        report.Finish("A.aip");
        EXPECT_EQ(1U, report.CountFailed());
        hasWritten = report.HasWritten();
        return testing::internal::GetCapturedStdout();
    }

    const ScratchFolder scratch;
    ReportSettings settings;
    bool hasWritten = false;
};

}  // namespace

TEST_F(Report, TheTableCountsCasesByFamily)
{
    const std::string text = ReportThree();
    EXPECT_TRUE(hasWritten);
    EXPECT_THAT(text, HasSubstr("family                         cases  passed  failed  skipped\n"));
    EXPECT_THAT(text, HasSubstr("load and unload                   41       1       0       40\n"));
    EXPECT_THAT(text, HasSubstr("PluginCore                         2       0       1        1\n"));
    EXPECT_THAT(text, HasSubstr("all                               43       1       1       41\n"));
    EXPECT_THAT(text, HasSubstr("skipped: 1 case: no such suite\n"));
    EXPECT_THAT(text, HasSubstr("skipped: 40 cases: the time was over\n"));
}

TEST_F(Report, TheTableTellsHowManyMessagesWereSent)
{
    CaseOutcome outcome = MakeOutcome(CaseResult::kPassed);
    outcome.counts.messages = 1200;
    testing::internal::CaptureStdout();
    ValidatorReport report(kSomeRules, settings);
    for (const char* const name : {"one", "two"}) report.Add(MakeCase(101, name), outcome);
    report.Finish("A.aip");
    EXPECT_THAT(testing::internal::GetCapturedStdout(), HasSubstr("messages sent: 2400\n"));
}

TEST_F(Report, TheTableShowsWhatFailedAndHowToPlayItAgain)
{
    const std::string text = ReportThree();
    EXPECT_THAT(text, HasSubstr("failed: rule 1103, case GetMenus throws int, seed 7\n"
                                "    A function that throws is a failure.\n"
                                "  broken: rule 302, No message crashes the process.\n"
                                "    crashed: SIGSEGV\n"
                                "  script:\n"
                                "    core GetMenus throw=int\n"
                                "    open a.ai\n"));
    EXPECT_THAT(text, HasSubstr("headless-host script FILE --plugin A.aip\n"));
}

TEST_F(Report, TheTableShowsTheStartOfLongScriptsAndSomeOfManyFailures)
{
    std::string script;
    for (int line = 1; line <= 30; ++line) script += "tick " + std::to_string(line) + "\n";
    testing::internal::CaptureStdout();
    ValidatorReport report(kSomeRules, settings);
    for (int number = 0; number < 50; ++number) {
        report.Add(MakeCase(302, "n" + std::to_string(number), script), MakeCrash("a\x1b[2J\nb"));
    }
    report.Finish("A.aip");
    const std::string text = testing::internal::GetCapturedStdout();
    EXPECT_THAT(text, HasSubstr("    tick 12\n    # 18 more lines\n"));
    EXPECT_THAT(text, HasSubstr("30 more failed cases: see --json or --output-dir\n"));
    EXPECT_THAT(text, Not(HasSubstr("case n20,")));
    EXPECT_THAT(text, HasSubstr("    a?[2J?b\n"));
    EXPECT_EQ(50U, report.CountFailed());
}

TEST_F(Report, JsonIsOneObjectPerCaseWithoutATable)
{
    settings.isJson = true;
    std::istringstream lines(ReportThree());
    std::vector<nlohmann::json> values;
    for (std::string line; std::getline(lines, line);)
        values.push_back(nlohmann::json::parse(line));
    ASSERT_EQ(4U, values.size());
    EXPECT_EQ("passed", values[0]["outcome"]);
    EXPECT_EQ(1103, values[1]["rule"]);
    EXPECT_EQ(7, values[1]["level"]);
    EXPECT_EQ("GetMenus throws int", values[1]["case"]);
    EXPECT_EQ("failed", values[1]["outcome"]);
    EXPECT_EQ("crashed: SIGSEGV", values[1]["message"]);
    EXPECT_EQ(302, values[1]["findings"][0]["rule"]);
    EXPECT_EQ(7, values[1]["seed"]);
    EXPECT_EQ("line 2", values[1]["journal"][1]);
    EXPECT_EQ("no such suite", values[2]["message"]);
    EXPECT_EQ("40 cases", values[3]["case"]);
}

TEST_F(Report, JsonHasTheNumberOfMessagesThatWereSent)
{
    settings.isJson = true;
    testing::internal::CaptureStdout();
    ValidatorReport report(kSomeRules, settings);
    CaseOutcome outcome;
    outcome.counts.messages = 12;
    report.Add(MakeCase(302, "twelve", "tick 12\n"), outcome);
    const auto value = nlohmann::json::parse(testing::internal::GetCapturedStdout());
    EXPECT_EQ(12, value["messages"]);
}

TEST_F(Report, JunitHasASuitePerFamily)
{
    settings.junitFile = scratch.Path("junit.xml");
    (void)ReportThree();
    pugi::xml_document document;
    ASSERT_TRUE(document.load_file(settings.junitFile.c_str()));
    const pugi::xml_node all = document.child("testsuites");
    const pugi::xml_node core = all.find_child_by_attribute("name", "PluginCore");
    EXPECT_EQ(2, core.attribute("tests").as_int());
    EXPECT_EQ(1, core.attribute("failures").as_int());
    EXPECT_EQ(1, core.attribute("skipped").as_int());
    const pugi::xml_node test = core.child("testcase");
    EXPECT_STREQ("rule 1103", test.attribute("classname").value());
    EXPECT_STREQ("GetMenus throws int", test.attribute("name").value());
    EXPECT_STREQ("crashed: SIGSEGV", test.child("failure").attribute("message").value());
    EXPECT_THAT(test.child("failure").text().get(), HasSubstr("core GetMenus throw=int\n"));
    EXPECT_STREQ("no such suite",
                 test.next_sibling("testcase").child("skipped").attribute("message").value());
}

TEST_F(Report, JunitHasNoBytesThatXmlForbids)
{
    settings.junitFile = scratch.Path("junit.xml");
    testing::internal::CaptureStdout();
    ValidatorReport report(kSomeRules, settings);
    report.Add(MakeCase(302, "<&\">"), MakeCrash("a\x01 b\xff"));
    report.Finish("A.aip");
    (void)testing::internal::GetCapturedStdout();
    const std::string text = ReadFile(settings.junitFile);
    EXPECT_THAT(text, HasSubstr("message=\"a? b\xef\xbf\xbd\""));
    EXPECT_THAT(text, HasSubstr("name=\"&lt;&amp;&quot;>\""));
}

TEST_F(Report, AFailedCaseHasFilesOfItsOwn)
{
    settings.outputFolder = scratch.Path("a/b");
    (void)ReportThree();
    const std::string start = settings.outputFolder + "/1103-GetMenus-throws-int";
    EXPECT_EQ("# rule 1103, GetMenus throws int\nsimulate\ncore GetMenus throw=int\nopen a.ai\n",
              ReadFile(start + ".session"));
    EXPECT_EQ("line 1\nline 2\n", ReadFile(start + ".journal"));
    EXPECT_EQ("crashed: SIGSEGV", nlohmann::json::parse(ReadFile(start + ".json"))["message"]);
    EXPECT_EQ(3, std::distance(fs::directory_iterator(settings.outputFolder), {}));
}

TEST_F(Report, CasesOfOneNameHaveDifferentFiles)
{
    settings.outputFolder = scratch.Path("out");
    ValidatorReport report(kSomeRules, settings);
    report.Add(MakeCase(302, "../x y", "one"), MakeCrash());
    report.Add(MakeCase(302, "../x/y", "two"), MakeCrash());
    EXPECT_THAT(ReadFile(settings.outputFolder + "/302-..-x-y.session"), HasSubstr("\none\n"));
    EXPECT_THAT(ReadFile(settings.outputFolder + "/302-..-x-y-2.session"), HasSubstr("\ntwo\n"));
}

TEST_F(Report, WhatCannotBeWrittenIsReported)
{
    settings.junitFile = scratch.Path("nowhere/junit.xml");
    settings.outputFolder = scratch.Write("file", "") + "/out";
    testing::internal::CaptureStderr();
    (void)ReportThree();
    EXPECT_FALSE(hasWritten);
    const std::string errors = testing::internal::GetCapturedStderr();
    EXPECT_THAT(errors, HasSubstr(settings.junitFile + ": cannot be written: No such file"));
    EXPECT_THAT(errors, HasSubstr(settings.outputFolder + ": cannot be created: Not a directory"));
}

TEST(RuleList, IsATableOrJson)
{
    const std::string table = WriteRules(kSomeRules, false);
    EXPECT_THAT(table, HasSubstr(" rule  level  profile   family"));
    EXPECT_THAT(table, HasSubstr(" 1103      7  typeloft  PluginCore                  A function"));
    EXPECT_EQ(4, std::count(table.begin(), table.end(), '\n'));
    const std::string json = WriteRules(kSomeRules, true);
    EXPECT_EQ(3, std::count(json.begin(), json.end(), '\n'));
    const auto first = nlohmann::json::parse(json.substr(0, json.find('\n')));
    EXPECT_EQ(101, first["rule"]);
    EXPECT_EQ(1, first["level"]);
    EXPECT_EQ("any", first["profile"]);
    EXPECT_EQ("load and unload", first["family"]);
    EXPECT_EQ("The module can be loaded.", first["sentence"]);
}
