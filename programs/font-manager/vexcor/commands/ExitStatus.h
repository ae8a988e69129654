#pragma once

namespace vexcor {

// How the program ends.
enum ExitStatus : int {
    kDone = 0,
    kNotSo = 1,
    kWrongUse = 2,
    kFileFailed = 3,
    kDatabaseFailed = 4,
};

struct ExitStatusRow {
    int status;
    const char* meaning;
};

constexpr ExitStatusRow kExitStatuses[] = {
    {kDone, "done; why: the font is active; run: it was asked to end"},
    {kNotSo,
     "why: the font isn't active; repair: something is left that can't be repaired; run: it runs "
     "already"},
    {kWrongUse, "wrong use of the program"},
    {kFileFailed, "a file or folder can't be read or written"},
    {kDatabaseFailed, "the database can't be used"},
};

}  // namespace vexcor
