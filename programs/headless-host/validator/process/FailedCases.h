#pragma once

#include <vector>

#include "validator/process/CaseSeries.h"

namespace headless {

// A case that failed, and how.
struct FailedCase {
    ValidatorCase which;
    CaseOutcome outcome;
};

// Reports the cases, each with its journal. Of those that broke the same rule, the first is shrunk
// to the shortest script that still breaks it.
void ReportFailedCases(const std::vector<FailedCase>& failures, CaseSeries& series,
                       ValidatorReport& report);

}  // namespace headless
