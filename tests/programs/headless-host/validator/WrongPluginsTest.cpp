#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "ScratchFolder.h"
#include "checks/BrokenRule.h"
#include "validator/Rules.h"

// The validator finds what is wrong with plug-ins that break one rule each.
using headless::FindRule;
using headless::RuleRow;

namespace fs = std::filesystem;

namespace {

constexpr int kMostLevel = 5;  // of the rules that have a wrong plug-in
constexpr int kFirstOfDialog = 1200;
constexpr int kFirstSweep = 1500;
constexpr char kSound[] = "well-behaved";

// The number of the rule that a wrong plug-in breaks.
int GetNumber(const std::string& name) { return std::atoi(name.c_str()); }

std::vector<std::string> ListWrongPlugins()
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(WRONG_PLUGINS_FOLDER)) {
        const std::string name = entry.path().stem().string();
        if (name != kSound) names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

// Whether the host itself checks the rule in all cases.
bool IsCheckedByHost(int number)
{
    static const std::set<int> kRules = {headless::kModuleNotLoaded,
                                         headless::kExceptionLeavesPlugin,
                                         headless::kCrash,
                                         headless::kTakesTooLong,
                                         headless::kNeedsTooMuchMemory,
                                         headless::kEndsProcess,
                                         headless::kSuiteNotAcquired,
                                         headless::kSuiteNotHeld,
                                         headless::kSuiteLeaked,
                                         headless::kBadAcquisition,
                                         headless::kNullHandle,
                                         headless::kUnknownHandle,
                                         headless::kExpiredHandle,
                                         headless::kWrongHandleType,
                                         headless::kReferenceLeaked,
                                         headless::kOutOfRange,
                                         headless::kNullArgument,
                                         headless::kBadArgument,
                                         headless::kSessionNotBegun,
                                         headless::kSessionNotReturned};
    return kRules.count(number) > 0;
}

// A rule that needs a wrong plug-in: not of a special plug-in, not of sweeps and random messages.
bool NeedsPlugin(const RuleRow& rule)
{
    return rule.level <= kMostLevel && !rule.isForTypeloftOnly && rule.number < kFirstSweep;
}

std::string GetPlugin(const std::string& name)
{
    return std::string(WRONG_PLUGINS_FOLDER) + "/" + name + ".aip";
}

struct Failure {
    int rule;  // of the case
    std::string name;
    std::set<int> found;  // the rules of its findings
    std::string message;
};

void PrintTo(const Failure& failure, std::ostream* out)
{
    *out << failure.rule << ", " << failure.name << ": " << failure.message;
}

class WrongPlugins : public testing::TestWithParam<std::string> {
protected:
    // Validates the plug-in and returns the cases that failed.
    std::vector<Failure> Validate(const std::string& plugin, const std::string& options)
    {
        const std::string output = scratch.Path() + "/output";
        const std::string command = std::string("'") + HEADLESS_HOST_PROGRAM +
                                    "' validate --profile any --jobs 1 --json " + options + " '" +
                                    plugin + "' > '" + output + "' 2> '" + output + "-errors'";
        status = std::system(command.c_str());
        std::vector<Failure> failures;
        std::ifstream lines(output);
        for (std::string line; std::getline(lines, line);) {
            const nlohmann::json entry = nlohmann::json::parse(line, nullptr, false);
            if (!entry.is_object() || !entry.contains("outcome")) continue;
            ++cases;
            if (entry["outcome"] != "failed") continue;
            Failure failure{entry["rule"], entry["case"], {}, entry["message"]};
            for (const auto& finding : entry["findings"])
                failure.found.insert(int{finding["rule"]});
            failures.push_back(failure);
        }
        return failures;
    }

    const ScratchFolder scratch;
    int status = 0;
    size_t cases = 0;
};

std::string PrintParameter(const testing::TestParamInfo<std::string>& info)
{
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

}  // namespace

TEST_P(WrongPlugins, IsFoundByItsRule)
{
    const int number = GetNumber(GetParam());
    const RuleRow* const rule = FindRule(number);
    ASSERT_NE(nullptr, rule);
    if (number == headless::kModuleNotLoaded) {
        EXPECT_THAT(Validate(GetPlugin(GetParam()), "--level 1"), testing::IsEmpty());
        EXPECT_NE(0, status) << "the module has been loaded";
        return;
    }
    if (!IsCheckedByHost(number)) {
        EXPECT_THAT(Validate(GetPlugin(GetParam()), "--rule " + std::to_string(number)),
                    testing::Contains(testing::Field(&Failure::rule, number)));
        return;
    }
    std::set<int> found;
    std::set<int> lower;
    // The rules of the dialog have no cases of their own.
    const std::string options =
        number < kFirstOfDialog ? "--rule " + GetParam().substr(0, 3) : std::string("--level 1");
    for (const Failure& failure : Validate(GetPlugin(GetParam()), options)) {
        found.insert(failure.found.begin(), failure.found.end());
    }
    for (const int each : found) {
        const RuleRow* const other = FindRule(each);
        ASSERT_NE(nullptr, other) << each;
        if (other->level < rule->level) lower.insert(each);
    }
    EXPECT_EQ(1U, found.count(number));
    EXPECT_THAT(lower, testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, WrongPlugins, testing::ValuesIn(ListWrongPlugins()), PrintParameter);

// One plug-in with all faults of a level shows what each one of them would show.
TEST_F(WrongPlugins, AreFoundByNoRuleOfALowerLevel)
{
    for (int level = 2; level <= kMostLevel; ++level) {
        std::string together;
        for (const std::string& name : ListWrongPlugins()) {
            const int number = GetNumber(name);
            if (FindRule(number)->level != level || IsCheckedByHost(number)) continue;
            together += (together.empty() ? "" : "+") + std::to_string(number);
        }
        const std::string plugin = scratch.Path() + "/" + together;
        fs::create_symlink(GetPlugin(kSound) + "/" + kSound, plugin);
        cases = 0;
        EXPECT_THAT(Validate(plugin, "--level " + std::to_string(level - 1)), testing::IsEmpty())
            << together;
        EXPECT_LT(0U, cases) << level;
        EXPECT_EQ(0, status) << together;
    }
}

TEST_F(WrongPlugins, AreSoundWithoutTheirFault)
{
    EXPECT_THAT(Validate(GetPlugin(kSound), "--level " + std::to_string(kMostLevel)),
                testing::IsEmpty());
    EXPECT_LT(0U, cases);
    EXPECT_EQ(0, status);
}

TEST_F(WrongPlugins, BreakEachRule)
{
    std::set<int> broken;
    for (const std::string& name : ListWrongPlugins()) {
        EXPECT_TRUE(broken.insert(GetNumber(name)).second) << name;
    }
    for (const RuleRow& rule : headless::kRules) {
        EXPECT_EQ(NeedsPlugin(rule) ? 1U : 0U, broken.count(rule.number)) << rule.number;
    }
}
