#pragma once

#include <cstddef>

namespace headless {

struct CaseLimits {
    double seconds = 10;             // for one case; longer is a finding of rule 303. Time in which
                                     // it waits for a processor doesn't count
    size_t bytes = size_t{1} << 30;  // of address space; not enforced under AddressSanitizer
    unsigned jobs = 1;               // processes at a time
};

}  // namespace headless
