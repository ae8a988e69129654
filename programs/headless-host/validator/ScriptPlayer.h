#pragma once

#include <string>

#include "validator/Case.h"

namespace headless {

// Plays a script to the plug-in in a simulation, in this process, which can do that only once: the
// module is loaded and the environment is changed. Findings are what the plug-in did wrong:
// a broken rule of the host, an expectation that wasn't met (of the rule of the case), a refusal to
// start. A wrong line of the script is one too: there is no other way to notice it in a sweep.
//
// plugin   the module, or a folder X.aip with the module X in it; absolute
// folder   an empty folder, absolute; the calls that fail are in its file "failed-calls" as soon as
//          they do, see kFailedCallsFile
// journal  file for the journal; empty for none
CaseOutcome PlayScript(const ValidatorCase& which, const std::string& plugin,
                       const std::string& folder, const std::string& journal);

}  // namespace headless
