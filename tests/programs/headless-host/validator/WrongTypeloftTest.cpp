#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>

#include "CaseRun.h"
#include "checks/BrokenRule.h"
#include "validator/RuleCases.h"
#include "validator/Rules.h"

// Each wrong plug-in is found by the rule that it breaks, and by no rule of a lower level.
using headless::CaseResult;
using headless::FindRule;
using headless::RuleRow;
using headless::ValidatorCase;

namespace {

constexpr int kHighestLevel = 5;
constexpr int kFirstSweep = 1500;
constexpr size_t kMostFound = 5;  // cases by which a fault is found; more only take time

struct WrongPlugin {
    int rule = 0;
    std::string name;
};

std::vector<WrongPlugin> ReadFaults()
{
    std::vector<WrongPlugin> faults;
    std::ifstream file(FAULTS_FILE);
    for (WrongPlugin each; file >> each.rule >> each.name;) faults.push_back(each);
    return faults;
}

// Rules without cases of their own: the host checks them in the cases of all others.
bool IsCheckedByHost(int rule)
{
    return rule == headless::kSessionNotBegun || rule == headless::kSessionNotReturned;
}

// The cases that test the rule, or those of the dialog period for a rule that the host checks.
std::vector<ValidatorCase> ListCasesOf(int rule)
{
    std::vector<ValidatorCase> cases;
    const int tested = IsCheckedByHost(rule) ? 1203 : rule;
    for (ValidatorCase& each : headless::MakeRuleCases(true)) {
        if (each.rule == tested) cases.push_back(std::move(each));
    }
    return cases;
}

// Cases of rules of lower levels: one of each rule, another one for each wrong plug-in, or all if
// the environment has WRONG_PLUGINS_ALL_CASES.
std::vector<ValidatorCase> ListLowerCases(int rule)
{
    std::map<int, std::vector<ValidatorCase>> byRule;
    for (ValidatorCase& each : headless::MakeRuleCases(true)) {
        const bool isLower = FindRule(each.rule)->level < FindRule(rule)->level;
        if (isLower && each.rule < kFirstSweep) byRule[each.rule].push_back(std::move(each));
    }
    std::vector<ValidatorCase> chosen;
    for (const auto& [lower, cases] : byRule) {
        if (std::getenv("WRONG_PLUGINS_ALL_CASES") != nullptr) {
            chosen.insert(chosen.end(), cases.begin(), cases.end());
        } else {
            chosen.push_back(cases[static_cast<size_t>(rule) % cases.size()]);
        }
    }
    return chosen;
}

bool IsFoundBy(int rule, const CaseRun& run)
{
    if (!IsCheckedByHost(rule)) return run.outcome.result == CaseResult::kFailed;
    for (const headless::Finding& finding : run.outcome.findings) {
        if (finding.rule == rule) return true;
    }
    return false;
}

std::vector<ValidatorCase> ListFailed(const std::string& plugin,
                                      const std::vector<ValidatorCase>& cases)
{
    std::vector<ValidatorCase> failed;
    RunCasesOver(plugin, cases, [&](const CaseRun& run) {
        if (run.outcome.result == CaseResult::kFailed) failed.push_back(run.which);
        return true;
    });
    return failed;
}

class WrongTypeloft : public testing::TestWithParam<WrongPlugin> {
protected:
    static std::string GetPath()
    {
        const std::string name = std::to_string(GetParam().rule) + "-" + GetParam().name;
        return std::string(WRONG_PLUGINS) + "/" + name + ".aip";
    }
};

}  // namespace

TEST_P(WrongTypeloft, IsFoundByItsRule)
{
    std::vector<ValidatorCase> found;
    size_t count = 0;
    RunCasesOver(GetPath(), ListCasesOf(GetParam().rule), [&](const CaseRun& run) {
        ++count;
        if (IsFoundBy(GetParam().rule, run)) found.push_back(run.which);
        return found.size() < kMostFound;
    });
    ASSERT_FALSE(found.empty()) << "found by none of " << count << " cases";
    const std::vector<ValidatorCase> sound = ListFailed(SOUND_PLUGIN, found);
    EXPECT_LT(sound.size(), found.size()) << "the sound plug-in fails all of them, too";
}

// What the sound plug-in fails too is no effect of the fault.
TEST_P(WrongTypeloft, IsFoundByNoRuleOfALowerLevel)
{
    const std::vector<ValidatorCase> failed =
        ListFailed(GetPath(), ListLowerCases(GetParam().rule));
    const std::vector<ValidatorCase> sound = ListFailed(SOUND_PLUGIN, failed);
    for (const ValidatorCase& each : failed) {
        const bool isEverywhere =
            std::any_of(sound.begin(), sound.end(), [&](const ValidatorCase& other) {
                return each.rule == other.rule && each.name == other.name;
            });
        EXPECT_TRUE(isEverywhere) << each.rule << " " << each.name;
    }
}

INSTANTIATE_TEST_SUITE_P(Faults, WrongTypeloft, testing::ValuesIn(ReadFaults()),
                         [](const auto& row) {
                             std::string name = std::to_string(row.param.rule);
                             for (const char c : "-" + row.param.name) name += c == '-' ? '_' : c;
                             return name;
                         });

TEST(WrongTypeloftPlugins, AreCompleteForAllLevelsThatAreTheDefault)
{
    std::set<int> broken;
    for (const WrongPlugin& each : ReadFaults()) {
        const RuleRow* const rule = FindRule(each.rule);
        ASSERT_NE(nullptr, rule) << each.rule;
        EXPECT_GE(kHighestLevel, rule->level) << each.rule;
        EXPECT_TRUE(broken.insert(each.rule).second) << each.rule << ": occurs twice";
    }
    for (const RuleRow& rule : headless::kRules) {
        if (!rule.isForTypeloftOnly || rule.level > kHighestLevel) continue;
        EXPECT_EQ(1U, broken.count(rule.number)) << rule.number << ": no plug-in breaks it";
    }
}
