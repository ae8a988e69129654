#include "validator/Rules.h"

#include <gmock/gmock.h>

#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "checks/BrokenRule.h"
#include "session/ActionTable.h"
#include "session/ExpectAction.h"
#include "session/SessionWords.h"
#include "validator/RuleCases.h"

using headless::FindRule;
using headless::kRules;
using headless::MakeRuleCases;
using headless::RuleRow;
using headless::ValidatorCase;

namespace {

constexpr int kFirstSweep = 1500;

// Each rule has a heading "### NUMBER SENTENCE", without the period. Returns the headings of both
// pages by number.
std::map<int, std::string> ReadHeadings()
{
    std::map<int, std::string> headings;
    for (const char* const name : {"VALIDATOR.md", "VALIDATOR-TYPELOFT.md"}) {
        std::ifstream page(std::string(DOCS_FOLDER) + "/" + name);
        EXPECT_TRUE(page.is_open()) << name;
        for (std::string line; std::getline(page, line);) {
            if (line.rfind("### ", 0) != 0) continue;
            std::istringstream words(line.substr(4));
            int number = 0;
            if (!(words >> number)) continue;
            std::string text;
            std::getline(words >> std::ws, text);
            EXPECT_TRUE(headings.emplace(number, text).second) << line << ": occurs twice";
        }
    }
    return headings;
}

}  // namespace

TEST(Rules, HaveAscendingNumbersInHundredsOfTheirFamily)
{
    ASSERT_FALSE(kRules.empty());
    std::map<int, std::string> families;
    int last = 0;
    for (const RuleRow& rule : kRules) {
        EXPECT_LT(last, rule.number);
        last = rule.number;
        const auto family = families.emplace(rule.number / 100, rule.family).first;
        EXPECT_EQ(family->second, rule.family) << rule.number;
    }
    std::set<std::string> names;
    for (const auto& family : families) {
        EXPECT_TRUE(names.insert(family.second).second) << family.second;
    }
    EXPECT_LE(100U, kRules.size());
}

TEST(Rules, AreFoundByTheirNumbers)
{
    for (const RuleRow& rule : kRules) EXPECT_EQ(&rule, FindRule(rule.number));
    EXPECT_EQ(nullptr, FindRule(0));
    EXPECT_EQ(nullptr, FindRule(199));
    EXPECT_EQ(nullptr, FindRule(9999));
}

TEST(Rules, HaveALevelAndASentence)
{
    std::set<std::string> sentences;
    for (const RuleRow& rule : kRules) {
        EXPECT_LE(1, rule.level) << rule.number;
        EXPECT_GE(10, rule.level) << rule.number;
        const std::string sentence = rule.sentence;
        ASSERT_LT(1U, sentence.size()) << rule.number;
        EXPECT_EQ('.', sentence.back()) << rule.number;
        EXPECT_TRUE(sentences.insert(sentence).second) << rule.number << ": occurs twice";
    }
}

TEST(Rules, IncludeThoseThatTheHostItselfChecks)
{
    using namespace headless;
    for (const BrokenRule rule :
         {kModuleNotLoaded, kRefusesUnload,      kExceptionLeavesPlugin, kCrash,
          kTakesTooLong,    kNeedsTooMuchMemory, kEndsProcess,           kSuiteNotAcquired,
          kSuiteNotHeld,    kSuiteLeaked,        kBadAcquisition,        kNullHandle,
          kUnknownHandle,   kExpiredHandle,      kWrongHandleType,       kReferenceLeaked,
          kOutOfRange,      kNullArgument,       kBadArgument,           kMemoryLost,
          kSessionNotBegun, kSessionNotReturned}) {
        const RuleRow* const row = FindRule(rule);
        ASSERT_NE(nullptr, row) << rule;
        EXPECT_FALSE(row->isForTypeloftOnly) << rule;
    }
}

TEST(Rules, AreExplainedInTheManual)
{
    std::map<int, std::string> headings = ReadHeadings();
    for (const RuleRow& rule : kRules) {
        EXPECT_EQ(rule.sentence, headings[rule.number] + ".") << rule.number;
        headings.erase(rule.number);
    }
    for (const auto& heading : headings) ADD_FAILURE() << heading.first << ": is no rule";
}

TEST(RuleCases, TestEachRuleBelowTheSweeps)
{
    std::set<int> tested;
    for (const ValidatorCase& each : MakeRuleCases(true)) tested.insert(each.rule);
    for (const RuleRow& rule : kRules) {
        // The host itself checks these: in each case with missing fonts, and under a sanitizer.
        const bool isOfHost = rule.number == headless::kSessionNotBegun ||
                              rule.number == headless::kSessionNotReturned ||
                              rule.number == headless::kMemoryLost;
        if (rule.number >= kFirstSweep || isOfHost) continue;
        EXPECT_EQ(1U, tested.count(rule.number)) << rule.number;
    }
    for (const int number : tested) EXPECT_NE(nullptr, FindRule(number)) << number;
}

TEST(RuleCases, HaveUniqueNamesWithinTheirRule)
{
    std::set<std::pair<int, std::string>> names;
    for (const ValidatorCase& each : MakeRuleCases(true)) {
        EXPECT_FALSE(each.name.empty()) << each.rule;
        EXPECT_TRUE(names.emplace(each.rule, each.name).second) << each.rule << ", " << each.name;
    }
}

TEST(RuleCases, OfOtherPluginsAreThoseOfGeneralRules)
{
    size_t special = 0;
    for (const ValidatorCase& each : MakeRuleCases(true)) {
        const RuleRow* const rule = FindRule(each.rule);
        ASSERT_NE(nullptr, rule) << each.rule;
        if (rule->isForTypeloftOnly) ++special;
    }
    const std::vector<ValidatorCase> general = MakeRuleCases(false);
    EXPECT_EQ(MakeRuleCases(true).size(), general.size() + special);
    EXPECT_LT(0U, special);
    for (const ValidatorCase& each : general) {
        EXPECT_FALSE(FindRule(each.rule)->isForTypeloftOnly) << each.rule << ", " << each.name;
        EXPECT_EQ(std::string::npos, each.script.find("core ")) << each.rule << ", " << each.name;
    }
}

TEST(RuleCases, HaveOnlyLinesThatTheSessionKnows)
{
    std::map<std::string, const headless::ActionRow*> actions;
    for (const headless::ActionRow& row : headless::kActions) actions[row.name] = &row;
    for (const ValidatorCase& each : MakeRuleCases(true)) {
        std::istringstream lines(each.script);
        for (std::string line; std::getline(lines, line);) {
            const headless::SessionWords split = headless::SplitSessionLine(line);
            EXPECT_EQ("", split.error) << each.rule << ", " << each.name << ": " << line;
            if (split.words.empty()) continue;
            const headless::ActionRow* const row = actions[split.words[0]];
            ASSERT_NE(nullptr, row) << each.rule << ", " << each.name << ": " << line;
            EXPECT_LE(row->minimum, split.words.size() - 1) << line;
            EXPECT_GE(row->maximum, split.words.size() - 1) << line;
        }
    }
}
