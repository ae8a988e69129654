#pragma once

namespace vexcor {

// How the program ends.
enum ExitStatus : int {
    kDone = 0,
    kNegative = 1,
    kWrongUse = 2,
    kFileFailed = 3,
    kDatabaseFailed = 4,
};

struct ExitStatusRow {
    int status;
    const char* meaning;
};

constexpr ExitStatusRow kExitStatuses[] = {
    {kDone, "success; why: the font is active; watch: ended by a signal"},
    {kNegative,
     "why: the font is not active; repair: something cannot be repaired; watch: another Vexcor is "
     "watching already"},
    {kWrongUse, "wrong use of the program"},
    {kFileFailed, "a file or folder cannot be read or written"},
    {kDatabaseFailed, "the database cannot be used"},
};

}  // namespace vexcor
