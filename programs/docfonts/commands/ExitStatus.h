#pragma once

#include "base/ProgramStatus.h"

namespace docfonts {

// The exit statuses of the program. If several apply, it ends with the greatest.
enum ExitStatus : int {
    kAllHere = base::kSuccess,
    kSomethingMissing = base::kNegative,
    kWrongUse = base::kWrongUse,
    kFileFailed = base::kFileFailed,
    kInterrupted = base::kInterrupted,
};

constexpr base::ProgramStatusRow kExitStatuses[] = {
    {kAllHere, "every file was read; no font and no placed file is missing"},
    {kSomethingMissing,
     "a font is missing or here only as another style, or a placed file is missing"},
    {kWrongUse, "wrong options or arguments"},
    {kFileFailed, "a file or folder cannot be read, or the report cannot be written"},
    {kInterrupted, "interrupted, or nobody reads the output any more"},
};

}  // namespace docfonts
