#pragma once

#include <nlohmann/json.hpp>

#include "validator/Case.h"

namespace headless {

// A case and its outcome for users: an object with the members rule, level, case, outcome, message
// (of the first finding, or why it was skipped), findings, seed and journal.
//
// level   of the case's rule
nlohmann::ordered_json DescribeCase(const ValidatorCase& which, int level,
                                    const CaseOutcome& outcome);

}  // namespace headless
