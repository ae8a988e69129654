#include "validator/process/CaseSeries.h"

#include <utility>
#include <vector>

#include "base/Progress.h"
#include "validator/CasePool.h"

namespace headless {

CaseSeries::CaseSeries(const CaseLimits& limits, double seconds, CaseBody body, Judge judge,
                       ValidatorReport& report)
    : mLimits(limits),
      mSeconds(seconds),
      mBody(std::move(body)),
      mJudge(std::move(judge)),
      mReport(report)
{
}

CaseOutcome CaseSeries::MakeJudged(CaseOutcome outcome) const
{
    if (mJudge) mJudge(outcome);
    return outcome;
}

bool CaseSeries::IsTimeOver() const
{
    const std::chrono::duration<double> passed = Clock::now() - mStart;
    return mSeconds > 0 && passed.count() >= mSeconds;
}

void CaseSeries::Run(size_t total, const Next& next, const Done& done)
{
    base::Progress progress(total, 1);
    size_t ended = 0;
    RunCases(
        mLimits,
        [&]() -> std::optional<ValidatorCase> {
            std::optional<ValidatorCase> which = next();
            for (; which && IsTimeOver(); which = next()) {
                CaseOutcome outcome;
                outcome.result = CaseResult::kSkipped;
                outcome.reason = kTimeIsOver;
                mReport.Add(*which, outcome);
            }
            return which;
        },
        mBody,
        [&](const ValidatorCase& which, const CaseOutcome& outcome) {
            done(which, MakeJudged(outcome));
            progress.Show(++ended, "rule " + std::to_string(which.rule) + " " + which.name);
            return true;
        });
}

void CaseSeries::Run(size_t total, const Next& next)
{
    std::vector<std::pair<ValidatorCase, CaseOutcome>> failed;
    Run(total, next, [&](const ValidatorCase& which, const CaseOutcome& outcome) {
        if (outcome.result == CaseResult::kFailed) {
            failed.emplace_back(which, outcome);
        } else {
            mReport.Add(which, outcome);
        }
    });
    for (const auto& [which, outcome] : failed) {
        mReport.Add(which, RunWithJournal(which, outcome));
    }
}

CaseOutcome CaseSeries::RunWithJournal(const ValidatorCase& which, const CaseOutcome& first)
{
    ValidatorCase again = which;
    again.wantsJournal = true;
    const std::optional<CaseOutcome> second = RunAlone(again);
    return second && second->result == CaseResult::kFailed ? *second : first;
}

std::optional<CaseOutcome> CaseSeries::RunAlone(const ValidatorCase& which)
{
    std::optional<ValidatorCase> rest;
    if (!IsTimeOver()) rest = which;
    std::optional<CaseOutcome> result;
    RunCases(
        mLimits, [&rest] { return std::exchange(rest, std::nullopt); }, mBody,
        [&](const ValidatorCase&, const CaseOutcome& outcome) {
            result = MakeJudged(outcome);
            return true;
        });
    return result;
}

}  // namespace headless
