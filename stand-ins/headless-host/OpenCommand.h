#pragma once

#include "Options.h"

namespace headless {

// Runs `headless-host open` and returns the exit status. Reports go to standard output, all else to
// standard error.
int RunOpenCommand(Options options);

}  // namespace headless
