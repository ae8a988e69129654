#include "CaseRun.h"

#include <fstream>
#include <optional>

#include "validator/CasePool.h"
#include "validator/RunCase.h"

using headless::CaseOutcome;
using headless::ValidatorCase;

void RunCasesOver(const std::string& plugin, const std::vector<ValidatorCase>& cases,
                  const std::function<bool(const CaseRun&)>& done)
{
    headless::CaseLimits limits;
    limits.jobs = 2;
    limits.seconds = 60;  // the machine may be busy with other tests
    size_t next = 0;
    headless::RunCases(
        limits,
        [&]() -> std::optional<ValidatorCase> {
            if (next == cases.size()) return std::nullopt;
            return cases[next++];
        },
        [&plugin](const ValidatorCase& which, const std::string& folder) {
            CaseOutcome outcome = headless::RunCase(which, plugin, folder);
            std::ifstream journal(folder + "/journal");
            for (std::string line; std::getline(journal, line);) outcome.journal.push_back(line);
            return outcome;
        },
        [&done](const ValidatorCase& which, const CaseOutcome& outcome) {
            return done({which, outcome, outcome.journal});
        });
}
