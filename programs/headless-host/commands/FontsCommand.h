#pragma once

#include "application/Options.h"

namespace headless {

// `headless-host fonts`: tells fonts and placed files of many documents at a time, without plug-in
// and PluginCore. Each file is read in a process of its own kind, so a bad one ends nothing; all
// processes together take at most 1 GiB. Returns an exit status.
int RunFontsCommand(const Options& options);

}  // namespace headless
