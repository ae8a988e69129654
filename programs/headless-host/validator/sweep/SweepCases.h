#pragma once

#include <vector>

#include "validator/ValidatorReport.h"
#include "validator/process/CaseSeries.h"
#include "validator/sweep/Sweep.h"

namespace headless {

// Counts the calls of each scenario, makes each of them fail in turn and reports the cases. A
// scenario that fails although nothing was made to fail is reported and left out.
//
// rules   the rules of sweeps that are tested
void RunSweepCases(const std::vector<SweepRule>& rules, bool isTypeloft, CaseSeries& series,
                   ValidatorReport& report);

}  // namespace headless
