#pragma once

#include "application/Options.h"

namespace headless {

// `headless-host script`: all of it. Returns the exit status.
int RunSessionCommand(const Options& options);

}  // namespace headless
