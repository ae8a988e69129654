#include "validator/sweep/SweepCases.h"

#include <iterator>

#include "validator/process/FailedCases.h"

namespace headless {

void RunSweepCases(const std::vector<SweepRule>& rules, bool isTypeloft, CaseSeries& series,
                   ValidatorReport& report)
{
    if (rules.empty()) return;
    std::vector<ValidatorCase> cases;
    for (const Scenario& scenario : ListScenarios(isTypeloft)) {
        ValidatorCase probe = MakeProbe(scenario);
        probe.rule = rules.front();
        const std::optional<CaseOutcome> outcome = series.RunAlone(probe);
        if (!outcome && !series.IsTimeOver()) return;
        if (!outcome) {
            // How many cases each rule has in this scenario is not known.
            for (const SweepRule rule : rules) report.AddSkipped(rule, 1, CaseSeries::kTimeIsOver);
            continue;
        }
        if (outcome->result != CaseResult::kPassed) {
            report.Add(probe, *outcome);
            continue;
        }
        for (const SweepRule rule : rules) {
            std::vector<ValidatorCase> more = MakeSweepCases(scenario, rule, outcome->counts);
            std::move(more.begin(), more.end(), std::back_inserter(cases));
        }
    }
    size_t begun = 0;
    std::vector<FailedCase> failures;
    series.Run(
        cases.size(),
        [&]() -> std::optional<ValidatorCase> {
            if (begun == cases.size()) return std::nullopt;
            return cases[begun++];
        },
        [&](const ValidatorCase& which, const CaseOutcome& outcome) {
            if (outcome.result == CaseResult::kFailed) {
                failures.push_back({which, outcome});
            } else {
                report.Add(which, outcome);
            }
        });
    ReportFailedCases(failures, series, report);
}

}  // namespace headless
