#include "validator/process/FailedCases.h"

#include <chrono>
#include <optional>
#include <set>
#include <string>

#include "base/Lines.h"
#include "system/Interrupts.h"
#include "validator/random/ShrinkScript.h"

namespace headless {

namespace {

using ShrinkClock = std::chrono::steady_clock;

constexpr size_t kMostShrinkRuns = 500;
// A script that hangs takes its whole time limit at each run.
constexpr auto kMostShrinkTime = std::chrono::seconds(60);

int GetBrokenRule(const CaseOutcome& outcome)
{
    return outcome.findings.empty() ? 0 : outcome.findings.front().rule;
}

// The same case with as few lines as possible, and what it does then.
FailedCase Shrink(const FailedCase& failed, CaseSeries& series)
{
    const auto end = ShrinkClock::now() + kMostShrinkTime;
    FailedCase shortest = failed;
    const auto fails = [&](const std::vector<std::string>& lines) {
        if (IsInterrupted() || ShrinkClock::now() > end) return false;
        FailedCase tried = failed;
        tried.which.script = base::JoinLines(lines);
        const std::optional<CaseOutcome> outcome = series.RunAlone(tried.which);
        if (!outcome || GetBrokenRule(*outcome) != GetBrokenRule(failed.outcome)) return false;
        // A line that lacks what it needs is not what the plug-in did wrong.
        if (outcome->hasInvalidLine != failed.outcome.hasInvalidLine) return false;
        tried.outcome = *outcome;
        if (tried.which.script.size() <= shortest.which.script.size()) shortest = tried;
        return true;
    };
    (void)ShrinkScript(base::SplitLines(failed.which.script), kMostShrinkRuns, fails);
    return shortest;
}

}  // namespace

void ReportFailedCases(const std::vector<FailedCase>& failures, CaseSeries& series,
                       ValidatorReport& report)
{
    std::set<int> shrunk;
    for (const FailedCase& failed : failures) {
        const bool isFirst = shrunk.insert(GetBrokenRule(failed.outcome)).second;
        const FailedCase reported = isFirst ? Shrink(failed, series) : failed;
        report.Add(reported.which, series.RunWithJournal(reported.which, reported.outcome));
    }
}

}  // namespace headless
