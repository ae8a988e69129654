#pragma once

#include "docfonts/commands/Options.h"

namespace docfonts {

// Reads the documents that `options` name and reports them on standard output and in the page, in
// their order: all of the program. Returns the exit status.
int ReportDocuments(const Options& options);

}  // namespace docfonts
