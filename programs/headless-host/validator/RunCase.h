#pragma once

#include <string>

#include "validator/Case.h"

namespace headless {

// Plays a case to the plug-in in this process, which can do that only once: it loads the module
// and changes the environment.
//
// plugin   the module, or a folder X.aip with the module X in it
// folder   an empty folder for what the case needs; the caller deletes it
CaseOutcome RunCase(const ValidatorCase& which, const std::string& plugin,
                    const std::string& folder);

}  // namespace headless
