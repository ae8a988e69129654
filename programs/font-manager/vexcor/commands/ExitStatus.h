#pragma once

#include "base/ProgramStatus.h"

namespace vexcor {

// The exit statuses of the program.
enum ExitStatus : int {
    kSuccess = base::kSuccess,
    kNegative = base::kNegative,
    kWrongUse = base::kWrongUse,
    kFileFailed = base::kFileFailed,
    kDatabaseFailed = 4,
};

constexpr base::ProgramStatusRow kExitStatuses[] = {
    {kSuccess, "success; why: the font is active; watch: ended by a signal"},
    {kNegative,
     "why: the font is not active; activate: some fonts cannot be activated; deactivate: some were "
     "not activated; remove: the folder was not added; status: there are problems; repair: "
     "something cannot be repaired; watch: another Vexcor is "
     "watching already"},
    {kWrongUse, "wrong options or arguments"},
    {kFileFailed, "a file or folder cannot be read or written"},
    {kDatabaseFailed, "the database cannot be used"},
    {126, "with: COMMAND cannot be run"},
    {127, "with: COMMAND was not found"},
    {128, "with: 128 and the number of the signal that ended COMMAND or came before its start"},
};

}  // namespace vexcor
