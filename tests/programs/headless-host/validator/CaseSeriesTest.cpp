#include "validator/process/CaseSeries.h"

#include <gmock/gmock.h>

#include <chrono>
#include <thread>

using namespace headless;
using testing::HasSubstr;

namespace {

const std::vector<RuleRow> kSeriesRules = {{101, 1, false, "load", "Loads."}};

CaseSeries::Next MakeCases(size_t count)
{
    return [count, made = size_t{0}]() mutable -> std::optional<ValidatorCase> {
        if (made == count) return std::nullopt;
        ValidatorCase next;
        next.rule = 101;
        next.name = std::to_string(++made);
        return next;
    };
}

CaseOutcome FailSecond(const ValidatorCase& which, const std::string&)
{
    CaseOutcome outcome;
    if (which.name == "2") {
        outcome.result = CaseResult::kFailed;
        outcome.findings = {{101, "is 2"}};
    }
    return outcome;
}

}  // namespace

TEST(CaseSeries, ReportsEachCase)
{
    ValidatorReport report(kSeriesRules, {});
    CaseSeries series(CaseLimits(), 0, FailSecond, {}, report);
    series.Run(5, MakeCases(5));
    EXPECT_EQ(5U, report.CountAll());
    EXPECT_EQ(1U, report.CountFailed());
    EXPECT_FALSE(series.IsTimeOver());
}

TEST(CaseSeries, BeginsNoCaseWhenTheTimeIsOver)
{
    ValidatorReport report(kSeriesRules, {});
    CaseSeries series(CaseLimits(), 0.1, FailSecond, {}, report);
    std::this_thread::sleep_for(std::chrono::milliseconds(120));
    series.Run(5, MakeCases(5));
    testing::internal::CaptureStdout();
    report.Finish("A.aip");
    EXPECT_THAT(testing::internal::GetCapturedStdout(),
                HasSubstr("skipped: 5 cases: the time was over\n"));
    EXPECT_EQ(0U, report.CountFailed());
    EXPECT_FALSE(series.RunAlone(ValidatorCase()).has_value());
}

TEST(CaseSeries, RunsACaseAloneWithoutAReport)
{
    ValidatorReport report(kSeriesRules, {});
    CaseSeries series(CaseLimits(), 0, FailSecond, {}, report);
    ValidatorCase second;
    second.name = "2";
    const std::optional<CaseOutcome> outcome = series.RunAlone(second);
    ASSERT_TRUE(outcome.has_value());
    EXPECT_EQ(CaseResult::kFailed, outcome->result);
    EXPECT_EQ(0U, report.CountAll());
}

TEST(CaseSeries, JudgesWhatCameOfEachCaseBeforeItIsReported)
{
    ValidatorReport report(kSeriesRules, {});
    const auto pass = [](CaseOutcome& outcome) { outcome = CaseOutcome(); };
    CaseSeries series(CaseLimits(), 0, FailSecond, pass, report);
    series.Run(3, MakeCases(3));
    EXPECT_EQ(0U, report.CountFailed());
    ValidatorCase second;
    second.name = "2";
    EXPECT_EQ(CaseResult::kPassed, series.RunAlone(second)->result);
}
