#pragma once

#include "base/ProgramStatus.h"

namespace headless {

// The exit statuses of the program. If several apply, it ends with the greatest.
enum ExitStatus : int {
    kAllOpened = base::kSuccess,
    kFontMissing = base::kNegative,
    kNotAsExpected = base::kNegative,
    kWrongUse = base::kWrongUse,
    kFileNotOpened = base::kFileFailed,
    kPluginNotLoaded = 4,
    kPluginBrokeRule = 5,
    kInterrupted = base::kInterrupted,
};

constexpr base::ProgramStatusRow kExitStatuses[] = {
    {kAllOpened,
     "every file was opened and no font is missing; every expectation of the script was met; "
     "validate: no rule was broken"},
    {kFontMissing,
     "open: a font is missing; script: an expectation was not met; replay: the plug-in made "
     "another "
     "call"},
    {kWrongUse, "wrong options or arguments; script: an invalid line"},
    {kFileNotOpened, "a file cannot be opened or saved; replay: the journal cannot be read"},
    {kPluginNotLoaded, "the plug-in or PluginCore cannot be loaded"},
    {kPluginBrokeRule, "the plug-in broke a rule of the host"},
    {kInterrupted, "interrupted; open documents were closed and the plug-in was shut down"},
};

}  // namespace headless
