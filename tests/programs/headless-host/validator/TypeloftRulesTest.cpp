#include "validator/TypeloftRules.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include "PluginCoreFunctions.h"
#include "checks/BrokenRule.h"
#include "session/ActionTable.h"
#include "session/ExpectAction.h"
#include "session/SessionWords.h"
#include "validator/TypeloftCaseFamilies.h"

using headless::RuleRow;
using headless::ValidatorCase;

namespace {

std::vector<ValidatorCase> MakeTypeloftCases()
{
    std::vector<ValidatorCase> cases;
    headless::AddPluginCoreCases(cases);
    headless::AddDialogPeriodCases(cases);
    headless::AddPanelPortCases(cases);
    headless::AddShutdownCases(cases);
    return cases;
}

std::string ReadTypeloftRules()
{
    std::ostringstream text;
    text << std::ifstream(TYPELOFT_RULES_FILE).rdbuf();
    return text.str();
}

// Whether the host checks the rule while any script plays.
bool IsCheckedByEachScript(int rule)
{
    return rule == headless::kSessionNotBegun || rule == headless::kSessionNotReturned;
}

// Returns "" or what is wrong with the line, as far as its words tell.
std::string CheckTypeloftLine(const std::string& line)
{
    const headless::SessionWords split = headless::SplitSessionLine(line);
    if (!split.error.empty()) return split.error;
    if (split.words.empty()) return "no words";
    const std::string& action = split.words[0];
    const auto row = std::find_if(headless::kActions.begin(), headless::kActions.end(),
                                  [&](const auto& each) { return each.name == action; });
    if (row == headless::kActions.end()) return "unknown action";
    const size_t arguments = split.words.size() - 1;
    if (arguments < row->minimum || arguments > row->maximum) return "wrong number of words";
    if (action != "expect") return "";
    const auto expectation =
        std::find_if(headless::kExpectations.begin(), headless::kExpectations.end(),
                     [&](const auto& each) { return each.words == split.words[1]; });
    return expectation == headless::kExpectations.end() ? "unknown expectation" : "";
}

}  // namespace

TEST(TypeloftRulesTest, NumbersAscendWithinTheirFamilies)
{
    const std::map<int, std::string> families = {
        {11, "PluginCore"}, {12, "dialog period"}, {13, "panel port"}, {14, "shutdown"}};
    int last = 1100;
    for (const RuleRow& rule : headless::ListTypeloftRules()) {
        EXPECT_LT(last, rule.number);
        last = rule.number;
        ASSERT_EQ(1U, families.count(rule.number / 100)) << rule.number;
        EXPECT_EQ(families.at(rule.number / 100), rule.family) << rule.number;
        EXPECT_GE(rule.level, 1) << rule.number;
        EXPECT_LE(rule.level, 10) << rule.number;
        EXPECT_EQ('.', std::string(rule.sentence).back()) << rule.number;
    }
    EXPECT_GT(last, 1400);
}

TEST(TypeloftRulesTest, EachRuleIsExplained)
{
    const std::string text = ReadTypeloftRules();
    size_t last = 0;
    for (const RuleRow& rule : headless::ListTypeloftRules()) {
        std::string sentence = rule.sentence;
        sentence.pop_back();
        const std::string heading = "\n### " + std::to_string(rule.number) + " " + sentence +
                                    "\n\nLevel " + std::to_string(rule.level) +
                                    (rule.isForTypeloftOnly ? "." : ", any plug-in.");
        const size_t at = text.find(heading);
        ASSERT_NE(std::string::npos, at) << heading;
        EXPECT_LE(last, at) << heading;
        last = at;
    }
    const auto headings = [&] {
        size_t count = 0;
        for (size_t at = 0; (at = text.find("\n### ", at)) != std::string::npos; ++at) ++count;
        return count;
    };
    EXPECT_EQ(headless::ListTypeloftRules().size(), headings());
}

TEST(TypeloftRulesTest, EachRuleHasCasesUnlessTheHostChecksItAlways)
{
    std::set<int> known;
    std::set<int> tested;
    for (const RuleRow& rule : headless::ListTypeloftRules()) known.insert(rule.number);
    for (const ValidatorCase& each : MakeTypeloftCases()) tested.insert(each.rule);
    for (const int rule : known) {
        EXPECT_EQ(IsCheckedByEachScript(rule) ? 0U : 1U, tested.count(rule)) << rule;
    }
    for (const int rule : tested) EXPECT_EQ(1U, known.count(rule)) << rule;
}

TEST(TypeloftRulesTest, NamesOfCasesAreUniqueAndRulesAscendWithinAFamily)
{
    std::set<std::pair<int, std::string>> names;
    int last = 0;
    for (const ValidatorCase& each : MakeTypeloftCases()) {
        EXPECT_TRUE(names.insert({each.rule, each.name}).second) << each.rule << " " << each.name;
        EXPECT_NE("", each.name) << each.rule;
        EXPECT_EQ(std::string::npos, each.name.find_first_of("/ \n")) << each.name;
        EXPECT_LE(last, each.rule);
        last = each.rule;
    }
}

TEST(TypeloftRulesTest, EachLineOfACaseIsAnAction)
{
    for (const ValidatorCase& each : MakeTypeloftCases()) {
        std::istringstream lines(each.script);
        size_t count = 0;
        for (std::string line; std::getline(lines, line); ++count) {
            EXPECT_EQ("", CheckTypeloftLine(line))
                << each.rule << " " << each.name << ": " << line.substr(0, 200);
        }
        EXPECT_GT(count, 0U) << each.rule << " " << each.name;
    }
}

// Another plug-in has no PluginCore, and other menus.
TEST(TypeloftRulesTest, CasesForAnyPluginUseNothingOfThisOne)
{
    std::set<int> general;
    for (const RuleRow& rule : headless::ListTypeloftRules()) {
        if (!rule.isForTypeloftOnly) general.insert(rule.number);
    }
    for (const ValidatorCase& each : MakeTypeloftCases()) {
        if (general.count(each.rule) == 0) continue;
        for (const char* word : {"core ", "menu ", "dialog", "answer", "call", "lack-"}) {
            std::string lines = "\n" + each.script;
            for (size_t at = 0; (at = lines.find("show menu", at)) != std::string::npos;) {
                lines.erase(at, 9);
            }
            EXPECT_EQ(std::string::npos, lines.find(word)) << each.name << ": " << word;
        }
    }
}

TEST(TypeloftRulesTest, EachFunctionOfPluginCoreIsMissingOnce)
{
    std::set<std::string> names;
    for (const ValidatorCase& each : MakeTypeloftCases()) names.insert(each.name);
#define EXPECT_CASE(name) EXPECT_EQ(1U, names.count("lacks-" #name)) << #name;
    PLUGIN_CORE_FUNCTIONS(EXPECT_CASE)
#undef EXPECT_CASE
}
