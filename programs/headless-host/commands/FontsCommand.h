#pragma once

#include "application/Options.h"

namespace headless {

// Reports the fonts and placed files of the documents that `options` name, without the plug-in: all
// of the subcommand. Reads several files at a time, in worker processes, so that a file that
// crashes a reader fails alone; all processes together use at most 1 GiB. Returns the exit status.
int RunFontsCommand(const Options& options);

}  // namespace headless
