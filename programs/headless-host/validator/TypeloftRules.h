#pragma once

#include <vector>

#include "validator/RuleRow.h"

namespace headless {

// The rules 1100 to 1499, in the order of their numbers: about PluginCore, the period in which the
// missing-fonts dialog is dismissed, the panel's port, and shutdown and second start.
// docs/VALIDATOR-TYPELOFT.md explains each one.
std::vector<RuleRow> ListTypeloftRules();

}  // namespace headless
