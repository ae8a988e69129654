#pragma once

#include <string>

namespace headless {

// How the program ends. Of several the greatest wins.
enum ExitStatus : int {
    kAllOpened = 0,
    kFontMissing = 1,
    kNotAsExpected = 1,
    kWrongUse = 2,
    kFileNotOpened = 3,
    kPluginNotLoaded = 4,
    kPluginBrokeRule = 5,
    kInterrupted = 130,
};

struct ExitStatusRow {
    int status;
    const char* meaning;
};

constexpr ExitStatusRow kExitStatuses[] = {
    {kAllOpened,
     "all files were opened and no font is missing; a script ran and all was as expected"},
    {kFontMissing, "open: a font is missing; script: an expectation was not met"},
    {kWrongUse, "wrong use of the program; script: a wrong line"},
    {kFileNotOpened, "a file could not be opened or saved"},
    {kPluginNotLoaded, "the plug-in or PluginCore could not be loaded"},
    {kPluginBrokeRule, "the plug-in broke a rule of the host"},
    {kInterrupted, "interrupted; the open documents were closed and the plug-in was shut down"},
};

}  // namespace headless
