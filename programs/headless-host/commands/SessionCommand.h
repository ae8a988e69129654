#pragma once

#include "application/Options.h"

namespace headless {

// `headless-host run`: all of it. Returns the exit status.
int RunSessionCommand(const Options& options);

}  // namespace headless
