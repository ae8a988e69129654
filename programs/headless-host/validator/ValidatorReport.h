#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "validator/Case.h"
#include "validator/RuleRow.h"
#include "validator/report/CaseFiles.h"
#include "validator/report/JunitFile.h"

namespace headless {

struct ReportSettings {
    bool isJson = false;       // print one JSON object per case instead of the table
    std::string junitFile;     // "" for none
    std::string outputFolder;  // for the files of cases that failed; "" for none
};

// Collects the outcomes of all cases and writes what the user asked for. An error in writing is
// reported on standard error and remembered. Main thread only.
class ValidatorReport {
public:
    // rules   must outlive the report
    ValidatorReport(const std::vector<RuleRow>& rules, const ReportSettings& settings);

    // Takes the outcome of a case. Writes its JSON object and its files at once, so that nothing is
    // lost if the program ends.
    void Add(const ValidatorCase& which, const CaseOutcome& outcome);

    // Takes cases of a rule that were not even made. As JSON, one object stands for all of them;
    // its member case is "N cases".
    void AddSkipped(int rule, size_t cases, const std::string& reason);

    // Writes the table, unless JSON is wanted, and the JUnit file.
    //
    // plugin   as the user gave it, for the command that plays a case again
    void Finish(const std::string& plugin);

    size_t CountFailed() const { return mTotal.failed; }
    size_t CountAll() const { return mTotal.passed + mTotal.failed + mTotal.skipped; }
    bool HasWritten() const { return mHasWritten; }

private:
    struct Tally {
        size_t passed = 0;
        size_t failed = 0;
        size_t skipped = 0;
    };
    struct FailedCase {
        ValidatorCase which;
        CaseOutcome outcome;
    };

    const RuleRow* Find(int rule) const;
    std::string GetFamily(int rule) const;
    int GetLevel(int rule) const;  // 0 for an unknown rule
    void Count(int rule, CaseResult result, const std::string& reason, size_t cases);
    void Print(const std::string& text);
    void Check(const std::string& problem);
    std::string WriteTallies() const;
    std::string WriteFailedCase(const FailedCase& failed) const;

    const std::vector<RuleRow>& mRules;
    const ReportSettings mSettings;
    std::optional<CaseFiles> mFiles;
    std::map<int, Tally> mFamilies;  // by the hundreds of the rules' numbers
    Tally mTotal;
    size_t mMessages = 0;                    // of all cases whose process came to its end
    std::map<std::string, size_t> mReasons;  // for which cases were skipped
    std::vector<FailedCase> mFailed;         // those that the table shows
    std::vector<JunitCase> mJunit;
    bool mHasWritten = true;
};

// All rules as a table, or as one JSON object per line with the members rule, level, profile,
// family and sentence.
std::string WriteRules(const std::vector<RuleRow>& rules, bool isJson);

}  // namespace headless
