#pragma once

#include <stdexcept>

namespace macho {

// Thrown when a Mach-O file cannot be loaded. The text names the file or the part of it that is at
// fault, and the reason.
struct LoadError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace macho
