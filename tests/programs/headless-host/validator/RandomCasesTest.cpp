#include "validator/random/RandomCases.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>

using namespace headless;

namespace {

const std::vector<RuleRow> kRandomRules = {{kRandomWithModel, 1, false, "random", "Sound."}};

CaseOutcome FailFromThreeLines(const ValidatorCase& which, const std::string&)
{
    CaseOutcome outcome;
    if (std::count(which.script.begin(), which.script.end(), '\n') >= 3) {
        outcome.result = CaseResult::kFailed;
        outcome.findings = {{302, "crashed"}};
        outcome.journal = {which.script};
    }
    return outcome;
}

// What the series reports, an object per case.
std::vector<nlohmann::json> RunRandom(size_t count, unsigned long seed, const CaseBody& body,
                                      double seconds = 0, size_t length = 200)
{
    testing::internal::CaptureStdout();
    ValidatorReport report(kRandomRules, {true, "", ""});
    CaseSeries series(CaseLimits(), seconds, body, {}, report);
    RunRandomCases({kRandomWithModel, false, seed, count, length}, series, report);
    std::istringstream lines(testing::internal::GetCapturedStdout());
    std::vector<nlohmann::json> values;
    for (std::string line; std::getline(lines, line);)
        values.push_back(nlohmann::json::parse(line));
    return values;
}

}  // namespace

TEST(RandomCases, ALongLifeHasMoreTime)
{
    EXPECT_EQ(10, ScaleTimeLimit(10, 1));
    EXPECT_EQ(10, ScaleTimeLimit(10, 200));
    EXPECT_EQ(25, ScaleTimeLimit(10, 500));
}

TEST(RandomCases, HaveConsecutiveSeeds)
{
    const auto values =
        RunRandom(401, 7, [](const ValidatorCase&, const std::string&) { return CaseOutcome(); });
    ASSERT_EQ(3U, values.size());
    for (size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(7 + i, values[i]["seed"]);
        EXPECT_EQ("passed", values[i]["outcome"]);
    }
}

TEST(RandomCases, HaveTheLengthThatWasAskedFor)
{
    const CaseBody body = [](const ValidatorCase& which, const std::string&) {
        CaseOutcome outcome;
        outcome.result = CaseResult::kFailed;
        outcome.findings = {{302, "crashed"}};
        outcome.journal = {which.script};
        return outcome;
    };
    const auto values = RunRandom(1500, 7, body, 0, 1000);
    ASSERT_EQ(2U, values.size());
    // The first is shrunk. In front of the messages are the documents that are there at first.
    const std::string second = values[1]["journal"][0];
    EXPECT_EQ(500 + 8 + 1, std::count(second.begin(), second.end(), '\n'));
}

TEST(RandomCases, TheFirstFailureOfAKindIsShrunk)
{
    const auto values = RunRandom(400, 7, FailFromThreeLines);
    ASSERT_EQ(2U, values.size());
    const std::string first = values[0]["journal"][0];
    EXPECT_EQ(3, std::count(first.begin(), first.end(), '\n')) << first;
    const std::string second = values[1]["journal"][0];
    EXPECT_LT(3, std::count(second.begin(), second.end(), '\n'));
}

TEST(RandomCases, AreSkippedWhenTheTimeIsOver)
{
    const auto values = RunRandom(600, 7, FailFromThreeLines, 1e-9);
    ASSERT_EQ(1U, values.size());
    EXPECT_EQ("3 cases", values[0]["case"]);
    EXPECT_EQ("the time was over", values[0]["message"]);
}
