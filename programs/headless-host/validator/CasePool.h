#pragma once

#include <functional>
#include <optional>
#include <string>

#include "validator/Case.h"
#include "validator/process/CaseLimits.h"

namespace headless {

// Runs cases in processes of their own. What a case does to its process, whether it crashes, hangs
// or ends it, becomes a finding of the case and never ends the caller.
//
// next    returns the next case; empty at the end
// body    performs a case in the child process, in an empty folder of its own that is deleted
//         afterwards
// done    called in the caller's process, in the order in which the cases end; returns false to
//         stop: running cases are killed
//
// The caller must have no other threads. Main thread only.
void RunCases(
    const CaseLimits& limits, const std::function<std::optional<ValidatorCase>()>& next,
    const std::function<CaseOutcome(const ValidatorCase&, const std::string& folder)>& body,
    const std::function<bool(const ValidatorCase&, const CaseOutcome&)>& done);

}  // namespace headless
