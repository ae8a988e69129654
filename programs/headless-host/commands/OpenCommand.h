#pragma once

#include "application/Options.h"

namespace headless {

// Opens the documents that `options` name and reports their fonts: all of the subcommand. Returns
// the exit status.
int RunOpenCommand(const Options& options);

}  // namespace headless
