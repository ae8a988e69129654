#pragma once

namespace base {

// The exit statuses that mean the same in every program of the project. Each program adds its own
// between kFileFailed and kInterrupted.
enum ProgramStatus : int {
    kSuccess = 0,
    kNegative = 1,  // the program ran, and the answer is no
    kWrongUse = 2,  // wrong options or arguments
    kFileFailed = 3,
    kInterrupted = 130,  // 128 + SIGINT, as shells report it
};

// A row of the table of exit statuses in a manual.
struct ProgramStatusRow {
    int status;
    const char* meaning;
};

}  // namespace base
