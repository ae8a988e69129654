#include "validator/ValidatorReport.h"

#include <algorithm>
#include <cstdio>

#include "base/JsonText.h"
#include "base/Lines.h"
#include "base/Plural.h"
#include "base/Strings.h"
#include "console/Console.h"
#include "validator/report/CaseJson.h"

namespace headless {

namespace {

constexpr int kRulesOfFamily = 100;
// More are only counted: the same fault fails many cases of a sweep.
constexpr size_t kMostFailedCases = 20;
constexpr size_t kMostScriptLines = 12;

std::string FormatRow(const std::string& name, const std::string& cases, const std::string& passed,
                      const std::string& failed, const std::string& skipped)
{
    char line[256];
    const int size = std::snprintf(line, sizeof line, "%-28.60s%8s%8s%8s%9s\n", name.c_str(),
                                   cases.c_str(), passed.c_str(), failed.c_str(), skipped.c_str());
    return {line, static_cast<size_t>(std::clamp<int>(size, 0, sizeof line - 1))};
}

std::vector<std::string> ListLines(const std::string& text)
{
    std::vector<std::string> lines;
    std::string_view rest = text;
    while (!rest.empty()) lines.emplace_back(base::TakeLine(rest));
    return lines;
}

std::string GetFirstMessage(const CaseOutcome& outcome)
{
    return outcome.findings.empty() ? outcome.reason : outcome.findings.front().message;
}

std::string Indent(const std::string& line) { return "    " + base::MakePrintable(line) + "\n"; }

}  // namespace

ValidatorReport::ValidatorReport(const std::vector<RuleRow>& rules, const ReportSettings& settings)
    : mRules(rules), mSettings(settings)
{
    if (!settings.outputFolder.empty()) mFiles.emplace(settings.outputFolder);
}

const RuleRow* ValidatorReport::Find(int rule) const
{
    const auto found = std::find_if(mRules.begin(), mRules.end(),
                                    [rule](const RuleRow& row) { return row.number == rule; });
    return found == mRules.end() ? nullptr : &*found;
}

std::string ValidatorReport::GetFamily(int rule) const
{
    for (const RuleRow& row : mRules) {
        if (row.number / kRulesOfFamily == rule / kRulesOfFamily) return row.family;
    }
    return "rule " + std::to_string(rule);
}

int ValidatorReport::GetLevel(int rule) const
{
    const RuleRow* const row = Find(rule);
    return row == nullptr ? 0 : row->level;
}

void ValidatorReport::Print(const std::string& text)
{
    if (!console::Print(text)) mHasWritten = false;
}

void ValidatorReport::Check(const std::string& problem)
{
    if (problem.empty()) return;
    mHasWritten = false;
    console::PrintError(problem);
}

void ValidatorReport::Count(int rule, CaseResult result, const std::string& reason, size_t cases)
{
    for (Tally* const tally : {&mFamilies[rule / kRulesOfFamily], &mTotal}) {
        (result == CaseResult::kPassed   ? tally->passed
         : result == CaseResult::kFailed ? tally->failed
                                         : tally->skipped) += cases;
    }
    if (result == CaseResult::kSkipped) mReasons[reason] += cases;
}

void ValidatorReport::Add(const ValidatorCase& which, const CaseOutcome& outcome)
{
    const int level = GetLevel(which.rule);
    mMessages += outcome.counts.messages;
    Count(which.rule, outcome.result, outcome.reason, 1);
    if (mSettings.isJson) Print(base::PrintJson(DescribeCase(which, level, outcome)) + "\n");
    const bool isFailed = outcome.result == CaseResult::kFailed;
    if (isFailed && mFiles) Check(mFiles->Write(which, level, outcome));
    if (isFailed && mFailed.size() < kMostFailedCases) mFailed.push_back({which, outcome});
    if (!mSettings.junitFile.empty()) {
        std::vector<std::string> details;
        if (isFailed) {
            for (const Finding& finding : outcome.findings) {
                details.push_back("rule " + std::to_string(finding.rule) + ": " + finding.message);
            }
            details.emplace_back("script:");
            for (const std::string& line : ListLines(which.script)) details.push_back(line);
        }
        mJunit.push_back({GetFamily(which.rule), which.rule, which.name, outcome.result,
                          GetFirstMessage(outcome), details});
    }
}

void ValidatorReport::AddSkipped(int rule, size_t cases, const std::string& reason)
{
    if (cases == 0) return;
    Count(rule, CaseResult::kSkipped, reason, cases);
    ValidatorCase which;
    which.rule = rule;
    which.name = base::Count(cases, "case");
    CaseOutcome outcome;
    outcome.result = CaseResult::kSkipped;
    outcome.reason = reason;
    if (mSettings.isJson) {
        Print(base::PrintJson(DescribeCase(which, GetLevel(rule), outcome)) + "\n");
    }
    if (!mSettings.junitFile.empty()) {
        mJunit.push_back({GetFamily(rule), rule, which.name, outcome.result, reason, {}});
    }
}

std::string ValidatorReport::WriteTallies() const
{
    const auto format = [](const std::string& name, const Tally& tally) {
        return FormatRow(name, std::to_string(tally.passed + tally.failed + tally.skipped),
                         std::to_string(tally.passed), std::to_string(tally.failed),
                         std::to_string(tally.skipped));
    };
    std::string text = FormatRow("family", "cases", "passed", "failed", "skipped");
    for (const auto& [hundreds, tally] : mFamilies) {
        text += format(GetFamily(hundreds * kRulesOfFamily), tally);
    }
    text += format("all", mTotal);
    if (mMessages > 0) text += "messages sent: " + std::to_string(mMessages) + "\n";
    for (const auto& [reason, cases] : mReasons) {
        text +=
            "skipped: " + base::Count(cases, "case") + ": " + base::MakePrintable(reason) + "\n";
    }
    return text;
}

std::string ValidatorReport::WriteFailedCase(const FailedCase& failed) const
{
    const ValidatorCase& which = failed.which;
    const RuleRow* const tested = Find(which.rule);
    std::string text = "\nfailed: rule " + std::to_string(which.rule) + ", case " +
                       base::MakePrintable(which.name);
    if (which.seed != 0) text += ", seed " + std::to_string(which.seed);
    text += "\n";
    if (tested != nullptr) text += Indent(tested->sentence);
    for (const Finding& finding : failed.outcome.findings) {
        text += "  broken: rule " + std::to_string(finding.rule);
        const RuleRow* const broken = Find(finding.rule);
        if (broken != nullptr && broken != tested) text += std::string(", ") + broken->sentence;
        text += "\n" + Indent(finding.message);
    }
    const std::vector<std::string> lines = ListLines(which.script);
    text += "  script:\n";
    for (size_t i = 0; i < std::min(lines.size(), kMostScriptLines); ++i) text += Indent(lines[i]);
    if (lines.size() > kMostScriptLines) {
        text += Indent("# " + base::Count(lines.size() - kMostScriptLines, "more line"));
    }
    return text;
}

void ValidatorReport::Finish(const std::string& plugin)
{
    if (!mSettings.junitFile.empty()) {
        Check(WriteWholeFile(mSettings.junitFile, WriteJunit(mJunit)));
    }
    if (mSettings.isJson) return;
    std::string text;
    for (const FailedCase& failed : mFailed) text += WriteFailedCase(failed);
    if (mTotal.failed > mFailed.size()) {
        text += "\n" + base::Count(mTotal.failed - mFailed.size(), "more failed case") +
                ": see --json or --output-dir\n";
    }
    if (mTotal.failed > 0) {
        text += "\nto play a script again: headless-host script FILE --plugin " + plugin + "\n\n";
    }
    Print(text + WriteTallies());
}

std::string WriteRules(const std::vector<RuleRow>& rules, bool isJson)
{
    std::string text;
    for (const RuleRow& row : rules) {
        const char* const profile = row.isForTypeloftOnly ? "typeloft" : "any";
        if (isJson) {
            nlohmann::ordered_json value;
            value["rule"] = row.number;
            value["level"] = row.level;
            value["profile"] = profile;
            value["family"] = row.family;
            value["sentence"] = row.sentence;
            text += base::PrintJson(value) + "\n";
            continue;
        }
        char start[64];
        (void)std::snprintf(start, sizeof start, "%5d  %5d  %-8s  ", row.number, row.level,
                            profile);
        char family[64];
        (void)std::snprintf(family, sizeof family, "%-26.60s", row.family);
        text += std::string(start) + family + "  " + row.sentence + "\n";
    }
    if (isJson) return text;
    char head[128];
    (void)std::snprintf(head, sizeof head, "%5s  %5s  %-8s  %-26s  %s\n", "rule", "level",
                        "profile", "family", "sentence");
    return head + text;
}

}  // namespace headless
