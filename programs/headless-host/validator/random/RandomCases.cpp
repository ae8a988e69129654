#include "validator/random/RandomCases.h"

#include <algorithm>
#include <chrono>
#include <set>
#include <vector>

#include "base/Lines.h"
#include "system/Interrupts.h"
#include "validator/random/RandomMessages.h"
#include "validator/random/ShrinkScript.h"

namespace headless {

namespace {

using ShrinkClock = std::chrono::steady_clock;

constexpr size_t kMessagesPerScript = 200;
constexpr size_t kMostShrinkRuns = 500;
// A script that hangs takes its whole time limit at each run.
constexpr auto kMostShrinkTime = std::chrono::seconds(60);

struct FailedScript {
    ValidatorCase which;
    CaseOutcome outcome;
};

std::string JoinScript(const std::vector<std::string>& lines)
{
    std::string script;
    for (const std::string& line : lines) script += line + "\n";
    return script;
}

int GetBrokenRule(const CaseOutcome& outcome)
{
    return outcome.findings.empty() ? 0 : outcome.findings.front().rule;
}

// The same case with as few lines as possible, and what it does then.
FailedScript Shrink(const FailedScript& failed, CaseSeries& series)
{
    const auto end = ShrinkClock::now() + kMostShrinkTime;
    FailedScript shortest = failed;
    const auto fails = [&](const std::vector<std::string>& lines) {
        if (IsInterrupted() || ShrinkClock::now() > end) return false;
        FailedScript tried = failed;
        tried.which.script = JoinScript(lines);
        const std::optional<CaseOutcome> outcome = series.RunAlone(tried.which);
        if (!outcome || GetBrokenRule(*outcome) != GetBrokenRule(failed.outcome)) return false;
        tried.outcome = *outcome;
        if (tried.which.script.size() <= shortest.which.script.size()) shortest = tried;
        return true;
    };
    (void)ShrinkScript(base::SplitLines(failed.which.script), kMostShrinkRuns, fails);
    return shortest;
}

}  // namespace

void RunRandomCases(const RandomSettings& settings, CaseSeries& series, ValidatorReport& report)
{
    const size_t scripts = (settings.count + kMessagesPerScript - 1) / kMessagesPerScript;
    size_t made = 0;
    std::vector<FailedScript> failures;
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
            const size_t rest = settings.count - made * kMessagesPerScript;
            // PluginCore may refuse after a `restart`.
            next.script = "allow silence\n" +
                          JoinScript(MakeRandomScript(next.seed, std::min(rest, kMessagesPerScript),
                                                      settings.rule == kRandomWithModel,
                                                      settings.isTypeloft));
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
    std::set<int> shrunk;
    for (const FailedScript& failed : failures) {
        const bool isFirst = shrunk.insert(GetBrokenRule(failed.outcome)).second;
        const FailedScript reported = isFirst ? Shrink(failed, series) : failed;
        report.Add(reported.which, series.RunWithJournal(reported.which, reported.outcome));
    }
}

}  // namespace headless
