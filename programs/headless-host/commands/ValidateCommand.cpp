#include "commands/ValidateCommand.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "application/ExitStatus.h"
#include "application/PluginModule.h"
#include "batch/WorkerPool.h"
#include "console/Console.h"
#include "system/Interrupts.h"
#include "system/Paths.h"
#include "validator/CasePool.h"
#include "validator/RuleCases.h"
#include "validator/Rules.h"
#include "validator/RunCase.h"
#include "validator/ValidatorReport.h"
#include "validator/process/CaseEnd.h"
#include "validator/process/CaseSeries.h"
#include "validator/random/RandomCases.h"
#include "validator/sweep/SweepCases.h"

namespace headless {

namespace {

constexpr char kTypeloftModule[] = "TypeloftSPEA";
constexpr char kTypeloftProfile[] = "typeloft";

bool IsTypeloft(const Options& options)
{
    if (!options.validate.profile.empty()) return options.validate.profile == kTypeloftProfile;
    std::filesystem::path file(options.plugin);
    if (!file.has_filename()) file = file.parent_path();
    return file.stem() == kTypeloftModule;
}

// Loads the plug-in in a process of its own. Returns nothing after an interrupt.
std::optional<CaseOutcome> TryToLoad(const CaseLimits& limits, const std::string& plugin)
{
    ValidatorCase loading;
    loading.rule = kModuleNotLoaded;
    loading.name = "load";
    loading.script = "start\n";
    std::optional<ValidatorCase> rest = loading;
    std::optional<CaseOutcome> result;
    RunCases(
        limits, [&rest] { return std::exchange(rest, std::nullopt); },
        [&plugin](const ValidatorCase&, const std::string&) {
            std::string error;
            const std::unique_ptr<PluginModule> module = PluginModule::Load(plugin, error);
            if (!module) return MakeFailure(kModuleNotLoaded, error);
            module->LeaveLoaded();
            return CaseOutcome();
        },
        [&result](const ValidatorCase&, const CaseOutcome& outcome) {
            result = outcome;
            return true;
        });
    return result;
}

// One run of the subcommand over a plug-in.
class Validation {
public:
    explicit Validation(const Options& options)
        : mOptions(options.validate),
          mGivenPlugin(options.plugin),
          mPlugin(MakeAbsolute(options.plugin)),
          mIsTypeloft(IsTypeloft(options)),
          mReport(kRules, {options.json, options.validate.junit, options.validate.outputFolder})
    {
        mLimits.jobs =
            mOptions.jobs > 0 ? mOptions.jobs : static_cast<unsigned>(batch::GetCoreCount());
        mLimits.seconds = ScaleTimeLimit(mLimits.seconds, mOptions.length);
    }

    int Run()
    {
        for (const int rule : mOptions.rules) {
            const std::string problem = GetProblem(rule);
            if (problem.empty()) continue;
            console::PrintError("rule " + std::to_string(rule) + ": " + problem);
            return kWrongUse;
        }
        CatchInterrupts();
        const std::optional<CaseOutcome> loading = TryToLoad(mLimits, mPlugin);
        if (!loading) return kInterrupted;
        if (loading->result != CaseResult::kPassed) return ReportLoading(*loading);
        RunAll();
        mReport.Finish(mGivenPlugin);
        if (IsInterrupted()) return kInterrupted;
        if (mReport.CountFailed() > 0) return kPluginBrokeRule;
        if (mReport.CountAll() == 0) {
            console::PrintError("no case tests the chosen rules");
            return kWrongUse;
        }
        return mReport.HasWritten() ? kAllOpened : kFileNotOpened;
    }

private:
    std::string GetProblem(int rule) const
    {
        const RuleRow* const row = FindRule(rule);
        if (row == nullptr) return "unknown; headless-host validate --list prints all rules";
        if (row->isForTypeloftOnly && !mIsTypeloft) return "needs --profile typeloft";
        return {};
    }

    bool IsChosen(int rule) const
    {
        const RuleRow* const row = FindRule(rule);
        if (row == nullptr || (row->isForTypeloftOnly && !mIsTypeloft)) return false;
        const std::vector<int>& rules = mOptions.rules;
        if (rules.empty()) return row->level <= mOptions.level;
        return std::find(rules.begin(), rules.end(), rule) != rules.end();
    }

    // A module that cannot be loaded is the user's mistake, one that crashes while it is loaded a
    // finding.
    int ReportLoading(const CaseOutcome& loading)
    {
        const bool isRefused =
            loading.findings.empty() || loading.findings.front().rule == kModuleNotLoaded;
        if (isRefused) {
            console::PrintError(loading.findings.empty() ? loading.reason
                                                         : loading.findings.front().message);
            return kPluginNotLoaded;
        }
        ValidatorCase which;
        which.rule = kModuleNotLoaded;
        which.name = "load";
        which.script = "start\n";
        mReport.Add(which, loading);
        mReport.Finish(mGivenPlugin);
        return kPluginBrokeRule;
    }

    void RunAll()
    {
        CaseSeries series(
            mLimits, mOptions.seconds,
            [this](const ValidatorCase& which, const std::string& folder) {
                return RunCase(which, mPlugin, folder);
            },
            LeaveOutKnown, mReport);
        RunWritten(series);
        std::vector<SweepRule> sweeps;
        for (const SweepRule rule :
             {kSuiteCallFails, kSuiteCallThrows, kCoreCallFails, kAllocationFails}) {
            if (IsChosen(rule)) sweeps.push_back(rule);
        }
        if (!IsInterrupted()) RunSweepCases(sweeps, mIsTypeloft, series, mReport);
        for (const int rule : {kRandomWithModel, kRandomWithoutModel}) {
            if (IsInterrupted() || !IsChosen(rule)) continue;
            RunRandomCases({rule, mIsTypeloft, mOptions.seed, mOptions.count, mOptions.length},
                           series, mReport);
        }
    }

    // The cases that are written by hand.
    void RunWritten(CaseSeries& series) const
    {
        std::vector<ValidatorCase> cases = MakeRuleCases(mIsTypeloft);
        cases.erase(std::remove_if(cases.begin(), cases.end(),
                                   [this](const auto& which) { return !IsChosen(which.rule); }),
                    cases.end());
        size_t begun = 0;
        series.Run(cases.size(), [&]() -> std::optional<ValidatorCase> {
            if (begun == cases.size()) return std::nullopt;
            return cases[begun++];
        });
    }

    const ValidateOptions& mOptions;
    const std::string mGivenPlugin;
    const std::string mPlugin;
    const bool mIsTypeloft;
    CaseLimits mLimits;
    ValidatorReport mReport;
};

}  // namespace

int RunValidateCommand(const Options& options)
{
    if (options.validate.lists) {
        return console::Print(WriteRules(kRules, options.json)) ? kAllOpened : kFileNotOpened;
    }
    return Validation(options).Run();
}

}  // namespace headless
