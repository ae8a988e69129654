#pragma once

#include "application/Options.h"

namespace headless {

// Runs the script that `options` name, or the lines of standard input: all of the subcommand.
// Returns the exit status.
int RunSessionCommand(const Options& options);

}  // namespace headless
