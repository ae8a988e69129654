#include "validator/random/RandomCases.h"

#include <algorithm>
#include <vector>

#include "base/Lines.h"
#include "validator/process/FailedCases.h"
#include "validator/random/RandomMessages.h"

namespace headless {

double ScaleTimeLimit(double seconds, size_t length)
{
    const size_t usual = RandomSettings().length;
    if (length <= usual) return seconds;
    return seconds * static_cast<double>(length) / static_cast<double>(usual);
}

void RunRandomCases(const RandomSettings& settings, CaseSeries& series, ValidatorReport& report)
{
    const size_t scripts =
        settings.count / settings.length + (settings.count % settings.length != 0);
    size_t made = 0;
    std::vector<FailedCase> failures;
    series.Run(
        scripts,
        [&]() -> std::optional<ValidatorCase> {
            if (made == scripts) return std::nullopt;
            if (series.IsTimeOver()) {
                report.AddSkipped(settings.rule, scripts - made, CaseSeries::kTimeIsOver);
                made = scripts;
                return std::nullopt;
            }
            ValidatorCase next;
            next.rule = settings.rule;
            next.seed = settings.seed + made;
            next.name = "seed " + std::to_string(next.seed);
            const size_t rest = settings.count - made * settings.length;
            // PluginCore may refuse after a `restart`.
            next.script =
                "allow silence\n" + base::JoinLines(MakeRandomScript(
                                        next.seed, std::min(rest, settings.length),
                                        settings.rule == kRandomWithModel, settings.isTypeloft));
            ++made;
            return next;
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
