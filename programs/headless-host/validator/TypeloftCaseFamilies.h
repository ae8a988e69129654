#pragma once

#include <vector>

#include "validator/Case.h"

namespace headless {

// Each function appends the cases of a family, in the order of its rules. Those of rules that hold
// for any plug-in use nothing that is special to this project's.

void AddPluginCoreCases(std::vector<ValidatorCase>& cases);
void AddDialogPeriodCases(std::vector<ValidatorCase>& cases);
void AddPanelPortCases(std::vector<ValidatorCase>& cases);
void AddShutdownCases(std::vector<ValidatorCase>& cases);

}  // namespace headless
