#pragma once

#include <string>
#include <vector>

#include "validator/Case.h"

namespace headless {

// Scripts in which each call and each allocation of the plug-in fails once.
//
// A scenario is a script with the line `fault` in it, from where everything can fail. Behind it
// come what is done to the plug-in and some messages that it must handle nevertheless.
struct Scenario {
    std::string name;
    std::string script;
};

// isTypeloft   whether to include what needs this project's plug-in
std::vector<Scenario> ListScenarios(bool isTypeloft);

// The rules of the sweeps, by what fails.
enum SweepRule : int {
    kSuiteCallFails = 1501,
    kSuiteCallThrows = 1502,
    kCoreCallFails = 1503,
    kAllocationFails = 1504,
};

// A case in which nothing fails, to count the calls of a scenario.
ValidatorCase MakeProbe(const Scenario& scenario);

// The cases of one rule: each of the counted calls fails once in each way.
std::vector<ValidatorCase> MakeSweepCases(const Scenario& scenario, SweepRule rule,
                                          const CallCounts& counts);

// Leaves out findings that are known and accepted when a call fails (KnownResidue.h). The case has
// passed if none is left.
void LeaveOutKnown(CaseOutcome& outcome);

}  // namespace headless
