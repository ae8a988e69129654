#pragma once

#include <vector>

#include "validator/Case.h"

namespace headless {

// The cases that are written by hand, in the order of the rules.
//
// isTypeloft   whether to include the rules that are special to this project's plug-in
std::vector<ValidatorCase> MakeRuleCases(bool isTypeloft);

}  // namespace headless
