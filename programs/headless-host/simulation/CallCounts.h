#pragma once

#include <cstddef>

namespace headless {

// How often the plug-in called what can be made to fail, counted from the script's first line
// `count`, or from its start if there is none.
struct CallCounts {
    size_t suiteCalls = 0;
    size_t coreCalls = 0;
    size_t allocations = 0;
};

}  // namespace headless
