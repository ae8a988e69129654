#pragma once

#include <vector>

#include "validator/RuleRow.h"

namespace headless {

// In the order of their numbers.
extern const std::vector<RuleRow> kRules;

// Null if there is no such rule.
const RuleRow* FindRule(int number);

}  // namespace headless
