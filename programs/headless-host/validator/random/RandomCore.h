#pragma once

#include <string>

#include "validator/random/RandomNumbers.h"

namespace headless {

// A line that changes how a function of the simulated PluginCore behaves.
struct CoreLine {
    std::string function;
    std::string line;
    bool rebuilds = false;       // it may rebuild the library menu
    bool disablesItems = false;  // it provides a menu tree with disabled items
};

// A random line `core FUNCTION KEY=VALUE...` with keys that the function has a use for. Functions
// that are called only at the start and the end of the plug-in are left out.
CoreLine MakeCoreLine(RandomNumbers& random);

// A status of a failure, or "throw:TYPE", as `fail-call` and `fail-core` know them.
std::string MakeFaultKind(RandomNumbers& random);

}  // namespace headless
