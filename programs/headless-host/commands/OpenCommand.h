#pragma once

#include "application/Options.h"

namespace headless {

// `headless-host open`: all of it. Returns the exit status.
int RunOpenCommand(const Options& options);

}  // namespace headless
