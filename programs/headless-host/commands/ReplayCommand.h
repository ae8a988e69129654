#pragma once

#include "application/Options.h"

namespace headless {

// Plays the journal that `options` name to a plug-in: all of the subcommand. Returns the exit
// status.
int RunReplayCommand(const Options& options);

}  // namespace headless
