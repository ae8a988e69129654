#pragma once

#include "application/Options.h"

namespace headless {

// Tests a plug-in by the rules that `options` select, or lists the rules: all of the subcommand.
// Returns the exit status.
int RunValidateCommand(const Options& options);

}  // namespace headless
